#pragma once

#include "diagnosi.h"
#include "misura.h"
#include "opzioni.h"

// Everything measured on one store of a given record count.
struct MisureDimensione {
    qint32 record = 0;
    qint64 costruzioneNs = 0;
    qint64 residenteKiB = 0;
    // How many of the records were written by SalvaNuovoRecord; the rest by the same Recordset rows.
    QList<Risultato> risultati;
    QList<Profilo> profili;
    QStringList pianoMassimo;
    QStringList pianoMassimoPavimento;
};

// Builds a store of that many records and measures every operation on it.
MisureDimensione MisuraDimensione(qint32 record, const Opzioni& opzioni);
