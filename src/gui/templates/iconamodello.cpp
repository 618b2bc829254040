#include "iconamodello.h"

#include <QPainter>
#include <QPainterPath>
#include <QtMath>

namespace {

constexpr qreal Lato = 64;

void DisegnaFoglio(QPainter& pittore) {
    QPainterPath foglio;
    foglio.moveTo(10, 4);
    foglio.lineTo(42, 4);
    foglio.lineTo(54, 16);
    foglio.lineTo(54, 60);
    foglio.lineTo(10, 60);
    foglio.closeSubpath();
    QLinearGradient carta(0, 4, 0, 60);
    carta.setColorAt(0, QColor(255, 255, 255));
    carta.setColorAt(1, QColor(232, 238, 246));
    pittore.setPen(QPen(QColor(90, 110, 140), 1.5));
    pittore.setBrush(carta);
    pittore.drawPath(foglio);
    pittore.setBrush(QColor(205, 215, 230));
    pittore.drawPolygon(QPolygonF({QPointF(42, 4), QPointF(42, 16), QPointF(54, 16)}));
    pittore.setPen(Qt::NoPen);
    pittore.setBrush(QColor(60, 110, 180));
    pittore.drawRect(QRectF(14, 9, 24, 5));
}

// Three fields of a form: a label and the box beside it.
void DisegnaCampi(QPainter& pittore) {
    for (int i = 0; i < 3; ++i) {
        const qreal y = 22 + i * 11;
        pittore.setPen(Qt::NoPen);
        pittore.setBrush(QColor(120, 130, 145));
        pittore.drawRect(QRectF(15, y + 2, 9, 3));
        pittore.setPen(QPen(QColor(110, 130, 160), 1));
        pittore.setBrush(Qt::white);
        pittore.drawRect(QRectF(27, y, i == 2 ? 14 : 22, 7));
    }
}

void DisegnaStella(QPainter& pittore) {
    const QPointF centro(48, 50);
    QPolygonF stella;
    for (int i = 0; i < 10; ++i) {
        const qreal raggio = i % 2 == 0 ? 12 : 5;
        const qreal angolo = qDegreesToRadians(-90.0 + i * 36.0);
        stella << centro + QPointF(raggio * qCos(angolo), raggio * qSin(angolo));
    }
    pittore.setPen(QPen(QColor(170, 110, 0), 1.2));
    pittore.setBrush(QColor(250, 195, 40));
    pittore.drawPolygon(stella);
}

} // namespace

QIcon IconaVuota() {
    QPixmap figura(static_cast<int>(Lato), static_cast<int>(Lato));
    figura.fill(Qt::transparent);
    return QIcon(figura);
}

QIcon IconaModello() {
    QPixmap figura(static_cast<int>(Lato), static_cast<int>(Lato));
    figura.fill(Qt::transparent);
    QPainter pittore(&figura);
    pittore.setRenderHint(QPainter::Antialiasing);
    DisegnaFoglio(pittore);
    DisegnaCampi(pittore);
    DisegnaStella(pittore);
    pittore.end();
    return QIcon(figura);
}
