#pragma once
// Small look-ups shared by the backup, start-up and collections tests.

#include "archivio.h"
#include "interazione.h"

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

// A file dialog's request as one line: save or open, title, name, folder, extension, filters.
inline QString DialogoFile(const RichiestaFile& r) {
    QStringList filtri;
    for (const auto& [didascalia, modello] : r.filtri)
        filtri << didascalia + "=" + modello;
    return QStringList({r.apertura ? QStringLiteral("apri") : QStringLiteral("salva"), r.titolo, r.nomeFile,
                        r.cartellaIniziale, r.estensione, filtri.join(',')})
        .join('|');
}
