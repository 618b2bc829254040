#include "frmrecord.h"

#include "apertoreelenco.h"
#include "apertorericerca.h"
#include "aspettorecord.h"
#include "avvisirecord.h"
#include "confine.h"
#include "iconebarra.h"
#include "immagine.h"
#include "interazione.h"
#include "navigazione.h"
#include "opzioniaspetto.h"
#include "routinesql.h"
#include "sceltaimmagine.h"
#include "stampatesto.h"
#include "testorecord.h"

#include <QAbstractScrollArea>
#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPainter>
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
    // The window's background colour is the collection's; the toolbar keeps the system's.
    QPalette tavolozza = Toolbar1->palette();
    tavolozza.setColor(QPalette::Window, tavolozza.color(QPalette::Window));
    Toolbar1->setPalette(tavolozza);
    Toolbar1->setAutoFillBackground(true);
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

QAction* frmRecord::Voce(QMenu* menu, const char* nome, const QString& testo) {
    QAction* azione = menu->addAction(testo);
    azione->setObjectName(QLatin1String(nome));
    return azione;
}

void frmRecord::CreaMenu() {
    mnuFile = new QMenu(QStringLiteral("File"), this);
    mnuFile->setObjectName(QStringLiteral("mnuFile"));
    mnuTrova = Voce(mnuFile, "mnuTrova", QStringLiteral("Trova..."));
    mnuElenco = Voce(mnuFile, "mnuElenco", QStringLiteral("Elenco Record..."));
    mnuElenco->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_L));
    mnuClipBoard = Voce(mnuFile, "mnuClipBoard", QStringLiteral("Copia negli Appunti"));
    mnuStampa = Voce(mnuFile, "mnuStampa", QStringLiteral("Stampa"));
    mnuEsci = Voce(mnuFile, "mnuEsci", QStringLiteral("Esci"));
    // Also the window's own: the keys work with the focus anywhere in it, in or out of a frame.
    for (const auto& [voce, tasti] :
         {std::pair{mnuTrova, QKeySequence::Find}, {mnuStampa, QKeySequence::Print}}) {
        voce->setShortcut(tasti);
        voce->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        addAction(voce);
    }
    connect(mnuTrova, &QAction::triggered, this, Protetto([this] { mnuTrova_Click(); }));
    connect(mnuElenco, &QAction::triggered, this, Protetto([this] { mnuElenco_Click(); }));
    connect(mnuClipBoard, &QAction::triggered, this, Protetto([this] { mnuClipBoard_Click(); }));
    connect(mnuStampa, &QAction::triggered, this, Protetto([this] { mnuStampa_Click(); }));
    connect(mnuEsci, &QAction::triggered, this, Protetto([this] { mnuEsci_Click(); }));
    CreaMenuOpzioni();
}

void frmRecord::CreaMenuOpzioni() {
    mnuOpzioni = new QMenu(QStringLiteral("Opzioni"), this);
    mnuOpzioni->setObjectName(QStringLiteral("mnuOpzioni"));
    mnuColori = mnuOpzioni->addMenu(QStringLiteral("Imposta Colori"));
    mnuColori->setObjectName(QStringLiteral("mnuColori"));
    mnuColoreTestoEtichette =
        Voce(mnuColori, "mnuColoreTestoEtichette", QStringLiteral("Colore Testo Etichette"));
    mnuColoreSfondoEtichette =
        Voce(mnuColori, "mnuColoreSfondoEtichette", QStringLiteral("Colore Sfondo Etichette"));
    mnuColoreSfondo = Voce(mnuColori, "mnuColoreSfondo", QStringLiteral("Colore Sfondo Finestra"));
    mnuColoreTestoControlli =
        Voce(mnuColori, "mnuColoreTestoControlli", QStringLiteral("Colore Testo Controlli"));
    mnuImmagineSfondo = mnuOpzioni->addMenu(QStringLiteral("Immagine di Sfondo"));
    mnuImmagineSfondo->setObjectName(QStringLiteral("mnuImmagineSfondo"));
    mnuScegliImmagine = Voce(mnuImmagineSfondo, "mnuScegliImmagine", QStringLiteral("Imposta Immagine"));
    mnuRimuovi = Voce(mnuImmagineSfondo, "mnuRimuovi", QStringLiteral("Rimuovi Immagine"));
    const QList<QPair<QAction*, QString>> colori{
        {mnuColoreTestoEtichette, OpzioniAspetto::ColoreTestoEtichette},
        {mnuColoreSfondoEtichette, OpzioniAspetto::ColoreSfondoEtichette},
        {mnuColoreSfondo, OpzioniAspetto::ColoreSfondo},
        {mnuColoreTestoControlli, OpzioniAspetto::ColoreTestoControlli}};
    for (const auto& [voce, chiave] : colori)
        connect(voce, &QAction::triggered, this, Protetto([this, chiave] { mnuColore_Click(chiave); }));
    connect(mnuScegliImmagine, &QAction::triggered, this, Protetto([this] { mnuScegliImmagine_Click(); }));
    connect(mnuRimuovi, &QAction::triggered, this, Protetto([this] { mnuRimuovi_Click(); }));
}

void frmRecord::mnuTrova_Click() {
    ApriRicercaSu(CurrTabella);
}

void frmRecord::mnuElenco_Click() {
    ApriElencoSu(CurrTabella);
}

void frmRecord::mnuClipBoard_Click() {
    QGuiApplication::clipboard()->setText(TestoRecord(CurrTabella, RecordCorrente));
}

void frmRecord::mnuStampa_Click() {
    const QString testo = TestoRecord(CurrTabella, RecordCorrente);
    if (!testo.isEmpty())
        StampaSuPredefinita(testo);
}

void frmRecord::mnuEsci_Click() {
    Contenitore().close();
}

void frmRecord::mnuColore_Click(const QString& chiave) {
    const std::optional<QColor> scelto =
        SceltaColore(LeggiColore(CurrTabella, chiave).value_or(QColor(Qt::black)));
    if (!scelto)
        return;
    ScriviColore(CurrTabella, chiave, *scelto);
    ApplicaColori(*this, CurrTabella);
}

void frmRecord::mnuScegliImmagine_Click() {
    const QString percorso = ScegliImmagine(this);
    if (percorso.isEmpty())
        return;
    m_sfondo = CaricaImmagine(percorso);
    m_percorsoSfondo = percorso;
    ScriviImmagineSfondo(CurrTabella, percorso);
    update();
}

void frmRecord::mnuRimuovi_Click() {
    m_sfondo = QPixmap();
    m_percorsoSfondo.clear();
    ScriviImmagineSfondo(CurrTabella, QString());
    update();
}

// The path in Tag is what saving the record stores; the file stays where it is.
void frmRecord::Image1_Click(Immagine& immagine) {
    const QString percorso = ScegliImmagine(this);
    if (percorso.isEmpty())
        return;
    immagine.setPixmap(CaricaImmagine(percorso));
    immagine.setProperty("Tag", percorso);
}

// The picture first, then the colours. A picture that cannot be loaded is reported once per opening
// of the window, not at every activation, and the colours are applied all the same.
void frmRecord::Form_Activate() {
    EseguiProtetto([this] { CaricaSfondo(); });
    ApplicaColori(*this, CurrTabella);
}

void frmRecord::CaricaSfondo() {
    const QString percorso = LeggiImmagineSfondo(CurrTabella);
    if (percorso == m_percorsoSfondo)
        return;
    m_percorsoSfondo = percorso;
    m_sfondo = QPixmap();
    update();
    if (!percorso.isEmpty())
        m_sfondo = CaricaImmagine(percorso);
}

void frmRecord::ElementoCaricato(QWidget& elemento) {
    if (auto* immagine = qobject_cast<Immagine*>(&elemento))
        connect(immagine, &Immagine::Click, this, Protetto([this, immagine] { Image1_Click(*immagine); }));
}

bool frmRecord::event(QEvent* evento) {
    if (evento->type() == QEvent::WindowActivate && isWindow())
        Form_Activate();
    else if (evento->type() == QEvent::ParentChange)
        SeguiAttivazione();
    return FinestraControlli::event(evento);
}

// Inside the frame the sub-window, not this widget, is what becomes active.
void frmRecord::SeguiAttivazione() {
    auto* sottofinestra = qobject_cast<QMdiSubWindow*>(parentWidget());
    if (!sottofinestra)
        return;
    connect(sottofinestra, &QMdiSubWindow::windowStateChanged, this,
            [this](Qt::WindowStates prima, Qt::WindowStates dopo) {
                if (dopo.testFlag(Qt::WindowActive) && !prima.testFlag(Qt::WindowActive))
                    Form_Activate();
            });
}

void frmRecord::paintEvent(QPaintEvent* /*evento*/) {
    if (m_sfondo.isNull())
        return;
    QPainter pittore(this);
    pittore.drawPixmap(0, Toolbar1->height(), m_sfondo); // the layout's origin is below the toolbar
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
    return {mnuFile, mnuOpzioni};
}

QAction* frmRecord::Pulsante(const QString& chiave) const {
    return Toolbar1->findChild<QAction*>(chiave, Qt::FindDirectChildrenOnly);
}

void frmRecord::Form_Load() {
    CurrTabella = 0;
    RecordCorrente = 0;
    NuovoRecord = false;
    ModificaRecord = false;
    m_sfondo = QPixmap();
    m_percorsoSfondo.clear();
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
    const bool modificato = ModificaRecord;
    NuovoRecord = false;
    ModificaRecord = false;
    ImpostaStatoControlli();
    ImpostaStatoBottoni();
    if (modificato)
        Q_EMIT AvvisiRecord::Istanza().Modificato(CurrTabella, RecordCorrente);
    else
        Q_EMIT AvvisiRecord::Istanza().Inserito(CurrTabella, ContaRecord(CurrTabella));
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
    Q_EMIT AvvisiRecord::Istanza().Eliminato(CurrTabella, RecordCorrente);
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

// Record moves on the keys a reader expects, in browse only. A memo or list with the focus keeps
// all four, scrolling or not: the same keys move inside it while editing.
void frmRecord::keyPressEvent(QKeyEvent* evento) {
    if (qobject_cast<QAbstractScrollArea*>(focusWidget())) {
        FinestraControlli::keyPressEvent(evento);
        return;
    }
    static const QList<std::pair<QKeySequence::StandardKey, QString>> spostamenti{
        {QKeySequence::MoveToStartOfDocument, QStringLiteral("first")},
        {QKeySequence::MoveToPreviousPage, QStringLiteral("prev")},
        {QKeySequence::MoveToNextPage, QStringLiteral("next")},
        {QKeySequence::MoveToEndOfDocument, QStringLiteral("last")}};
    for (const auto& [tasti, chiave] : spostamenti) {
        if (!evento->matches(tasti))
            continue;
        if (!NuovoRecord && !ModificaRecord)
            EseguiProtetto([this, &chiave] { Toolbar1_ButtonClick(chiave); });
        return;
    }
    FinestraControlli::keyPressEvent(evento);
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
