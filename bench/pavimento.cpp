#include "pavimento.h"

#include "sqlricerca.h"

#include <sqlcipher/sqlite3.h>

#include <QDate>
#include <QFile>
#include <algorithm>
#include <stdexcept>

namespace {

QString CampiDellaCollezione() {
    return QStringLiteral("id_campo in (select id from campi where id_collezione=?1)");
}

} // namespace

QString SqlMassimoPavimento() {
    return QStringLiteral("select max((select max(numerorecord) from valori where id_campo=campi.id)) "
                          "from campi where id_collezione=?1");
}

Pavimento::Pavimento(const CollezioneBench& collezione)
    : m_collezione(collezione)
    , m_oggi(QDate::currentDate().toString(Qt::ISODate).toUtf8())
    , m_massimo(SqlMassimoPavimento())
    , m_campi(QStringLiteral("select id, nome, formula from campi where id_collezione=?1"))
    , m_record(QStringLiteral("select id_campo, valore from valori where numerorecord=?2 and ") +
               CampiDellaCollezione())
    , m_inserisci(QStringLiteral("insert into valori (id_campo, valore, data_ins, data_mod, numerorecord) "
                                 "values (?1, ?2, ?3, ?3, ?4)"))
    , m_elimina(QStringLiteral("delete from valori where numerorecord=?2 and ") + CampiDellaCollezione())
    , m_rinumera(QStringLiteral("update valori set numerorecord=numerorecord-1 where numerorecord>?2 and ") +
                 CampiDellaCollezione())
    , m_togli(QStringLiteral("delete from valori where numerorecord>?2 and ") + CampiDellaCollezione())
    , m_disposizione(QStringLiteral("update campi set \"left\"=?3, top=?4, height=?5, width=?6 "
                                    "where id=?2 and id_collezione=?1"))
    , m_nuovaCollezione(
          QStringLiteral("insert into collezioni (nome, descrizione, data_creazione) values (?1, '', ?2)"))
    , m_campo(QStringLiteral(
          "insert into campi (id_collezione, nome, etichetta, tipo, \"left\", top, width, height, "
          "tabindex, required, \"default\", formula, special, tooltip) "
          "values (?1, ?2, ?2, 'textbox', 30, ?3, 200, 20, ?4, 'false', '', '', '', '')"))
    , m_inizia(QStringLiteral("begin"))
    , m_conferma(QStringLiteral("commit"))
    , m_esporta(
          QStringLiteral("select valori.numerorecord, campi.nome, valori.valore from valori join campi on "
                         "valori.id_campo=campi.id where campi.id_collezione=?1 "
                         "order by valori.numerorecord, campi.nome"))
    , m_scheda(
          QStringLiteral("select campi.nome, campi.etichetta, campi.tipo, valori.valore from campi, valori "
                         "where valori.id_campo=campi.id and valori.numerorecord=?2 and ") +
          CampiDellaCollezione().replace(QStringLiteral("id_campo"), QStringLiteral("valori.id_campo")) +
          QStringLiteral(" order by campi.nome")) {}

qint32 Pavimento::Massimo() {
    m_massimo.Lega(1, m_collezione.id);
    const qint32 massimo = m_massimo.Riga() ? static_cast<qint32>(m_massimo.Intero(0)) : 0;
    m_massimo.Azzera();
    return massimo;
}

int Pavimento::Carica(qint32 n) {
    m_campi.Lega(1, m_collezione.id);
    while (m_campi.Riga()) {
        m_campi.LunghezzaTesto(1);
        m_campi.LunghezzaTesto(2);
    }
    m_campi.Azzera();
    int letti = 0;
    m_record.Lega(1, m_collezione.id).Lega(2, n);
    for (; m_record.Riga(); ++letti)
        m_record.LunghezzaTesto(1);
    m_record.Azzera();
    return letti;
}

void Pavimento::PreparaValori(qint32 n) {
    m_valori.clear();
    for (const DefinizioneCampo& campo : DefinizioniCampi())
        m_valori << campo.valore(n).toUtf8();
}

// Like the program, a record's rows and a delete's two statements commit together.
void Pavimento::Inserisci(qint32 n) {
    m_inizia.Esegui();
    for (qsizetype i = 0; i < m_valori.size(); ++i)
        m_inserisci.Lega(1, m_collezione.idCampi.at(i))
            .Lega(2, m_valori.at(i))
            .Lega(3, m_oggi)
            .Lega(4, n)
            .Esegui();
    m_conferma.Esegui();
}

void Pavimento::Elimina(qint32 k) {
    m_inizia.Esegui();
    m_elimina.Lega(1, m_collezione.id).Lega(2, k).Esegui();
    m_rinumera.Lega(1, m_collezione.id).Lega(2, k).Esegui();
    m_conferma.Esegui();
}

void Pavimento::SalvaDisposizione(qint32 idCollezione, const QList<QPair<qint32, QRect>>& campi) {
    m_inizia.Esegui();
    for (const auto& [idCampo, r] : campi)
        m_disposizione.Lega(1, idCollezione)
            .Lega(2, idCampo)
            .Lega(3, r.x())
            .Lega(4, r.y())
            .Lega(5, r.height())
            .Lega(6, r.width())
            .Esegui();
    m_conferma.Esegui();
}

void Pavimento::TogliOltre(qint32 n) {
    m_togli.Lega(1, m_collezione.id).Lega(2, n).Esegui();
}

Istruzione& Pavimento::Ricerca(const QString& sql) {
    auto& istruzione = m_ricerche[sql];
    if (!istruzione)
        istruzione = std::make_unique<Istruzione>(sql);
    return *istruzione;
}

int Pavimento::Cerca(const QString& campo, const QString& testo, bool esatta) {
    Istruzione& id = Ricerca(SqlIdCampo(m_collezione.id, campo));
    const qint32 idCampo = id.Riga() ? static_cast<qint32>(id.Intero(0)) : 0;
    id.Azzera();
    Istruzione& valori = Ricerca(SqlRicerca(idCampo, testo, esatta));
    int righe = 0;
    for (; valori.Riga(); ++righe) {
        valori.LunghezzaTesto(0);
        valori.Intero(1);
        valori.LunghezzaTesto(2);
        valori.LunghezzaTesto(3);
    }
    valori.Azzera();
    return righe;
}

int Pavimento::Esporta(const QString& percorso) {
    QFile file(percorso);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
        throw std::runtime_error("the floor could not write its export file");
    // Record 1's names head the file: its line waits until they are all read.
    QByteArray intestazione, primaRiga, blocco;
    qint64 corrente = 0;
    int letti = 0;
    m_esporta.Lega(1, m_collezione.id);
    for (; m_esporta.Riga(); ++letti) {
        const qint64 n = m_esporta.Intero(0);
        QByteArray& riga = n == 1 ? primaRiga : blocco;
        if (n == corrente) {
            riga += '\t';
            if (n == 1)
                intestazione += '\t';
        } else if (corrente == 1) {
            blocco = intestazione + "\r\n" + primaRiga + "\r\n";
        } else if (corrente > 1) {
            blocco += "\r\n";
        }
        corrente = n;
        if (n == 1)
            intestazione += m_esporta.Byte(1);
        riga += m_esporta.Byte(2);
        if (blocco.size() >= 1 << 20) {
            file.write(blocco);
            blocco.clear();
        }
    }
    m_esporta.Azzera();
    if (corrente == 1)
        blocco = intestazione + "\r\n" + primaRiga;
    blocco += "\r\n";
    file.write(blocco);
    return letti;
}

int Pavimento::Schede(qint32 n, qint32 primo) {
    int righe = 0;
    for (qint32 i = primo; i < primo + n; ++i) {
        m_scheda.Lega(1, m_collezione.id).Lega(2, i);
        for (; m_scheda.Riga(); ++righe) {
            for (int colonna = 0; colonna < 4; ++colonna)
                m_scheda.LunghezzaTesto(colonna);
        }
        m_scheda.Azzera();
    }
    return righe;
}

void Pavimento::SvuotaCache() {
    sqlite3_db_release_memory(m_campi.Connessione());
}

qint32 Pavimento::Importazione(const QStringList& nomi, const QString& testo) {
    QFile file(testo);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("the floor could not read the text source");
    file.readLine();
    m_inizia.Esegui();
    m_nuovaCollezione.Lega(1, QByteArray("Pavimento")).Lega(2, m_oggi).Esegui();
    const qint64 id = sqlite3_last_insert_rowid(m_nuovaCollezione.Connessione());
    QList<qint64> campi;
    for (qsizetype k = 0; k < nomi.size(); ++k) {
        m_campo.Lega(1, id).Lega(2, nomi.at(k).toUtf8()).Lega(3, 40 * (k + 1)).Lega(4, k).Esegui();
        campi << sqlite3_last_insert_rowid(m_campo.Connessione());
    }
    for (qint32 record = 1; !file.atEnd(); ++record) {
        const QByteArrayList valori = file.readLine().chopped(2).split(';');
        for (qsizetype k = 0; k < campi.size(); ++k)
            m_inserisci.Lega(1, campi.at(k)).Lega(2, valori.at(k)).Lega(3, m_oggi).Lega(4, record).Esegui();
    }
    m_conferma.Esegui();
    return static_cast<qint32>(id);
}

void Pavimento::AggiungiCampo(const QByteArray& valore) {
    m_inizia.Esegui();
    m_campo.Lega(1, m_collezione.id).Lega(2, QByteArray("Pavimento")).Lega(3, 440).Lega(4, 10).Esegui();
    const qint64 id = sqlite3_last_insert_rowid(m_campo.Connessione());
    const qint32 n = Massimo();
    for (qint32 r = 1; r <= n; ++r)
        m_inserisci.Lega(1, id).Lega(2, valore).Lega(3, m_oggi).Lega(4, r).Esegui();
    m_conferma.Esegui();
}

int Pavimento::TogliCampiAggiunti() {
    const qint64 ultimo = *std::max_element(m_collezione.idCampi.cbegin(), m_collezione.idCampi.cend());
    const QString aggiunti = QStringLiteral("select id from campi where id_collezione=?1 and id>?2");
    m_inizia.Esegui();
    Istruzione valori(QStringLiteral("delete from valori where id_campo in (") + aggiunti + QLatin1Char(')'));
    valori.Lega(1, m_collezione.id).Lega(2, ultimo).Esegui();
    const int tolti = sqlite3_changes(valori.Connessione());
    Istruzione(QStringLiteral("delete from campi where id_collezione=?1 and id>?2"))
        .Lega(1, m_collezione.id)
        .Lega(2, ultimo)
        .Esegui();
    m_conferma.Esegui();
    return tolti;
}

void Pavimento::TogliCollezione(qint32 id) {
    m_inizia.Esegui();
    Istruzione(
        QStringLiteral("delete from valori where id_campo in (select id from campi where id_collezione=?1)"))
        .Lega(1, id)
        .Esegui();
    Istruzione(QStringLiteral("delete from campi where id_collezione=?1")).Lega(1, id).Esegui();
    Istruzione(QStringLiteral("delete from collezioni where id=?1")).Lega(1, id).Esegui();
    m_conferma.Esegui();
}

namespace {

QString Elenco(const QList<qint32>& campi) {
    QStringList id;
    for (const qint32 campo : campi)
        id.append(QString::number(campo));
    return id.join(QLatin1Char(','));
}

} // namespace

int Pavimento::Schermata(qint32 primo, qint32 righe) {
    Istruzione& valori =
        Ricerca(QStringLiteral("select numerorecord,id_campo,valore from valori where id_campo in (") +
                Elenco(m_collezione.idCampi) + QStringLiteral(") and numerorecord between ?1 and ?2"));
    valori.Lega(1, primo).Lega(2, primo + righe - 1);
    int letti = 0;
    for (; valori.Riga(); ++letti) {
        valori.Intero(0);
        valori.Intero(1);
        valori.LunghezzaTesto(2);
    }
    valori.Azzera();
    return letti;
}

int Pavimento::OrdinaTesto(qint32 idCampo) {
    Istruzione& ordine = Ricerca(QStringLiteral(
        "select numerorecord from valori where id_campo=?1 order by valore collate nocase,numerorecord"));
    ordine.Lega(1, idCampo);
    int letti = 0;
    for (; ordine.Riga(); ++letti)
        ordine.Intero(0);
    ordine.Azzera();
    return letti;
}

int Pavimento::CercaOvunque(const QList<qint32>& campi, const QString& testo) {
    Istruzione& trovati =
        Ricerca(QStringLiteral("select distinct numerorecord from valori where id_campo in (") +
                Elenco(campi) + QStringLiteral(") and valore like ?1 escape '\\'"));
    trovati.Lega(1, (QStringLiteral("%") + testo + QStringLiteral("%")).toUtf8());
    int letti = 0;
    for (; trovati.Riga(); ++letti)
        trovati.Intero(0);
    trovati.Azzera();
    return letti;
}
