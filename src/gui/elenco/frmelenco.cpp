#include "frmelenco.h"

#include "aprielenco.h"
#include "colonneelenco.h"
#include "confine.h"
#include "impostazioni.h"
#include "modelloelenco.h"
#include "vistaelenco.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace {

const QString ChiaveColonna = QStringLiteral("colonnaordine");
const QString ChiaveDiscendente = QStringLiteral("discendente");

// Widths are kept by field id, so that they survive fields added or moved in the tab order.
QString ChiaveLarghezza(qint32 idCampo) {
    return QStringLiteral("larghezza") + QString::number(idCampo);
}

} // namespace

frmElenco::frmElenco(qint32 idCollezione, QWidget* parent)
    : QWidget(parent)
    , m_modello(new ModelloElenco(idCollezione, this)) {
    setObjectName(QStringLiteral("frmElenco"));
    setWindowTitle(NomeCollezione(idCollezione));
    setAttribute(Qt::WA_DeleteOnClose);
    CreaControlli();
    m_attesa.setSingleShot(true);
    m_attesa.setInterval(150);
    connect(txtFiltro, &QLineEdit::textChanged, this, [this] { m_attesa.start(); });
    connect(&m_attesa, &QTimer::timeout, this, Protetto([this] { m_modello->Filtra(txtFiltro->text()); }));
    connect(lvElenco, &QAbstractItemView::activated, this,
            Protetto([this](const QModelIndex& indice) { lvElenco_Activate(indice); }));
    connect(lvElenco->header(), &QHeaderView::sectionClicked, this,
            Protetto([this](int colonna) { Intestazione_Click(colonna); }));
    connect(lvElenco->header(), &QHeaderView::sectionResized, this,
            [this](int colonna, int, int larghezza) { SalvaLarghezza(colonna, larghezza); });
    connect(m_modello, &ModelloElenco::ConteggioCambiato, this, [this] { AggiornaStato(); });
    RipristinaImpostazioni();
    AggiornaStato();
    resize(640, 420);
}

void frmElenco::CreaControlli() {
    auto* etichetta = new QLabel(QStringLiteral("Filtro:"));
    txtFiltro = new QLineEdit;
    txtFiltro->setObjectName(QStringLiteral("txtFiltro"));
    txtFiltro->setClearButtonEnabled(true);
    txtFiltro->setToolTip(
        QStringLiteral("Mostra solo i record che contengono il testo in un qualsiasi campo"));
    etichetta->setBuddy(txtFiltro);
    lvElenco = new VistaElenco;
    lvElenco->setObjectName(QStringLiteral("lvElenco"));
    lvElenco->setModel(m_modello);
    lvElenco->setToolTip(
        QStringLiteral("Fai doppio click sul Record che ti interessa per Visualizzarne i Dettagli"));
    const QFontMetrics metrica = lvElenco->fontMetrics();
    lvElenco->header()->setDefaultSectionSize(12 * metrica.averageCharWidth() + 8);
    lvElenco->header()->resizeSection(0, metrica.horizontalAdvance(QStringLiteral("0000000")) +
                                             4 * metrica.averageCharWidth());
    lblStato = new QLabel;
    lblStato->setObjectName(QStringLiteral("lblStato"));

    auto* filtro = new QHBoxLayout;
    filtro->addWidget(etichetta);
    filtro->addWidget(txtFiltro, 1);
    auto* colonna = new QVBoxLayout(this);
    colonna->addLayout(filtro);
    colonna->addWidget(lvElenco, 1);
    colonna->addWidget(lblStato);
}

qint32 frmElenco::IdCollezione() const {
    return m_modello->IdCollezione();
}

void frmElenco::AggiornaStato() {
    lblStato->setText(QString::number(m_modello->rowCount()) + QStringLiteral(" di ") +
                      QString::number(m_modello->Totale()) + QStringLiteral(" record"));
}

void frmElenco::lvElenco_Activate(const QModelIndex& indice) {
    if (!indice.isValid())
        return;
    ApriRecordDaElenco(IdCollezione(), m_modello->NumeroRecord(indice.row()));
}

// The record shown stays current wherever the new order puts it.
void frmElenco::Intestazione_Click(int colonna) {
    if (!m_modello->Ordinabile(colonna)) {
        lvElenco->header()->setSortIndicator(m_modello->ColonnaOrdine(), m_modello->Direzione());
        return;
    }
    const Qt::SortOrder direzione =
        colonna == m_modello->ColonnaOrdine() && m_modello->Direzione() == Qt::AscendingOrder
            ? Qt::DescendingOrder
            : Qt::AscendingOrder;
    const QModelIndex corrente = lvElenco->currentIndex();
    const qint32 numero = corrente.isValid() ? m_modello->NumeroRecord(corrente.row()) : 0;
    m_modello->Ordina(colonna, direzione);
    lvElenco->header()->setSortIndicator(colonna, direzione);
    SalvaOrdine();
    if (const int riga = m_modello->RigaDi(numero); numero > 0 && riga >= 0) {
        lvElenco->setCurrentIndex(m_modello->index(riga, 0));
        lvElenco->scrollTo(lvElenco->currentIndex(), QAbstractItemView::PositionAtCenter);
    }
}

QString frmElenco::Sezione() const {
    return QStringLiteral("elenco") + QString::number(IdCollezione());
}

void frmElenco::RipristinaImpostazioni() {
    m_ripristino = true;
    for (int colonna = 0; colonna < m_modello->columnCount(); ++colonna) {
        const int larghezza = GetSetting(Sezione(), ChiaveLarghezza(m_modello->IdCampo(colonna))).toInt();
        if (larghezza > 0)
            lvElenco->header()->resizeSection(colonna, larghezza);
    }
    m_ripristino = false;
    const int colonna =
        m_modello->ColonnaDelCampo(GetSetting(Sezione(), ChiaveColonna, QStringLiteral("0")).toInt());
    const Qt::SortOrder direzione = GetSetting(Sezione(), ChiaveDiscendente) == QLatin1String("1")
                                        ? Qt::DescendingOrder
                                        : Qt::AscendingOrder;
    if (colonna >= 0 && m_modello->Ordinabile(colonna) && (colonna != 0 || direzione != Qt::AscendingOrder))
        m_modello->Ordina(colonna, direzione);
    lvElenco->header()->setSortIndicator(m_modello->ColonnaOrdine(), m_modello->Direzione());
}

void frmElenco::SalvaLarghezza(int colonna, int larghezza) {
    if (!m_ripristino)
        SaveSetting(Sezione(), ChiaveLarghezza(m_modello->IdCampo(colonna)), QString::number(larghezza));
}

void frmElenco::SalvaOrdine() {
    SaveSetting(Sezione(), ChiaveColonna, QString::number(m_modello->IdCampo(m_modello->ColonnaOrdine())));
    SaveSetting(Sezione(), ChiaveDiscendente,
                m_modello->Direzione() == Qt::DescendingOrder ? QStringLiteral("1") : QStringLiteral("0"));
}
