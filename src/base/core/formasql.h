#pragma once

#include <QList>
#include <QString>

// SQL text whose integer constants after a comparison are lifted out as bound values, so that
// statements that differ only in those numbers share one prepared statement.
struct FormaSql {
    QString testo;
    QList<qint64> valori;
};

FormaSql Parametrizza(const QString& sql);
