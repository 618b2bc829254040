#pragma once

#include <QtGlobal>

class frmFind;

// Opens a fresh search window on the collection, its field chooser filled with the collection's
// fields and the first one chosen; a search window already open is closed first.
void ApriRicerca(qint32 idCollezione);
// The open search window, or nullptr.
frmFind* FinestraRicerca();
