#include "cursore.h"

Cursore::Cursore(QWidget* parent)
    : QSlider(Qt::Horizontal, parent) {
    AggiornaIntervallo();
}

void Cursore::ImpostaMin(int valore) {
    m_min = valore;
    AggiornaIntervallo();
}

void Cursore::ImpostaMax(int valore) {
    m_max = valore;
    AggiornaIntervallo();
}

void Cursore::AggiornaIntervallo() {
    setRange(qMin(m_min, m_max), qMax(m_min, m_max));
    setInvertedAppearance(m_min > m_max);
}
