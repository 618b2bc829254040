#pragma once

#include "compilaform.h"

class frmRecord;

// The record window built for the collection and set on record 1, as the opener leaves it.
frmRecord& ApriFinestraRecord(const CollezioneBench& collezione);

// Writes records 1 to n through SalvaNuovoRecord in one explicit transaction, checks the store
// holds exactly them, and answers how long it took in nanoseconds.
qint64 CostruisciRecord(frmRecord& finestra, const QList<ControlloCampo>& controlli,
                        const CollezioneBench& collezione, qint32 n);
