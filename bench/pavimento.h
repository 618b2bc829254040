#pragma once

#include "collezionebench.h"
#include "istruzione.h"

#include <QByteArrayList>
#include <QRect>
#include <map>
#include <memory>

// The least raw SQL that does what each measured operation does, on the same connection and file,
// with statements prepared once and values bound. Every statement commits on its own, as the
// program's do, so the floor pays for the same durable writes.
class Pavimento final {
public:
    explicit Pavimento(const CollezioneBench& collezione);

    // The largest record number, read from the top of each field's index range.
    qint32 Massimo();
    // The record's value rows and the field rows formulas are resolved from; answers the values read.
    int Carica(qint32 n);
    // Binds the values of record n from the definitions ahead of a timed insert.
    void PreparaValori(qint32 n);
    void Inserisci(qint32 n);
    void Elimina(qint32 k);
    // Not a floor: drops every decrypted page the connection holds, as a store just opened has none.
    void SvuotaCache();
    // The layout of a collection's fields written back, all rows in one transaction.
    void SalvaDisposizione(qint32 idCollezione, const QList<QPair<qint32, QRect>>& campi);
    // Not a floor: puts the store back to n records after a timed insert.
    void TogliOltre(qint32 n);
    // A search: the field's id by its name, then its matching value rows, each statement prepared
    // once from the window's own text; answers the rows read.
    int Cerca(const QString& campo, const QString& testo, bool esatta);
    // The text export: one query of all the collection's values by record and field name, the
    // same bytes written to the file (the bench's values are ASCII, the same in UTF-8 and
    // Windows-1252); answers the values read.
    int Esporta(const QString& percorso);
    // The field rows of n records from `primo` on with their labels and types, each record in name
    // order, as the print layouts read them; answers the rows read.
    int Schede(qint32 n, qint32 primo = 1);
    // An import's least SQL: the collection row, its field rows and every value of the
    // ";"-separated file `testo` (read a line at a time, the heading skipped, its bytes bound as
    // they are), each kind of row through one prepared statement, in one transaction. Answers the
    // new collection's id.
    qint32 Importazione(const QStringList& nomi, const QString& testo);
    // The value rows of records primo to primo + righe - 1, every field: what one screen of the list
    // of records shows; answers the values read.
    int Schermata(qint32 primo, qint32 righe);
    // The record numbers of a field ordered by its text as the store compares it; answers them counted.
    int OrdinaTesto(qint32 idCampo);
    // The record numbers whose value in any of the fields contains the text, wildcards escaped.
    int CercaOvunque(const QList<qint32>& campi, const QString& testo);
    // Not a floor: removes a collection with its field and value rows.
    void TogliCollezione(qint32 id);
    // A field added to the collection: its row, the largest record number, and records 1 to n given
    // the value, the rows through one prepared statement, all in one transaction.
    void AggiungiCampo(const QByteArray& valore);
    // Not a floor: removes the fields added after the collection's own, with their values; answers
    // how many values it removed.
    int TogliCampiAggiunti();

private:
    CollezioneBench m_collezione;
    QByteArray m_oggi;
    QByteArrayList m_valori;
    Istruzione m_massimo;
    Istruzione m_campi;
    Istruzione m_record;
    Istruzione m_inserisci;
    Istruzione m_elimina;
    Istruzione m_rinumera;
    Istruzione m_togli;
    Istruzione m_disposizione;
    Istruzione m_nuovaCollezione;
    Istruzione m_campo;
    Istruzione m_inizia;
    Istruzione m_conferma;
    Istruzione m_esporta;
    Istruzione m_scheda;
    std::map<QString, std::unique_ptr<Istruzione>> m_ricerche;

    Istruzione& Ricerca(const QString& sql);
};

// The text of the floor's maximum query, for its query plan.
QString SqlMassimoPavimento();
