#pragma once

#include "importatesto.h"

#include <QString>

class ArchivioJet;
class Avanzamento;
struct ColonnaJet;
struct CampoImportato;

// One table of a legacy archive as a new collection: named after the table (followed by 1, 2 ...
// when that name is taken, compared without regard to case), a field per column typed by its name
// and data type, a record per row, every value quoted so that it is stored intact.
EsitoImportazione ImportaTabellaJet(ArchivioJet& archivio, const QString& tabella, Avanzamento& avanzamento,
                                    Importatore& importatore);

// The field row of a legacy column at position k of the table `tabella`.
CampoImportato CampoDaColonna(const ColonnaJet& colonna, int k, const QString& tabella);

// The table's name, or the first of name1, name2 ... that no collection has.
QString NomeLibero(const QString& tabella);
