#pragma once

#include <QString>

struct ColonnaElenco;

// What the record window shows for a stored value: a check mark for a ticked check box, a list's
// or combo's chosen item, a picture's file name, a memo on one line; other values as stored.
QString TestoCella(const ColonnaElenco& colonna, const QString& valore);
// The stored value as an item position or check state, as the record window reads it.
int PosizioneMemorizzata(const QString& valore);
