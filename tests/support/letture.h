#pragma once
// Reads shared by the backup, start-up and collections tests: a file's bytes, a list's texts, a query's rows.

#include "archivio.h"

#include <QFile>
#include <QListWidget>
#include <QStringList>

// A file's bytes, empty if it cannot be read.
inline QByteArray Contenuto(const QString& percorso) {
    QFile file(percorso);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline QStringList Elencati(const QListWidget& lista) {
    QStringList nomi;
    for (int i = 0; i < lista.count(); ++i)
        nomi << lista.item(i)->text();
    return nomi;
}

// Every row of a query on the open store: its values joined by ';' (NULL as "-"), the rows by " / ".
inline QString Valori(const QString& sql) {
    QStringList righe;
    for (Recordset rs = Database().ApriRecordset(sql); !rs.Fine(); rs.Successivo()) {
        QStringList valori;
        for (int i = 0; i < rs.NumeroColonne(); ++i)
            valori << (rs.Campo(i).isNull() ? QStringLiteral("-") : rs.Campo(i).toString());
        righe << valori.join(';');
    }
    return righe.join(" / ");
}
