#pragma once

#include "recordset.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;

// The names of a statement's result columns, looked up without regard to case.
struct Colonne {
    QStringList nomi;
    QHash<QString, int> indici;
};

// The one connection to the encrypted collection store.
class Connessione final {
public:
    Connessione() = default;
    ~Connessione();
    Connessione(const Connessione&) = delete;
    Connessione& operator=(const Connessione&) = delete;

    // Opens an existing store read-write; never creates one. A missing, empty or foreign file, a
    // wrong key, and a store that cannot be written all fail, and leave the file as it was.
    void Apri(const QString& percorso, const QString& password);
    void Chiudi();
    bool Aperta() const { return m_db != nullptr; }
    // What an open says of a file that the program's key does not read, on every engine.
    static QString ChiaveRifiutata();
    // The store's file as the engine names it.
    QString Percorso() const;
    // Moves every committed change out of the write-ahead log into the store's file and empties
    // the log, so that the file alone is the whole database; fails when a change stays behind.
    void CompletaFile();
    // The store's file, whole (CompletaFile first), handed over block by block as the engine reads
    // it through its own descriptor: a second descriptor of the file, once closed, would drop the
    // engine's locks on it.
    void LeggiFile(const std::function<void(const QByteArray&)>& ricevi);

    // Runs exactly one statement of SQL text; text after the first statement is refused.
    void Esegui(const QString& sql);
    // The same, with the statement's ? placeholders taking the numbers in order: one text run many
    // times over is prepared once.
    void Esegui(const QString& sql, const QList<qint64>& numeri);
    Recordset ApriRecordset(const QString& sql);

    // Statements the program builds itself from column names and bound values.
    sqlite3_stmt* Prepara(const QString& sql);
    void Restituisci(sqlite3_stmt* stmt);
    void Passo(sqlite3_stmt* stmt);
    [[noreturn]] void Fallisci() const;
    // The result columns of a prepared statement, past the first `nascoste`.
    std::shared_ptr<const Colonne> ColonneDi(sqlite3_stmt* stmt, int nascoste);

    // The page cache: the working set of a large collection's record loads stays decrypted in it.
    static constexpr int CacheKiB = 64 * 1024;

private:
    static void VerificaScrivibile(const QString& percorso);
    bool ApriConChiave(const QString& percorso, const QString& password, bool compatibile);
    void VerificaArchivio();
    void EseguiImpostazione(const char* sql);
    sqlite3_stmt* PreparaUnica(const QString& sql);
    // How a SELECT of a given shape is read: over which table it can write back, and the text
    // actually prepared (with the rowid when it can).
    struct Lettura {
        QString tabella;
        QString testo;
    };
    const Lettura& LetturaDi(const QString& forma);
    sqlite3_stmt* PreparaForma(const QString& testo, const QList<qint64>& valori);
    void Finalizza(sqlite3_stmt* stmt);
    void SvuotaCache();

    sqlite3* m_db = nullptr;
    int m_versione = 0; // of the linked engine
    QMultiHash<QString, sqlite3_stmt*> m_cache;
    QHash<sqlite3_stmt*, std::shared_ptr<const Colonne>> m_colonne;
    QHash<sqlite3_stmt*, QString> m_testi; // the text each statement was prepared from: its cache key
    QHash<QString, Lettura> m_letture;
};
