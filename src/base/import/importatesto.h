#pragma once

#include <QString>

class Avanzamento;

enum class EsitoImportazione { Completata, CollezioneNonCreata, FormatoNonValido };

// What an import asks of the window that started it.
class Importatore {
public:
    virtual ~Importatore() = default;
    // The new collection is listed as soon as it exists, before its source is read.
    virtual void CollezioneCreata(qint32 id, const QString& nome) = 0;
};

// A delimited text file as a new collection: the collection first, then the heading line is checked
// (a single name leaves the collection empty), one text box per name, one record per line holding
// at least as many pieces as the heading. No quoting is recognised: the separator always splits.
// A store failure (a value with a quote) is thrown after the records before it are stored.
EsitoImportazione ImportaFileTesto(const QString& file, const QString& separatore, const QString& nome,
                                   const QString& descrizione, Avanzamento& avanzamento,
                                   Importatore& importatore);
