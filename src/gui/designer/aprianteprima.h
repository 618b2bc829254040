#pragma once

#include <QtGlobal>

class QWidget;

// "Visualizza in Anteprima": the layout designer of the collection, built as the record window
// is and shown modally; a message when no collection is current (id < 0).
void ApriAnteprima(qint32 idCollezione, QWidget* padre = nullptr);
