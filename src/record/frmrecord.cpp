#include "frmrecord.h"

#include "apertorericerca.h"
#include "confine.h"
#include "iconebarra.h"
#include "interazione.h"
#include "navigazione.h"
#include "routinesql.h"

#include <QAction>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPointer>
#include <QStyle>
#include <QToolBar>

frmRecord::frmRecord(QWidget* parent)
    : FinestraControlli(parent) {
    setObjectName(QStringLiteral("frmRecord"));
    setAttribute(Qt::WA_DeleteOnClose);
    CreaBarra();
    CreaMenu();
}

void frmRecord::CreaBarra() {
    Toolbar1 = new QToolBar(this);
    Toolbar1->setObjectName(QStringLiteral("Toolbar1"));
    Toolbar1->setMovable(false);
    AggiungiPulsante(QStringLiteral("first"), QStyle::SP_MediaSkipBackward,
                     QStringLiteral("Vai al Primo Record"));
    AggiungiPulsante(QStringLiteral("prev"), QStyle::SP_MediaSeekBackward,
                     QStringLiteral("Vai al Record Precedente"));
    AggiungiPulsante(QStringLiteral("next"), QStyle::SP_MediaSeekForward,
                     QStringLiteral("Vai al Record Successivo"));
    AggiungiPulsante(QStringLiteral("last"), QStyle::SP_MediaSkipForward,
                     QStringLiteral("Vai all'Ultimo Record"));
    Toolbar1->addSeparator();
    AggiungiPulsante(QStringLiteral("new"), IconaNuovo(*style()),
                     QStringLiteral("Inserisci un Nuovo Record"));
    AggiungiPulsante(QStringLiteral("del"), QStyle::SP_TrashIcon,
                     QStringLiteral("Elimina il Record Corrente"));
    AggiungiPulsante(QStringLiteral("edit"), IconaModifica(*style()),
                     QStringLiteral("Modifica il Record Corrente"));
    Toolbar1->addSeparator();
    AggiungiPulsante(QStringLiteral("ok"), QStyle::SP_DialogApplyButton, QStringLiteral("Conferma"));
    AggiungiPulsante(QStringLiteral("no"), QStyle::SP_DialogCancelButton, QStringLiteral("Annulla"));
    // Measured while every button shows: "ok" and "no" must fit when they appear.
    m_larghezzaBarra = Toolbar1->sizeHint().width();
    Toolbar1->setGeometry(0, 0, width(), Toolbar1->sizeHint().height());
}

void frmRecord::AggiungiPulsante(const QString& chiave, QStyle::StandardPixmap icona,
                                 const QString& suggerimento) {
    AggiungiPulsante(chiave, style()->standardIcon(icona), suggerimento);
}

void frmRecord::AggiungiPulsante(const QString& chiave, const QIcon& icona, const QString& suggerimento) {
    QAction* pulsante = Toolbar1->addAction(icona, suggerimento);
    pulsante->setObjectName(chiave);
    pulsante->setToolTip(suggerimento);
    connect(pulsante, &QAction::triggered, this, Protetto([this, chiave] { Toolbar1_ButtonClick(chiave); }));
}

void frmRecord::CreaMenu() {
    mnuFile = new QMenu(QStringLiteral("File"), this);
    mnuFile->setObjectName(QStringLiteral("mnuFile"));
    mnuTrova = mnuFile->addAction(QStringLiteral("Trova..."));
    mnuTrova->setObjectName(QStringLiteral("mnuTrova"));
    mnuEsci = mnuFile->addAction(QStringLiteral("Esci"));
    mnuEsci->setObjectName(QStringLiteral("mnuEsci"));
    connect(mnuTrova, &QAction::triggered, this, Protetto([this] { mnuTrova_Click(); }));
    connect(mnuEsci, &QAction::triggered, this, Protetto([this] { mnuEsci_Click(); }));
}

void frmRecord::mnuTrova_Click() {
    ApriRicercaSu(CurrTabella);
}

void frmRecord::mnuEsci_Click() {
    Contenitore().close();
}

// Inside the frame the window lives in a sub-window, which is sized and closed with it.
QWidget& frmRecord::Contenitore() {
    auto* sottofinestra = qobject_cast<QMdiSubWindow*>(parentWidget());
    return sottofinestra ? *static_cast<QWidget*>(sottofinestra) : *this;
}

void frmRecord::AdattaAlContenuto() {
    resize(sizeHint());
    if (&Contenitore() != this)
        Contenitore().adjustSize();
}

QList<QMenu*> frmRecord::MenuFinestra() const {
    return {mnuFile};
}

QAction* frmRecord::Pulsante(const QString& chiave) const {
    return Toolbar1->findChild<QAction*>(chiave, Qt::FindDirectChildrenOnly);
}

void frmRecord::Form_Load() {
    CurrTabella = 0;
    RecordCorrente = 0;
    NuovoRecord = false;
    ModificaRecord = false;
    setWindowTitle(QStringLiteral("Record"));
    ImpostaStatoBottoni();
}

void frmRecord::ImpostaStatoBottoni() {
    const bool modifica = NuovoRecord || ModificaRecord;
    const QList<QAction*> pulsanti = Toolbar1->actions();
    for (QAction* pulsante : pulsanti)
        pulsante->setEnabled(!modifica);
    for (const QString& chiave : {QStringLiteral("ok"), QStringLiteral("no")}) {
        Pulsante(chiave)->setVisible(modifica);
        Pulsante(chiave)->setEnabled(true);
    }
}

void frmRecord::ImpostaStatoControlli() {
    const bool modifica = NuovoRecord || ModificaRecord;
    for (QWidget* controllo : ControlliCampo())
        AbilitaControllo(*controllo, modifica);
}

void frmRecord::Toolbar1_ButtonClick(const QString& chiave) {
    const QString tasto = chiave.toLower();
    if (tasto == QLatin1String("ok"))
        Conferma();
    else if (tasto == QLatin1String("no"))
        Annulla();
    else if (tasto == QLatin1String("new"))
        Nuovo();
    else if (tasto == QLatin1String("edit"))
        Modifica();
    else if (tasto == QLatin1String("del"))
        Elimina();
    else if (tasto == QLatin1String("last"))
        Ultimo();
    else if (tasto == QLatin1String("next"))
        Successivo();
    else if (tasto == QLatin1String("prev"))
        Vai(qMax(RecordCorrente - 1, 1));
    else if (tasto == QLatin1String("first"))
        Vai(1);
}

// The record shown is not reloaded: after an insert the current number is simply the old one + 1.
void frmRecord::Conferma() {
    if (!ControllaRecord(*this, CurrTabella))
        return;
    bool salvato = false;
    if (ModificaRecord) {
        salvato = SalvaRecord(*this, CurrTabella, RecordCorrente);
    } else {
        salvato = SalvaNuovoRecord(*this, CurrTabella);
        if (salvato)
            ++RecordCorrente;
    }
    if (!salvato)
        return;
    NuovoRecord = false;
    ModificaRecord = false;
    ImpostaStatoControlli();
    ImpostaStatoBottoni();
}

// The controls keep what they show.
void frmRecord::Annulla() {
    NuovoRecord = false;
    ModificaRecord = false;
    ImpostaStatoBottoni();
    ImpostaStatoControlli();
}

void frmRecord::Nuovo() {
    PulisciControlli(*this);
    NuovoRecord = true;
    ImpostaStatoControlli();
    ImpostaStatoBottoni();
}

void frmRecord::Modifica() {
    ModificaRecord = true;
    ImpostaStatoControlli();
    ImpostaStatoBottoni();
}

void frmRecord::Elimina() {
    if (MsgBox(QStringLiteral("Sicuro di voler eliminare il record corrente?"), Pulsanti::SiNoAnnulla,
               Icona::Domanda, QStringLiteral("Attenzione"), 2) != Risposta::Si)
        return;
    EliminaRecord(CurrTabella, RecordCorrente);
    CaricaRecord(*this, RecordCorrente, CurrTabella);
}

void frmRecord::Ultimo() {
    RecordCorrente = ContaRecord(CurrTabella);
    CaricaRecord(*this, RecordCorrente, CurrTabella);
}

void frmRecord::Successivo() {
    if (ContaRecord(CurrTabella) > RecordCorrente)
        Vai(RecordCorrente + 1);
}

void frmRecord::Vai(qint32 numero) {
    RecordCorrente = numero;
    CaricaRecord(*this, RecordCorrente, CurrTabella);
}

QSize frmRecord::sizeHint() const {
    const QSize controlli = FinestraControlli::sizeHint();
    return QSize(qMax(controlli.width(), m_larghezzaBarra), qMax(controlli.height(), Toolbar1->height()));
}

void frmRecord::resizeEvent(QResizeEvent* evento) {
    FinestraControlli::resizeEvent(evento);
    Toolbar1->resize(width(), Toolbar1->height());
}

namespace {

QPointer<frmRecord>& Finestra() {
    static QPointer<frmRecord> finestra;
    return finestra;
}

} // namespace

frmRecord& FinestraRecord() {
    QPointer<frmRecord>& finestra = Finestra();
    if (!finestra) {
        finestra = new frmRecord;
        finestra->Carica();
    }
    return *finestra;
}

frmRecord* IstanzaRecord() {
    return Finestra().data();
}
