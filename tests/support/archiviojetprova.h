#pragma once

#include <QList>
#include <QString>
#include <QVariant>
#include <functional>

// Small Jet 4 files for the tests and the benchmark, in the minimal layout mdbtools reads: a header
// page (with an optional database password), the catalog, and per table its definition, data pages,
// long-value pages and usage maps. No indexes and no column properties.

enum class TipoJet : quint8 {
    Booleano = 1,
    Intero = 3,
    Lungo = 4,
    Doppio = 7,
    DataOra = 8,
    Testo = 10,
    Memo = 12
};

struct ColonnaProva {
    QString nome;
    TipoJet tipo = TipoJet::Testo;
};

// Values by column: a null QVariant is NULL; bool, int, double (a date as days from
// 30/12/1899) and QString, as the column's type
// wants.
struct TabellaProva {
    QString nome;
    QList<ColonnaProva> colonne;
    QList<QVariantList> righe;
    // After `righe`, `generate` more rows made one at a time as they are written, row i by riga(i),
    // so that a large table is never held whole.
    qint32 generate = 0;
    std::function<QVariantList(qint32)> riga = {};
};

void ScriviArchivioJet4(const QString& percorso, const QList<TabellaProva>& tabelle,
                        const QString& password = {}, double dataCreazione = 44532.650103831016);
