#include "iconaprogramma.h"

#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

QImage DisegnaIcona(int lato) {
    QImage immagine(lato, lato, QImage::Format_ARGB32_Premultiplied);
    immagine.fill(Qt::transparent);
    QSvgRenderer disegno(QStringLiteral(":/org.example.orvix.svg"));
    QPainter pittore(&immagine);
    disegno.render(&pittore);
    return immagine;
}

QIcon IconaProgramma() {
    QIcon icona;
    // Drawn at every size a window or a HiDPI screen asks for, never scaled from a smaller one.
    for (int lato : {16, 24, 32, 48, 64, 96, 128, 256})
        icona.addPixmap(QPixmap::fromImage(DisegnaIcona(lato)));
    return icona;
}
