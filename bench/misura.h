#pragma once

#include "opzioni.h"

#include <QString>
#include <functional>

// One operation as the program does it (figura) and as the least raw SQL does it (pavimento).
// prima and dopo run untimed around each timed call: they set the window up and put the store
// back, so every repetition starts from the same record count.
struct Operazione {
    QString nome;
    std::function<void()> figura;
    std::function<void()> pavimento;
    std::function<void()> prima = [] {};
    std::function<void()> dopo = [] {};
    // How many times its figure on the smallest store it may take on the largest; 0: no such target.
    double scala = 0;
    // The scale target above is per record: the collection is written out whole.
    bool perRecord = false;
    // How many times its floor the operation may take; 0: no such target.
    double obiettivo = 3.0;
    // A cap on the repetitions of a long operation; 0 for none.
    int ripetizioniMassime = 0;
};

struct Risultato {
    QString nome;
    qint64 figuraNs = 0;
    qint64 pavimentoNs = 0;
    int ripetizioni = 0;
    // The most resident memory any timed call of the figure added to what the process held before it.
    qint64 piccoKiB = 0;
    double scala = 0;
    bool perRecord = false;
    double obiettivo = 3.0;
};

// Medians of repeated timed calls, figure and floor alternating so both meet the same cache state.
Risultato Misura(const Operazione& operazione, const Opzioni& opzioni);
