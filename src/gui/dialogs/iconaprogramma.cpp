#include "iconaprogramma.h"

#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

QImage DisegnaIcona(int lato) {
    static QSvgRenderer disegno(QStringLiteral(":/org.example.orvix.svg"));
    QImage immagine(lato, lato, QImage::Format_ARGB32_Premultiplied);
    immagine.fill(Qt::transparent);
    QPainter pittore(&immagine);
    disegno.render(&pittore);
    return immagine;
}

QIcon IconaProgramma() {
    // Drawn once, at every size a window or a HiDPI screen asks for, never scaled from a smaller one;
    // the frame, the about box and the application all ask for it.
    static const QIcon icona = [] {
        QIcon disegnata;
        for (int lato : {16, 24, 32, 48, 64, 96, 128, 256})
            disegnata.addPixmap(QPixmap::fromImage(DisegnaIcona(lato)));
        return disegnata;
    }();
    return icona;
}
