#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <mdbtools.h>
#include <memory>

// A column of a legacy table: its name, its Jet data type code and its own Required property.
struct ColonnaJet {
    QString nome;
    int tipo = 0;
    bool required = false;
};

// The rows of one legacy table, read forward, each value as a user of this program would type it.
class TabellaJet final {
public:
    TabellaJet(MdbHandle& archivio, S_MdbTableDef* tabella);
    ~TabellaJet();
    TabellaJet(const TabellaJet&) = delete;
    TabellaJet& operator=(const TabellaJet&) = delete;

    const QList<ColonnaJet>& Colonne() const { return m_colonne; }
    // The next row's values in column order; false after the last row. Throws ErroreDatabase naming
    // the table when fewer rows were read than the table holds.
    bool ProssimaRiga(QStringList& valori);

private:
    QString Valore(int indice) const;

    MdbHandle& m_archivio;
    S_MdbTableDef* m_tabella;
    QList<ColonnaJet> m_colonne;
    unsigned long m_lette = 0;
};

// A Jet 3 or Jet 4 archive opened for reading through mdbtools' libmdb, after its header and its
// password were checked here. Every failure throws ErroreDatabase with a message for the user.
class ArchivioJet final {
public:
    ArchivioJet(const QString& percorso, const QString& password);
    ~ArchivioJet();
    ArchivioJet(const ArchivioJet&) = delete;
    ArchivioJet& operator=(const ArchivioJet&) = delete;

    // The tables in the catalog's order, without the engine's own ("msys...").
    QStringList Tabelle() const;
    std::unique_ptr<TabellaJet> ApriTabella(const QString& nome);

private:
    [[noreturn]] void Danneggiato(const QString& perche);

    QString m_percorso;
    MdbHandle* m_archivio = nullptr;
    qint64 m_pagine = 0;
};

// A Jet date (days since 30/12/1899, the fraction the time) in the user's short date form with the
// whole year, followed by the time when there is one; only the time on day 0.
QString TestoDataJet(double giorni);
