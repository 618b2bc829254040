#include "modelloelenco.h"

#include "avvisirecord.h"
#include "confine.h"
#include "erroredatabase.h"
#include "formule.h"
#include "interazione.h"
#include "ordineelenco.h"
#include "routinesql.h"
#include "testocella.h"
#include "valorielenco.h"

#include <numeric>

namespace {

// The cells kept in memory: a few screens above and below the one shown.
constexpr qsizetype MassimoRecordLetti = 64 * Pagina;

// The view asks for cells while it draws: a failure is shown once it has finished.
void MostraDopo(const QString& messaggio) {
    QTimer::singleShot(0, [messaggio] { MsgBox(messaggio); });
}

// Record n is gone and every later one is one lower.
void Rinumera(QList<qint32>& numeri, qint32 numero) {
    numeri.removeAll(numero);
    for (qint32& altro : numeri)
        if (altro > numero)
            --altro;
}

} // namespace

ModelloElenco::ModelloElenco(qint32 idCollezione, QObject* parent)
    : QAbstractTableModel(parent)
    , m_idCollezione(idCollezione)
    , m_colonne(ColonneElenco(idCollezione))
    , m_totale(ContaRecord(idCollezione)) {
    for (const ColonnaElenco& colonna : std::as_const(m_colonne))
        if (colonna.formula.isEmpty())
            m_campi.append(colonna.id);
    m_passi.setInterval(0);
    connect(&m_passi, &QTimer::timeout, this, Protetto([this] { PassoFiltro(); }));
    const AvvisiRecord& avvisi = AvvisiRecord::Istanza();
    connect(&avvisi, &AvvisiRecord::Inserito, this,
            Protetto([this](qint32 id, qint32 n) { SeguiInserimento(id, n); }));
    connect(&avvisi, &AvvisiRecord::Modificato, this,
            Protetto([this](qint32 id, qint32 n) { SeguiModifica(id, n); }));
    connect(&avvisi, &AvvisiRecord::Eliminato, this,
            Protetto([this](qint32 id, qint32 n) { SeguiEliminazione(id, n); }));
}

qint32 ModelloElenco::NumeroRecord(int riga) const {
    return Diretto() ? riga + 1 : m_visibili.at(riga);
}

int ModelloElenco::RigaDi(qint32 numero) const {
    if (Diretto())
        return numero >= 1 && numero <= m_totale ? numero - 1 : -1;
    return static_cast<int>(m_visibili.indexOf(numero));
}

qint32 ModelloElenco::IdCampo(int colonna) const {
    return colonna <= 0 ? 0 : m_colonne.value(colonna - 1).id;
}

int ModelloElenco::ColonnaDelCampo(qint32 idCampo) const {
    if (idCampo == 0)
        return 0;
    for (int i = 0; i < m_colonne.size(); ++i)
        if (m_colonne.at(i).id == idCampo)
            return i + 1;
    return -1;
}

bool ModelloElenco::Ordinabile(int colonna) const {
    return colonna == 0 ||
           (colonna > 0 && colonna <= m_colonne.size() && m_colonne.at(colonna - 1).formula.isEmpty());
}

void ModelloElenco::Ordina(int colonna, Qt::SortOrder direzione) {
    if (!Ordinabile(colonna))
        return;
    m_colonnaOrdine = colonna;
    m_direzione = direzione;
    Riordina();
    Mostra(m_filtro ? m_filtro->Scegli(Ordine()) : Ordine());
}

void ModelloElenco::Riordina() {
    const bool discendente = m_direzione == Qt::DescendingOrder;
    m_ordine.clear();
    if (m_colonnaOrdine > 0) {
        m_ordine = OrdinaPerCampo(IdCampo(m_colonnaOrdine), m_totale, discendente);
    } else if (discendente) {
        m_ordine.reserve(m_totale);
        for (qint32 numero = m_totale; numero >= 1; --numero)
            m_ordine.append(numero);
    }
}

QList<qint32> ModelloElenco::Ordine() const {
    if (!m_ordine.isEmpty() || m_totale == 0)
        return m_ordine;
    QList<qint32> ordine(m_totale);
    std::iota(ordine.begin(), ordine.end(), 1);
    return ordine;
}

void ModelloElenco::Mostra(QList<qint32> visibili) {
    beginResetModel();
    m_visibili = Diretto() ? QList<qint32>() : std::move(visibili);
    endResetModel();
    Q_EMIT ConteggioCambiato();
}

void ModelloElenco::Filtra(const QString& testo) {
    m_testoFiltro = testo;
    m_inCorso.reset();
    m_passi.stop();
    if (!testo.isEmpty()) {
        AvviaFiltro();
        return;
    }
    if (m_filtro) {
        m_filtro.reset();
        Mostra(Ordine());
    }
    Q_EMIT FiltroApplicato();
}

void ModelloElenco::AvviaFiltro() {
    m_inCorso = std::make_unique<FiltroElenco>(m_colonne, m_testoFiltro, m_totale);
    m_passi.start();
}

// A failing step stops the filter: the message is shown once, not at every step.
void ModelloElenco::PassoFiltro() {
    if (!m_inCorso) {
        m_passi.stop();
        return;
    }
    try {
        if (!m_inCorso->Passo())
            return;
    } catch (...) {
        m_inCorso.reset();
        m_passi.stop();
        throw;
    }
    m_passi.stop();
    m_filtro = std::move(m_inCorso);
    Mostra(m_filtro->Scegli(Ordine()));
    Q_EMIT FiltroApplicato();
}

// The new record's place depends on the order and the filter; in record-number order it is the last row.
void ModelloElenco::SeguiInserimento(qint32 idCollezione, qint32 numero) {
    if (idCollezione != m_idCollezione || numero <= m_totale)
        return;
    if (Diretto()) {
        beginInsertRows({}, m_totale, numero - 1);
        m_totale = numero;
        endInsertRows();
        Q_EMIT ConteggioCambiato();
    } else {
        m_totale = numero;
        Ricalcola();
    }
    if (m_inCorso)
        AvviaFiltro();
}

void ModelloElenco::SeguiModifica(qint32 idCollezione, qint32 numero) {
    if (idCollezione != m_idCollezione)
        return;
    m_testi.remove(numero);
    if (m_colonnaOrdine > 0 || m_filtro) {
        Ricalcola();
    } else if (const int riga = RigaDi(numero); riga >= 0) {
        Q_EMIT dataChanged(index(riga, 0), index(riga, columnCount() - 1));
    }
    if (m_inCorso)
        AvviaFiltro();
}

void ModelloElenco::SeguiEliminazione(qint32 idCollezione, qint32 numero) {
    if (idCollezione != m_idCollezione || numero < 1 || numero > m_totale)
        return;
    m_testi.clear();
    const int riga = RigaDi(numero);
    if (riga >= 0)
        beginRemoveRows({}, riga, riga);
    --m_totale;
    Rinumera(m_ordine, numero);
    Rinumera(m_visibili, numero);
    if (m_filtro)
        m_filtro->TogliRecord(numero);
    if (riga >= 0)
        endRemoveRows();
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    Q_EMIT ConteggioCambiato();
    if (m_inCorso)
        AvviaFiltro();
}

// Until the filter runs again the old one decides, and a new record is left out.
void ModelloElenco::Ricalcola() {
    m_testi.clear();
    Riordina();
    Mostra(m_filtro ? m_filtro->Scegli(Ordine()) : Ordine());
    if (!m_testoFiltro.isEmpty())
        AvviaFiltro();
}

int ModelloElenco::rowCount(const QModelIndex& parent) const {
    if (parent.isValid())
        return 0;
    return Diretto() ? m_totale : static_cast<int>(m_visibili.size());
}

int ModelloElenco::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_colonne.size()) + 1;
}

QVariant ModelloElenco::data(const QModelIndex& indice, int ruolo) const {
    if (!indice.isValid() || indice.row() >= rowCount())
        return {};
    const int colonna = indice.column();
    if (ruolo == Qt::DisplayRole)
        return colonna == 0 ? QVariant(NumeroRecord(indice.row()))
                            : QVariant(Cella(indice.row(), colonna - 1));
    if (ruolo == Qt::TextAlignmentRole) {
        if (colonna == 0)
            return QVariant(Qt::AlignRight | Qt::AlignVCenter);
        if (m_colonne.at(colonna - 1).tipo == QLatin1String("checkbox"))
            return QVariant(Qt::AlignCenter);
    }
    return {};
}

QVariant ModelloElenco::headerData(int sezione, Qt::Orientation orientamento, int ruolo) const {
    if (orientamento != Qt::Horizontal || ruolo != Qt::DisplayRole || sezione < 0 ||
        sezione > m_colonne.size())
        return {};
    return sezione == 0 ? QStringLiteral("Record") : m_colonne.at(sezione - 1).intestazione;
}

// A formula is computed the first time its cell is drawn; until then its place holds a null text.
QString ModelloElenco::Cella(int riga, int campo) const {
    const qint32 numero = NumeroRecord(riga);
    auto trovati = m_testi.find(numero);
    if (trovati == m_testi.end()) {
        CaricaPagina(riga);
        trovati = m_testi.find(numero);
    }
    QString& cella = (*trovati)[campo];
    const QString& formula = m_colonne.at(campo).formula;
    if (!formula.isEmpty() && cella.isNull()) {
        try {
            cella = RisolviFormula(formula, m_idCollezione, numero);
        } catch (const ErroreDatabase& errore) {
            cella = QStringLiteral("");
            MostraDopo(errore.messaggio());
        }
    }
    return cella;
}

// A failure reading the store leaves the rows empty.
void ModelloElenco::CaricaPagina(int riga) const {
    if (m_testi.size() > MassimoRecordLetti)
        m_testi.clear();
    const int prima = riga - riga % static_cast<int>(Pagina);
    const int dopo = qMin(rowCount(), prima + static_cast<int>(Pagina));
    QList<qint32> numeri;
    for (int r = prima; r < dopo; ++r)
        numeri.append(NumeroRecord(r));
    try {
        const ValoriRecord valori = LeggiValori(m_campi, numeri);
        for (const qint32 numero : std::as_const(numeri)) {
            const QHash<qint32, QString> record = valori.value(numero);
            QStringList celle;
            for (const ColonnaElenco& colonna : m_colonne)
                celle.append(colonna.formula.isEmpty() ? TestoCella(colonna, record.value(colonna.id))
                                                       : QString());
            m_testi.insert(numero, celle);
        }
    } catch (const ErroreDatabase& errore) {
        for (const qint32 numero : std::as_const(numeri))
            m_testi.insert(numero, QStringList(m_colonne.size(), QStringLiteral("")));
        MostraDopo(errore.messaggio());
    }
}
