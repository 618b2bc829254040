#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <memory>

class Avanzamento;
class Transazione;
struct sqlite3_stmt;

// One field of an imported collection as its row is written.
struct CampoImportato {
    QString nome;
    QString etichetta;
    QString tipo;
    QString special;
    QString required;
    int tabindex = 0;
};

// Writes an imported collection's field rows and records. Each record is stored whole or not at
// all; records are committed in batches of DimensioneLotto (the field rows with the first), so a
// kill loses at most the batch in progress, and a record whose statement fails keeps every record
// before it.
class ScritturaCollezione final {
public:
    static constexpr int DimensioneLotto = 1000;

    // `quotati`: values go through Quote before they are spliced (legacy archives); otherwise
    // they are spliced as read, and a quote in one breaks its statement (text files).
    ScritturaCollezione(qint32 idCollezione, bool quotati, Avanzamento& avanzamento);
    // Commits the records already whole, also when the import stops on a failure.
    ~ScritturaCollezione();
    ScritturaCollezione(const ScritturaCollezione&) = delete;
    ScritturaCollezione& operator=(const ScritturaCollezione&) = delete;

    // The field rows, placed one after the other by the import placement rule. A name holding a NUL
    // character is refused before any row is written.
    void AggiungiCampi(const QList<CampoImportato>& campi);
    // The next record: one value per field, in the fields' order. A value holding a NUL character
    // ends the import with a message naming the record and the field.
    void AggiungiRecord(const QStringList& valori);
    // Commits the last batch and shows the closing status text.
    void Concludi();

private:
    void ApriLotto();
    void ChiudiLotto();
    sqlite3_stmt* Inserimento();
    void CercaIdCampi();
    void VerificaValori(const QStringList& valori);
    bool Legabile(const QString& valore) const;
    void Lega(qint64 idCampo, const QString& valore);
    void RecordDaSolo(const QStringList& valori);
    QString Giunta(qint64 idCampo, const QString& valore) const;

    qint32 m_idCollezione;
    bool m_quotati;
    Avanzamento& m_avanzamento;
    QStringList m_nomi;
    QList<qint64> m_idCampi;
    bool m_idTrovati = false;
    qint32 m_record = 0;
    int m_nelLotto = 0;
    QString m_oggi;
    QByteArray m_oggiUtf8;
    std::unique_ptr<Transazione> m_lotto;
    sqlite3_stmt* m_inserisci = nullptr;
};
