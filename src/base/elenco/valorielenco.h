#pragma once

#include <QHash>
#include <QList>
#include <QString>

// The stored values of some records, by record number and then by field id.
using ValoriRecord = QHash<qint32, QHash<qint32, QString>>;

// Reads up to Pagina records of the given fields at once: what one scroll of the list brings into view.
ValoriRecord LeggiValori(const QList<qint32>& campi, const QList<qint32>& numeri);

constexpr qsizetype Pagina = 64;
