#pragma once

#include <QtGlobal>

class QListWidget;
class QWidget;

// "Esporta Modello": the collection's structure into a template file chosen by the user; the status
// bar says where it went.
void EsportaModello(QWidget* proprietario, qint32 idCollezione);
// "Nuova da Modello...": the gallery, then a new collection from the chosen template, added to the
// list of collections (not selected).
void NuovaCollezioneDaModello(QWidget* proprietario, QListWidget& collezioni);
