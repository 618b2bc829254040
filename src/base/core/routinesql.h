#pragma once

#include <QList>
#include <QString>

// One row of a list loader: the text shown and the id kept as the item's data.
struct VoceElenco {
    qint32 id;
    QString nome;
};

// Doubles every single quote, for splicing between quotes into SQL text.
QString Quote(const QString& testo);

// Collections and a collection's fields, in the store's natural order.
QList<VoceElenco> ElencoCollezioni();
QList<VoceElenco> ElencoCampi(qint32 idCollezione);

// New collection's id, or -1 when a collection of that name exists. The name is spliced as typed.
qint32 CreaCollezione(const QString& nome, const QString& descrizione);

// The largest record number of a collection; 0 when it has no records.
qint32 ContaRecord(qint32 idCollezione);
// The text of the record-count query, shared by every caller that needs the maximum.
QString SqlMassimoRecord(qint32 idCollezione);

// Today's date as the store keeps dates.
QString DataOggi();
