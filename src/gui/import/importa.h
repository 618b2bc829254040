#pragma once

class QListWidget;
class QString;

// "Importa...": the kind of source, the file, then the text or legacy-archive import; each new
// collection is added to `collezioni` as soon as it exists.
void ImportaStrutturaeDati(QListWidget& collezioni);
// A delimited text file as a new collection: separator, name and description are asked first.
void ImportaTesto(const QString& file, QListWidget& collezioni);
// The tables of a legacy archive as new collections: its password, then one table or all of them.
void ImportaArchivioTarvino(const QString& file, QListWidget& collezioni);
