#include "casellatesto.h"

MemoriaCasella* MemoriaDi(QWidget& casella) {
    return dynamic_cast<MemoriaCasella*>(&casella);
}

const MemoriaCasella* MemoriaDi(const QWidget& casella) {
    return dynamic_cast<const MemoriaCasella*>(&casella);
}
