#include "casellafigura.h"

#include <QPaintEvent>
#include <cmath>

CasellaFigura::CasellaFigura(QWidget* parent)
    : QWidget(parent) {
    setObjectName(QStringLiteral("Pic1"));
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void CasellaFigura::ImpostaPagina(double larghezza, const QMarginsF& margini) {
    m_margini = margini;
    setFixedWidth(static_cast<int>(std::ceil(larghezza / TwipPerPixel)));
}

QSizeF CasellaFigura::Area() const {
    return {width() * TwipPerPixel - m_margini.left() - m_margini.right(),
            height() * TwipPerPixel - m_margini.top()};
}

void CasellaFigura::Cls() {
    Conserva();
    m_disegni.clear();
    CurrentX = 0;
    CurrentY = 0;
    update();
}

// A picture is readable once its painter has ended; drawing goes on in a new one.
void CasellaFigura::Conserva() {
    if (!m_pittore.isActive())
        return;
    m_pittore.end();
    m_disegni.append(m_corrente);
}

QList<QPicture> CasellaFigura::Disegni() {
    Conserva();
    return m_disegni;
}

// The drawing is kept in pieces, so that painting replays only the pieces in sight.
QPainter& CasellaFigura::Pittore() {
    if (m_pittore.isActive() && ++m_disegnati % DisegniPerPezzo == 0)
        Conserva();
    if (!m_pittore.isActive()) {
        m_corrente = QPicture();
        m_pittore.begin(&m_corrente);
        m_pittore.setRenderHint(QPainter::Antialiasing);
        m_pittore.scale(1 / TwipPerPixel, 1 / TwipPerPixel);
        m_pittore.translate(m_margini.left(), m_margini.top());
        update();
    }
    return m_pittore;
}

void CasellaFigura::paintEvent(QPaintEvent* evento) {
    Conserva();
    QPainter pittore(this);
    pittore.fillRect(rect(), Qt::white);
    for (const QPicture& disegno : std::as_const(m_disegni)) {
        if (disegno.boundingRect().intersects(evento->rect()))
            pittore.drawPicture(0, 0, disegno);
    }
}
