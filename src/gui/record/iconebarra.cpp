#include "iconebarra.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <functional>

namespace {

constexpr int Lato = 32;

void DisegnaPiu(QPainter& pittore) {
    pittore.setRenderHint(QPainter::Antialiasing);
    pittore.setPen(QPen(QColor(30, 110, 30), 1));
    pittore.setBrush(QColor(60, 170, 60));
    pittore.drawEllipse(QRectF(Lato * 0.45, Lato * 0.45, Lato * 0.52, Lato * 0.52));
    pittore.setPen(QPen(Qt::white, 3, Qt::SolidLine, Qt::FlatCap));
    const QPointF centro(Lato * 0.71, Lato * 0.71);
    pittore.drawLine(centro - QPointF(5, 0), centro + QPointF(5, 0));
    pittore.drawLine(centro - QPointF(0, 5), centro + QPointF(0, 5));
}

void DisegnaMatita(QPainter& pittore) {
    pittore.setRenderHint(QPainter::Antialiasing);
    // Turned 45 degrees the pencil spans about 26 pixels each way: centred so no end is cut.
    pittore.translate(Lato * 0.5, Lato * 0.53);
    pittore.rotate(45);
    pittore.setPen(QPen(QColor(90, 60, 20), 1.2));
    pittore.setBrush(QColor(240, 180, 40));
    pittore.drawRect(QRectF(-4, -13, 8, 20));
    pittore.setBrush(QColor(230, 120, 130));
    pittore.drawRect(QRectF(-4, -17, 8, 4));
    QPainterPath punta;
    punta.moveTo(-4, 7);
    punta.lineTo(4, 7);
    punta.lineTo(0, 15);
    punta.closeSubpath();
    pittore.setBrush(QColor(245, 220, 170));
    pittore.drawPath(punta);
    pittore.setBrush(QColor(50, 50, 50));
    pittore.drawPolygon(QPolygonF({QPointF(-1.5, 12), QPointF(1.5, 12), QPointF(0, 15)}));
}

// Drawn for ordinary and double-density screens alike, so the toolbar is crisp on both.
QIcon PaginaCon(const QStyle& stile, const std::function<void(QPainter&)>& disegno) {
    QIcon icona;
    for (const qreal densita : {1.0, 2.0}) {
        QPixmap figura = stile.standardIcon(QStyle::SP_FileIcon).pixmap(QSize(Lato, Lato), densita);
        QPainter pittore(&figura);
        disegno(pittore);
        pittore.end();
        icona.addPixmap(figura);
    }
    return icona;
}

} // namespace

QIcon IconaNuovo(const QStyle& stile) {
    return PaginaCon(stile, DisegnaPiu);
}

QIcon IconaModifica(const QStyle& stile) {
    return PaginaCon(stile, DisegnaMatita);
}
