#include "immagine.h"

#include <QMouseEvent>
#include <QPainter>

Immagine::Immagine(QWidget* parent)
    : QLabel(parent) {
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

void Immagine::paintEvent(QPaintEvent* evento) {
    if (isEnabled()) {
        QLabel::paintEvent(evento);
        return;
    }
    QPainter pittore(this);
    drawFrame(&pittore);
    const QPixmap figura = pixmap();
    if (figura.isNull())
        return;
    pittore.setClipRect(contentsRect());
    if (hasScaledContents())
        pittore.drawPixmap(contentsRect(), figura);
    else
        pittore.drawPixmap(contentsRect().topLeft(), figura);
}

void Immagine::mouseReleaseEvent(QMouseEvent* evento) {
    QLabel::mouseReleaseEvent(evento);
    if (evento->button() == Qt::LeftButton && rect().contains(evento->position().toPoint()))
        Q_EMIT Click();
}
