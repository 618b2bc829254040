#include "cronometro.h"

#include <QElapsedTimer>
#include <algorithm>

qint64 Cronometra(const std::function<void()>& azione) {
    QElapsedTimer orologio;
    orologio.start();
    azione();
    return orologio.nsecsElapsed();
}

qint64 Mediana(QList<qint64> tempi) {
    if (tempi.isEmpty())
        return 0;
    std::sort(tempi.begin(), tempi.end());
    const qsizetype meta = tempi.size() / 2;
    return tempi.size() % 2 ? tempi.at(meta) : (tempi.at(meta - 1) + tempi.at(meta)) / 2;
}
