#pragma once

#include <QtGlobal>

class QWidget;

// "Esporta Collezione": asks where to save the collection as a text file and writes it there.
// Without a collection selected it does nothing; the save dialog's overwrite prompt is the only
// confirmation, and success says where the file went on the status bar.
void EsportaCollezione(QWidget* proprietario, qint32 idCollezione);
