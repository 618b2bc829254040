#pragma once

#include <QtGlobal>

class frmElenco;

// Opens the list of the collection's records as a child of the frame, or brings forward the one open.
void ApriElenco(qint32 idCollezione);
// The open list of the collection, or nullptr.
frmElenco* FinestraElenco(qint32 idCollezione);
// Shows record n in the record window, unless that window is in the middle of an insert or edit.
void ApriRecordDaElenco(qint32 idCollezione, qint32 n);
