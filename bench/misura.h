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
    // Loading a record is expected to cost the same whatever the store's size.
    bool caricamento = false;
    // How many times its floor the operation may take; 0 for a figure shown for reference only.
    double obiettivo = 3.0;
    // A cap on the repetitions of a long operation; 0 for none.
    int ripetizioniMassime = 0;
};

struct Risultato {
    QString nome;
    qint64 figuraNs = 0;
    qint64 pavimentoNs = 0;
    int ripetizioni = 0;
    bool caricamento = false;
    double obiettivo = 3.0;
};

// Medians of repeated timed calls, figure and floor alternating so both meet the same cache state.
Risultato Misura(const Operazione& operazione, const Opzioni& opzioni);
