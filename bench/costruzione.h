#pragma once

#include "compilaform.h"

class frmRecord;

// The record window built for the collection and set on record 1, as the opener leaves it.
frmRecord& ApriFinestraRecord(const CollezioneBench& collezione);

// Records written by SalvaNuovoRecord when a store is built; the rest go through a Recordset.
constexpr qint32 LimiteSalvaNuovoRecord = 2000;

struct Costruzione {
    qint64 ns = 0;
    qint32 daSalvaNuovoRecord = 0;
};

// Writes records 1 to n in one explicit transaction and checks the store holds exactly them.
Costruzione CostruisciRecord(frmRecord& finestra, const QList<ControlloCampo>& controlli,
                             const CollezioneBench& collezione, qint32 n);
