#pragma once

#include <QtGlobal>

class QListWidget;

// "Inserisci Record": opens the record window on record 1 of the collection selected in the list.
void InserisciRecord(QListWidget& List1);
// Builds the record window for the collection, shows record n in it and shows the window.
void ApriRecord(qint32 idCollezione, qint32 n);
