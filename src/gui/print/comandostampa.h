#pragma once

#include <QtGlobal>

class QWidget;

// "Stampa...": the print preview of the collection, opened on its sheets with pictures and record
// numbers; a negative id (no collection selected) is refused with a message.
void ApriStampa(qint32 idCollezione, QWidget* proprietario);
