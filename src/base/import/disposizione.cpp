#include "disposizione.h"

QPoint Disposizione::Prossima() {
    if (m_top > 400 && m_left <= 30) {
        m_top = 0;
        m_left = 250;
    } else if (m_left != 250) {
        m_left = 30;
    }
    m_top += 40;
    return {m_left, m_top};
}
