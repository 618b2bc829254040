#include "iconaprogramma.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace {

QPixmap Disegna(int lato) {
    QPixmap immagine(lato, lato);
    immagine.fill(Qt::transparent);
    QPainter pittore(&immagine);
    pittore.setRenderHint(QPainter::Antialiasing);
    const qreal margine = lato * 0.06;
    const QRectF scatola(margine, margine, lato - 2 * margine, lato - 2 * margine);
    QLinearGradient sfondo(scatola.topLeft(), scatola.bottomRight());
    sfondo.setColorAt(0, QColor(0x2f, 0x6f, 0xb3));
    sfondo.setColorAt(1, QColor(0x1b, 0x3f, 0x6e));
    pittore.setPen(Qt::NoPen);
    pittore.setBrush(sfondo);
    pittore.drawRoundedRect(scatola, lato * 0.18, lato * 0.18);
    // Three index cards fanned out: a catalogue of anything.
    const QColor carte[] = {QColor(0xf2, 0xc1, 0x4e), QColor(0xe8, 0x74, 0x4f), QColor(0xfa, 0xfa, 0xfa)};
    for (int i = 0; i < 3; ++i) {
        pittore.save();
        pittore.translate(lato * 0.5, lato * 0.62);
        pittore.rotate(-18 + i * 18);
        pittore.setBrush(carte[i]);
        pittore.drawRoundedRect(QRectF(-lato * 0.17, -lato * 0.38, lato * 0.34, lato * 0.44), lato * 0.04,
                                lato * 0.04);
        pittore.restore();
    }
    return immagine;
}

} // namespace

QIcon IconaProgramma() {
    QIcon icona;
    for (int lato : {16, 24, 32, 48, 64, 128})
        icona.addPixmap(Disegna(lato));
    return icona;
}
