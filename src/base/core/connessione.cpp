#include "connessione.h"

#include "confrontotesto.h"
#include "erroredatabase.h"
#include "formasql.h"
#include "formatocifratura.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>
#include <sqlcipher/sqlite3.h>
#include <string>

namespace {

constexpr int MassimoCache = 256;
constexpr sqlite3_int64 BloccoFile = 1 << 20;

// A single-table SELECT of plain columns can be written back; the cursor then also reads the rowid.
QString TabellaAggiornabile(const QString& sql) {
    static const QRegularExpression forma(
        QStringLiteral(
            R"(^\s*select\s+([^()]+?)\s+from\s+\[?([A-Za-z_][A-Za-z0-9_]*)\]?\s*(?:$|;|where\b|order\b))"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    const auto trovato = forma.match(sql);
    if (!trovato.hasMatch() ||
        trovato.captured(1).trimmed().startsWith(QLatin1String("distinct"), Qt::CaseInsensitive))
        return {};
    return trovato.captured(2);
}

QString ConRowid(const QString& sql) {
    const int inizio = sql.indexOf(QLatin1String("select"), 0, Qt::CaseInsensitive) + 6;
    return sql.left(inizio) + QStringLiteral(" _rowid_ AS orvix_rowid, ") + sql.mid(inizio);
}

bool SoloSpaziOCommenti(const char* coda) {
    if (*coda == '\0')
        return true;
    static const QRegularExpression commenti(QStringLiteral(R"(--[^\n]*|/\*.*?\*/|;)"),
                                             QRegularExpression::DotMatchesEverythingOption);
    return QString::fromUtf8(coda).remove(commenti).trimmed().isEmpty();
}

} // namespace

Connessione::~Connessione() {
    Chiudi();
}

void Connessione::Apri(const QString& percorso, const QString& password) {
    Chiudi();
    VerificaScrivibile(percorso);
    // A store in the format of both engine series opens everywhere; a 4.x engine also reads one
    // written with its own defaults, on a new connection, and keeps it in that format.
    if (!ApriConChiave(percorso, password, true) &&
        (m_versione < 4 || !ApriConChiave(percorso, password, false)))
        throw ErroreDatabase(ChiaveRifiutata() + QStringLiteral(": ") + percorso);
    try {
        VerificaArchivio();
        EseguiImpostazione("PRAGMA journal_mode=WAL");
        EseguiImpostazione("PRAGMA synchronous=FULL");
        EseguiImpostazione(("PRAGMA cache_size=" + std::to_string(-CacheKiB)).c_str());
    } catch (const ErroreDatabase& errore) {
        Chiudi();
        throw ErroreDatabase(errore.messaggio() + QStringLiteral(": ") + percorso);
    }
    sqlite3_busy_timeout(m_db, 2000);
}

QString Connessione::ChiaveRifiutata() {
    return QStringLiteral("il file non è un archivio delle collezioni o è cifrato con un'altra chiave");
}

// False when the key does not read the file in these settings (the connection is then closed).
bool Connessione::ApriConChiave(const QString& percorso, const QString& password, bool compatibile) {
    const QByteArray nome = percorso.toUtf8();
    if (sqlite3_open_v2(nome.constData(), &m_db, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
        const QString testo =
            m_db ? QString::fromUtf8(sqlite3_errmsg(m_db)) : QStringLiteral("out of memory");
        Chiudi();
        throw ErroreDatabase(testo + QStringLiteral(": ") + percorso);
    }
    InstallaConfronti(m_db);
    const QByteArray chiave = password.toUtf8();
    sqlite3_key(m_db, chiave.constData(), static_cast<int>(chiave.size()));
    m_versione = VersioneCifratura(m_db);
    if (compatibile)
        FissaFormatoCompatibile(m_db);
    // The first read proves the key; the engines word a refusal differently, the program says it once.
    const int esito = sqlite3_exec(m_db, "select count(*) from sqlite_master", nullptr, nullptr, nullptr);
    if (esito == SQLITE_NOTADB) {
        Chiudi();
        return false;
    }
    if (esito != SQLITE_OK) {
        const QString testo = QString::fromUtf8(sqlite3_errmsg(m_db));
        Chiudi();
        throw ErroreDatabase(testo + QStringLiteral(": ") + percorso);
    }
    return true;
}

// The engine would open a store it cannot write read-only, without a word, and leave journal
// files beside it; every later save would fail.
void Connessione::VerificaScrivibile(const QString& percorso) {
    const QFileInfo file(percorso);
    if (!file.exists())
        return; // the engine's own "unable to open" says it
    if (!file.isWritable())
        throw ErroreDatabase(QStringLiteral("l'archivio è in sola lettura: ") + percorso);
    if (!QFileInfo(file.absolutePath()).isWritable())
        throw ErroreDatabase(QStringLiteral("la cartella dell'archivio è in sola lettura: ") + percorso);
}

// Nothing may be written to a file before it has proved to be a store: an empty file would
// otherwise become an empty database.
void Connessione::VerificaArchivio() {
    Recordset tabelle = ApriRecordset(QStringLiteral(
        "select count(*) from sqlite_master where type='table' and name in ('collezioni','campi','valori')"));
    if (tabelle.Campo(0).toInt() != 3)
        throw ErroreDatabase(QStringLiteral("il file non contiene un archivio delle collezioni"));
    tabelle.Chiudi();
    if (sqlite3_db_readonly(m_db, "main") == 1)
        throw ErroreDatabase(QStringLiteral("l'archivio è in sola lettura"));
    // Taking the write lock proves that the file and its journal can be written and are not locked.
    EseguiImpostazione("BEGIN IMMEDIATE");
    EseguiImpostazione("ROLLBACK");
}

// Settings and transaction control run as written: the statement cache would lift their numbers
// into parameters, which a pragma does not take.
void Connessione::EseguiImpostazione(const char* sql) {
    if (sqlite3_exec(m_db, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
        Fallisci();
}

void Connessione::Chiudi() {
    if (!m_db)
        return;
    SvuotaCache();
    sqlite3_close_v2(m_db);
    m_db = nullptr;
}

QString Connessione::Percorso() const {
    if (!m_db)
        Fallisci();
    return QString::fromUtf8(sqlite3_db_filename(m_db, "main"));
}

void Connessione::CompletaFile() {
    if (!m_db)
        Fallisci();
    int registro = -1;
    int copiati = -1;
    const int esito =
        sqlite3_wal_checkpoint_v2(m_db, "main", SQLITE_CHECKPOINT_TRUNCATE, &registro, &copiati);
    // Busy means only that the log could not be emptied; the file is whole when every frame is in it.
    if (esito == SQLITE_OK || (esito == SQLITE_BUSY && registro >= 0 && registro == copiati))
        return;
    Fallisci();
}

void Connessione::LeggiFile(const std::function<void(const QByteArray&)>& ricevi) {
    CompletaFile();
    sqlite3_file* file = nullptr;
    if (sqlite3_file_control(m_db, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK || !file ||
        !file->pMethods)
        Fallisci();
    // A read transaction: nothing can be moved into the file while it is read.
    EseguiImpostazione("BEGIN");
    try {
        EseguiImpostazione("select count(*) from sqlite_master");
        sqlite3_int64 dimensione = 0;
        if (file->pMethods->xFileSize(file, &dimensione) != SQLITE_OK)
            Fallisci();
        QByteArray blocco;
        for (sqlite3_int64 letti = 0; letti < dimensione; letti += blocco.size()) {
            blocco.resize(static_cast<qsizetype>(std::min<sqlite3_int64>(BloccoFile, dimensione - letti)));
            if (file->pMethods->xRead(file, blocco.data(), static_cast<int>(blocco.size()), letti) !=
                SQLITE_OK)
                Fallisci();
            ricevi(blocco);
        }
    } catch (...) {
        sqlite3_exec(m_db, "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
    EseguiImpostazione("COMMIT");
}

void Connessione::Finalizza(sqlite3_stmt* stmt) {
    m_colonne.remove(stmt);
    m_testi.remove(stmt);
    sqlite3_finalize(stmt);
}

void Connessione::SvuotaCache() {
    for (sqlite3_stmt* stmt : std::as_const(m_cache))
        Finalizza(stmt);
    m_cache.clear();
    m_letture.clear();
}

void Connessione::Fallisci() const {
    throw ErroreDatabase(m_db ? QString::fromUtf8(sqlite3_errmsg(m_db))
                              : QStringLiteral("Il database non è aperto"));
}

sqlite3_stmt* Connessione::PreparaUnica(const QString& sql) {
    if (!m_db)
        Fallisci();
    const QByteArray testo = sql.toUtf8();
    sqlite3_stmt* stmt = nullptr;
    const char* coda = nullptr;
    if (sqlite3_prepare_v2(m_db, testo.constData(), static_cast<int>(testo.size()), &stmt, &coda) !=
        SQLITE_OK)
        Fallisci();
    if (!stmt)
        throw ErroreDatabase(QStringLiteral("Istruzione SQL vuota"));
    if (coda && !SoloSpaziOCommenti(coda)) {
        sqlite3_finalize(stmt);
        throw ErroreDatabase(
            QStringLiteral("È ammessa una sola istruzione SQL: il testo dopo la prima non è stato eseguito"));
    }
    m_testi.insert(stmt, sql);
    return stmt;
}

sqlite3_stmt* Connessione::Prepara(const QString& sql) {
    const auto trovato = m_cache.find(sql);
    if (trovato != m_cache.end()) {
        sqlite3_stmt* stmt = trovato.value();
        m_cache.erase(trovato);
        return stmt;
    }
    return PreparaUnica(sql);
}

void Connessione::Restituisci(sqlite3_stmt* stmt) {
    if (!stmt)
        return;
    if (!m_db) {
        Finalizza(stmt);
        return;
    }
    sqlite3_reset(stmt);
    sqlite3_clear_bindings(stmt);
    if (m_cache.size() >= MassimoCache) {
        for (sqlite3_stmt* vecchio : std::as_const(m_cache))
            Finalizza(vecchio);
        m_cache.clear();
    }
    m_cache.insert(m_testi.value(stmt), stmt);
}

void Connessione::Passo(sqlite3_stmt* stmt) {
    int esito = SQLITE_ROW;
    while (esito == SQLITE_ROW)
        esito = sqlite3_step(stmt);
    if (esito != SQLITE_DONE) {
        const QString testo = QString::fromUtf8(sqlite3_errmsg(m_db));
        Restituisci(stmt);
        throw ErroreDatabase(testo);
    }
}

const Connessione::Lettura& Connessione::LetturaDi(const QString& forma) {
    auto trovata = m_letture.find(forma);
    if (trovata == m_letture.end()) {
        if (m_letture.size() >= 4 * MassimoCache)
            m_letture.clear();
        const QString tabella = TabellaAggiornabile(forma);
        trovata = m_letture.insert(forma, {tabella, tabella.isEmpty() ? forma : ConRowid(forma)});
    }
    return trovata.value();
}

sqlite3_stmt* Connessione::PreparaForma(const QString& testo, const QList<qint64>& valori) {
    sqlite3_stmt* stmt = Prepara(testo);
    for (int i = 0; i < valori.size(); ++i)
        sqlite3_bind_int64(stmt, i + 1, valori.at(i));
    return stmt;
}

void Connessione::Esegui(const QString& sql) {
    const FormaSql forma = Parametrizza(sql);
    sqlite3_stmt* stmt = PreparaForma(forma.testo, forma.valori);
    Passo(stmt);
    Restituisci(stmt);
}

void Connessione::Esegui(const QString& sql, const QList<qint64>& numeri) {
    sqlite3_stmt* stmt = PreparaForma(sql, numeri);
    Passo(stmt);
    Restituisci(stmt);
}

Recordset Connessione::ApriRecordset(const QString& sql) {
    const FormaSql forma = Parametrizza(sql);
    const Lettura& lettura = LetturaDi(forma.testo);
    return Recordset(*this, PreparaForma(lettura.testo, forma.valori), lettura.tabella);
}

std::shared_ptr<const Colonne> Connessione::ColonneDi(sqlite3_stmt* stmt, int nascoste) {
    auto& colonne = m_colonne[stmt];
    if (!colonne) {
        auto nuove = std::make_shared<Colonne>();
        for (int i = nascoste; i < sqlite3_column_count(stmt); ++i) {
            const QString nome = QString::fromUtf8(sqlite3_column_name(stmt, i));
            nuove->indici.insert(nome.toLower(), i - nascoste);
            nuove->nomi << nome;
        }
        colonne = std::move(nuove);
    }
    return colonne;
}
