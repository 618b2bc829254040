#include "recordset.h"

#include "connessione.h"
#include "erroredatabase.h"

#include <QDate>
#include <sqlcipher/sqlite3.h>

namespace {

QVariant LeggiColonna(sqlite3_stmt* stmt, int indice) {
    switch (sqlite3_column_type(stmt, indice)) {
    case SQLITE_INTEGER:
        return QVariant(static_cast<qlonglong>(sqlite3_column_int64(stmt, indice)));
    case SQLITE_FLOAT:
        return QVariant(sqlite3_column_double(stmt, indice));
    case SQLITE_NULL:
        return {};
    case SQLITE_BLOB:
        return QByteArray(static_cast<const char*>(sqlite3_column_blob(stmt, indice)),
                          sqlite3_column_bytes(stmt, indice));
    default:
        return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt, indice)),
                                 sqlite3_column_bytes(stmt, indice));
    }
}

void Lega(sqlite3_stmt* stmt, int posizione, const QVariant& valore) {
    if (valore.isNull()) {
        sqlite3_bind_null(stmt, posizione);
        return;
    }
    switch (valore.typeId()) {
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::Bool:
        sqlite3_bind_int64(stmt, posizione, valore.toLongLong());
        break;
    case QMetaType::Double:
        sqlite3_bind_double(stmt, posizione, valore.toDouble());
        break;
    case QMetaType::QDate: {
        const QByteArray testo = valore.toDate().toString(Qt::ISODate).toUtf8();
        sqlite3_bind_text(stmt, posizione, testo.constData(), static_cast<int>(testo.size()),
                          SQLITE_TRANSIENT);
        break;
    }
    default: {
        const QByteArray testo = valore.toString().toUtf8();
        sqlite3_bind_text(stmt, posizione, testo.constData(), static_cast<int>(testo.size()),
                          SQLITE_TRANSIENT);
    }
    }
}

QString Identificatore(const QString& nome) {
    return QLatin1Char('"') + QString(nome).replace(QLatin1Char('"'), QLatin1String("\"\"")) +
           QLatin1Char('"');
}

} // namespace

Recordset::Recordset(Connessione& connessione, sqlite3_stmt* stmt, const QString& tabella)
    : m_connessione(&connessione)
    , m_stmt(stmt)
    , m_tabella(tabella)
    , m_conRowid(!tabella.isEmpty())
    , m_colonne(connessione.ColonneDi(stmt, m_conRowid ? 1 : 0)) {
    try {
        Successivo();
    } catch (...) {
        // No destructor runs for a result set that failed to open: give the statement back here.
        Chiudi();
        throw;
    }
}

int Recordset::NumeroColonne() const {
    return static_cast<int>(m_colonne->nomi.size());
}

QString Recordset::NomeColonna(int indice) const {
    return m_colonne->nomi.at(indice);
}

Recordset::~Recordset() {
    Chiudi();
}

Recordset::Recordset(Recordset&& altro) noexcept
    : m_connessione(altro.m_connessione)
    , m_stmt(std::exchange(altro.m_stmt, nullptr))
    , m_tabella(std::move(altro.m_tabella))
    , m_conRowid(altro.m_conRowid)
    , m_fine(altro.m_fine)
    , m_rowid(altro.m_rowid)
    , m_colonne(std::move(altro.m_colonne))
    , m_riga(std::move(altro.m_riga))
    , m_stato(altro.m_stato)
    , m_modifiche(std::move(altro.m_modifiche)) {}

void Recordset::Chiudi() {
    if (m_stmt)
        m_connessione->Restituisci(std::exchange(m_stmt, nullptr));
    m_fine = true;
}

void Recordset::Successivo() {
    if (!m_stmt) {
        m_fine = true;
        return;
    }
    const int esito = sqlite3_step(m_stmt);
    if (esito == SQLITE_ROW) {
        LeggiRiga();
        return;
    }
    m_fine = true;
    m_riga.clear();
    if (esito != SQLITE_DONE)
        m_connessione->Fallisci();
}

void Recordset::LeggiRiga() {
    m_fine = false;
    m_riga.clear();
    const int primo = m_conRowid ? 1 : 0;
    if (m_conRowid)
        m_rowid = sqlite3_column_int64(m_stmt, 0);
    for (int i = primo; i < sqlite3_column_count(m_stmt); ++i)
        m_riga << LeggiColonna(m_stmt, i);
}

int Recordset::Indice(const QString& nome) const {
    return m_colonne->indici.value(nome.toLower(), -1);
}

QVariant Recordset::Campo(const QString& nome) const {
    const int indice = Indice(nome);
    if (indice < 0)
        throw ErroreDatabase(QStringLiteral("Elemento non trovato in questa raccolta: ") + nome);
    if (m_fine)
        throw ErroreDatabase(QStringLiteral("Nessun record corrente."));
    return m_riga.at(indice);
}

void Recordset::RichiediTabella() const {
    if (m_tabella.isEmpty())
        throw ErroreDatabase(QStringLiteral("Impossibile aggiornare. Il recordset è di sola lettura."));
}

void Recordset::NuovoRecord() {
    RichiediTabella();
    m_stato = Stato::Aggiunta;
    m_modifiche.clear();
}

void Recordset::Modifica() {
    RichiediTabella();
    if (m_fine)
        throw ErroreDatabase(QStringLiteral("Nessun record corrente."));
    m_stato = Stato::Modifica;
    m_modifiche.clear();
}

void Recordset::Imposta(const QString& nome, const QVariant& valore) {
    if (m_stato == Stato::Lettura)
        throw ErroreDatabase(
            QStringLiteral("Aggiornamento o annullamento aggiornamento senza AddNew o Edit."));
    m_modifiche.append({nome, valore});
}

void Recordset::Salva() {
    if (m_stato == Stato::Aggiunta)
        SalvaAggiunta();
    else if (m_stato == Stato::Modifica)
        SalvaModifica();
    else
        throw ErroreDatabase(
            QStringLiteral("Aggiornamento o annullamento aggiornamento senza AddNew o Edit."));
    m_stato = Stato::Lettura;
    m_modifiche.clear();
}

void Recordset::SalvaAggiunta() {
    QStringList colonne, segnaposto;
    for (const auto& [nome, valore] : std::as_const(m_modifiche)) {
        colonne << Identificatore(nome);
        segnaposto << QStringLiteral("?");
    }
    const QString sql = colonne.isEmpty()
                            ? QStringLiteral("insert into %1 default values").arg(Identificatore(m_tabella))
                            : QStringLiteral("insert into %1 (%2) values (%3)")
                                  .arg(Identificatore(m_tabella), colonne.join(QLatin1Char(',')),
                                       segnaposto.join(QLatin1Char(',')));
    sqlite3_stmt* stmt = m_connessione->Prepara(sql);
    for (int i = 0; i < m_modifiche.size(); ++i)
        Lega(stmt, i + 1, m_modifiche.at(i).second);
    m_connessione->Passo(stmt);
    m_connessione->Restituisci(stmt);
}

void Recordset::SalvaModifica() {
    if (m_modifiche.isEmpty())
        return;
    QStringList assegnazioni;
    for (const auto& [nome, valore] : std::as_const(m_modifiche))
        assegnazioni << Identificatore(nome) + QStringLiteral("=?");
    const QString sql = QStringLiteral("update %1 set %2 where _rowid_=?")
                            .arg(Identificatore(m_tabella), assegnazioni.join(QLatin1Char(',')));
    sqlite3_stmt* stmt = m_connessione->Prepara(sql);
    for (int i = 0; i < m_modifiche.size(); ++i)
        Lega(stmt, i + 1, m_modifiche.at(i).second);
    sqlite3_bind_int64(stmt, static_cast<int>(m_modifiche.size()) + 1, m_rowid);
    m_connessione->Passo(stmt);
    m_connessione->Restituisci(stmt);
    for (const auto& [nome, valore] : std::as_const(m_modifiche)) {
        const int indice = Indice(nome);
        if (indice >= 0)
            m_riga[indice] = valore;
    }
}

void Recordset::Elimina() {
    RichiediTabella();
    if (m_fine)
        throw ErroreDatabase(QStringLiteral("Nessun record corrente."));
    sqlite3_stmt* stmt = m_connessione->Prepara(
        QStringLiteral("delete from %1 where _rowid_=?").arg(Identificatore(m_tabella)));
    sqlite3_bind_int64(stmt, 1, m_rowid);
    m_connessione->Passo(stmt);
    m_connessione->Restituisci(stmt);
}
