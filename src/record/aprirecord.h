#pragma once

class QListWidget;

// "Inserisci Record": opens the record window on record 1 of the collection selected in the list.
void InserisciRecord(QListWidget& List1);
