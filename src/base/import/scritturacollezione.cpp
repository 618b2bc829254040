#include "scritturacollezione.h"

#include "archivio.h"
#include "avanzamento.h"
#include "disposizione.h"
#include "erroredatabase.h"
#include "routinesql.h"
#include "transazione.h"

#include <sqlcipher/sqlite3.h>

namespace {

const QString InserisciValore =
    QStringLiteral("insert into valori (id_campo,valore,data_ins,data_mod,Numerorecord)");

// A NUL cannot travel inside a spliced statement: the engine would read the text only up to it.
bool Memorizzabile(const QString& testo) {
    return !testo.contains(QChar(0));
}

} // namespace

ScritturaCollezione::ScritturaCollezione(qint32 idCollezione, bool quotati, Avanzamento& avanzamento)
    : m_idCollezione(idCollezione)
    , m_quotati(quotati)
    , m_avanzamento(avanzamento)
    , m_oggi(DataOggi())
    , m_oggiUtf8(m_oggi.toUtf8()) {}

ScritturaCollezione::~ScritturaCollezione() {
    try {
        ChiudiLotto();
    } catch (const ErroreDatabase&) {
        // The failure that ended the import is the one the user is shown.
    }
    Database().Restituisci(m_inserisci);
}

void ScritturaCollezione::ApriLotto() {
    if (!m_lotto)
        m_lotto = std::make_unique<Transazione>(Database());
}

// Once a batch is committed its pages are dropped from the engine's page cache: a large import
// would otherwise fill the whole cache with pages it never reads again.
void ScritturaCollezione::ChiudiLotto() {
    if (!m_lotto)
        return;
    m_nelLotto = 0;
    const std::unique_ptr<Transazione> lotto = std::move(m_lotto);
    lotto->Conferma();
    sqlite3_db_release_memory(sqlite3_db_handle(Inserimento()));
}

sqlite3_stmt* ScritturaCollezione::Inserimento() {
    if (!m_inserisci)
        m_inserisci = Database().Prepara(InserisciValore + QStringLiteral(" values(?1,?2,?3,?3,?4)"));
    return m_inserisci;
}

void ScritturaCollezione::Concludi() {
    ChiudiLotto();
    m_avanzamento.Stato(m_avanzamento.Interrotta() ? TestoInterruzione(m_record)
                                                   : QStringLiteral("Inserimento Completato."));
}

void ScritturaCollezione::AggiungiCampi(const QList<CampoImportato>& campi) {
    for (qsizetype k = 0; k < campi.size(); ++k)
        if (!Memorizzabile(campi.at(k).nome))
            throw ErroreDatabase(
                QStringLiteral(
                    "Il campo %1 non può essere creato: il suo nome contiene un carattere nullo (codice 0).")
                    .arg(k + 1));
    ApriLotto();
    Disposizione disposizione;
    Recordset rs = Database().ApriRecordset(QStringLiteral("select * from campi"));
    for (const CampoImportato& campo : campi) {
        m_avanzamento.Stato(QStringLiteral("Sto creando il campo: ") + campo.nome);
        const QPoint posizione = disposizione.Prossima();
        rs.NuovoRecord();
        rs.Imposta(QStringLiteral("id_collezione"), m_idCollezione);
        rs.Imposta(QStringLiteral("nome"), campo.nome);
        rs.Imposta(QStringLiteral("default"), QString());
        rs.Imposta(QStringLiteral("required"), campo.required);
        rs.Imposta(QStringLiteral("etichetta"), campo.etichetta);
        rs.Imposta(QStringLiteral("formula"), QString());
        rs.Imposta(QStringLiteral("tabindex"), campo.tabindex);
        rs.Imposta(QStringLiteral("tipo"), campo.tipo);
        rs.Imposta(QStringLiteral("left"), posizione.x());
        rs.Imposta(QStringLiteral("top"), posizione.y());
        rs.Imposta(QStringLiteral("width"), 200);
        rs.Imposta(QStringLiteral("height"), 20);
        rs.Imposta(QStringLiteral("special"), campo.special);
        rs.Imposta(QStringLiteral("tooltip"), QString());
        rs.Salva();
        m_nomi << campo.nome;
    }
}

// Each field's id is found by its name, spliced as it is, once for the whole import: two fields of
// one name both get the first one's id, and a name with a quote fails the first record.
void ScritturaCollezione::CercaIdCampi() {
    for (const QString& nome : std::as_const(m_nomi)) {
        Recordset rs = Database().ApriRecordset(QStringLiteral("select id from campi where id_collezione=") +
                                                QString::number(m_idCollezione) +
                                                QStringLiteral(" and nome='") + nome + QStringLiteral("'"));
        m_idCampi << (rs.Fine() ? 0 : rs.Campo(0).toLongLong());
    }
    m_idTrovati = true;
}

void ScritturaCollezione::AggiungiRecord(const QStringList& valori) {
    ++m_record;
    m_avanzamento.Stato(QStringLiteral("Sto inserendo il record ") + QString::number(m_record));
    VerificaValori(valori);
    if (!m_idTrovati) {
        try {
            CercaIdCampi(); // only reads: nothing of the record is written yet
        } catch (const ErroreDatabase&) {
            ChiudiLotto();
            throw;
        }
    }
    for (qsizetype k = 0; k < m_idCampi.size(); ++k) {
        if (!Legabile(valori.at(k))) {
            RecordDaSolo(valori);
            return;
        }
    }
    ApriLotto();
    try {
        for (qsizetype k = 0; k < m_idCampi.size(); ++k)
            Lega(m_idCampi.at(k), valori.at(k));
    } catch (const ErroreDatabase&) {
        // Only the store itself fails here (a full disk): the batch goes with it, as with a kill.
        m_lotto.reset();
        throw;
    }
    if (++m_nelLotto >= DimensioneLotto)
        ChiudiLotto();
}

// A record that cannot be stored ends the import before any of it is written, naming the record and
// the field; the whole records before it are committed.
void ScritturaCollezione::VerificaValori(const QStringList& valori) {
    for (qsizetype k = 0; k < m_nomi.size(); ++k) {
        if (!Memorizzabile(valori.at(k))) {
            ChiudiLotto();
            throw ErroreDatabase(QStringLiteral("Il record %1 non può essere memorizzato: il campo \"%2\" "
                                                "contiene un carattere nullo (codice 0).")
                                     .arg(QString::number(m_record), m_nomi.at(k)));
        }
    }
}

// A record holding a spliced value: the whole records before it are committed first, and it stands
// in its own transaction, so a failing statement takes only its own record with it.
void ScritturaCollezione::RecordDaSolo(const QStringList& valori) {
    ChiudiLotto();
    Transazione record(Database());
    for (qsizetype k = 0; k < m_idCampi.size(); ++k) {
        if (Legabile(valori.at(k)))
            Lega(m_idCampi.at(k), valori.at(k));
        else
            Database().Esegui(Giunta(m_idCampi.at(k), valori.at(k)));
    }
    record.Conferma();
}

QString ScritturaCollezione::Giunta(qint64 idCampo, const QString& valore) const {
    const QString id = QString::number(idCampo);
    const QString numero = QString::number(m_record);
    if (m_quotati)
        return InserisciValore + QStringLiteral(" values(") + id + QStringLiteral(", '") + Quote(valore) +
               QStringLiteral("','") + m_oggi + QStringLiteral("','") + m_oggi + QStringLiteral("',") +
               numero + QStringLiteral(")");
    return InserisciValore + QStringLiteral(" values(") + id + QStringLiteral(",'") + valore +
           QStringLiteral("', '") + m_oggi + QStringLiteral("','") + m_oggi + QStringLiteral("',") + numero +
           QStringLiteral(")");
}

// A value whose spliced literal reads back as the value itself is bound to one prepared statement;
// a quote spliced unquoted runs as the spliced text, so it fails exactly as that statement does.
bool ScritturaCollezione::Legabile(const QString& valore) const {
    return m_quotati || !valore.contains(QLatin1Char('\''));
}

void ScritturaCollezione::Lega(qint64 idCampo, const QString& valore) {
    Inserimento();
    const QByteArray testo = valore.toUtf8();
    sqlite3_bind_int64(m_inserisci, 1, idCampo);
    sqlite3_bind_text(m_inserisci, 2, testo.constData(), static_cast<int>(testo.size()), SQLITE_STATIC);
    sqlite3_bind_text(m_inserisci, 3, m_oggiUtf8.constData(), static_cast<int>(m_oggiUtf8.size()),
                      SQLITE_STATIC);
    sqlite3_bind_int64(m_inserisci, 4, m_record);
    const int esito = sqlite3_step(m_inserisci);
    sqlite3_reset(m_inserisci);
    if (esito != SQLITE_DONE)
        Database().Fallisci();
}
