#pragma once

#include <QList>
#include <functional>

// Nanoseconds taken by one call.
qint64 Cronometra(const std::function<void()>& azione);
// The middle value; for an even count the mean of the two middle ones.
qint64 Mediana(QList<qint64> tempi);
