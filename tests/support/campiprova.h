#pragma once

#include <QStringList>
#include <QVariantHash>

// Adds a field row to the collection and answers its id. The columns given, by name, override a
// textbox at (10, 30) of 120 x 21 with tab index 0, not required; a null QVariant stores NULL.
qint32 AggiungiCampo(qint32 idCollezione, const QVariantHash& colonne);
// One value row, dated today.
void ScriviValore(qint32 idCampo, qint32 numeroRecord, const QString& valore);
// The stored values of a field, in record-number order, as "n=valore".
QStringList ValoriDelCampo(qint32 idCampo);
// The rows a query answers, the columns of each joined by "|".
QStringList RigheSql(const QString& sql);
// A collection's records in record-number order, each its values in field order joined by "|".
QStringList RecordCollezione(qint32 idCollezione);
