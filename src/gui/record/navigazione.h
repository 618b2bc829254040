#pragma once

#include "valorecontrollo.h"

#include <QtGlobal>

class FinestraControlli;

// Shows record n of the collection. A control whose field has no value in that record keeps
// what it showed; formula fields and the caption follow only for n > 0.
void CaricaRecord(FinestraControlli& finestra, qint32 n, qint32 idCollezione);
// Empties every field control for a new record.
void PulisciControlli(FinestraControlli& finestra);
// Puts defaults into empty text boxes and checks the required ones; false, after saying which
// field is missing, when the record cannot be saved.
bool ControllaRecord(FinestraControlli& finestra, qint32 idCollezione);
// Stores what the window shows as a new record numbered after the last one.
bool SalvaNuovoRecord(FinestraControlli& finestra, qint32 idCollezione);
// Writes what the window shows over record n; a failure, or a record n that no longer exists, is
// shown and answers false.
bool SalvaRecord(FinestraControlli& finestra, qint32 idCollezione, qint32 n);
// Deletes record n and renumbers the collection's later records down by one.
void EliminaRecord(qint32 idCollezione, qint32 n);
