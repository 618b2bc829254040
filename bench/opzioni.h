#pragma once

#include <QList>
#include <QStringList>

// What one run of the bench measures and how long it may spend on each figure.
struct Opzioni {
    QList<qint32> dimensioni{1000, 100000};
    int minimoRipetizioni = 5;
    int massimoRipetizioni = 31;
    // Once the minimum is reached, an operation stops repeating after this much time at one size.
    qint64 budgetNs = 3'000'000'000;
    bool aiuto = false;
};

// Reads --sizes N,M,... , --quick and --help; throws std::invalid_argument on anything else.
Opzioni LeggiOpzioni(const QStringList& argomenti);
QString Uso();
