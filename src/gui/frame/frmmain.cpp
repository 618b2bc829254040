#include "frmmain.h"

#include "apertoreelenco.h"
#include "apertorericerca.h"
#include "aprielenco.h"
#include "apriricerca.h"
#include "archivio.h"
#include "comandibackup.h"
#include "confine.h"
#include "finestreripristino.h"
#include "form1.h"
#include "frmabout.h"
#include "iconaprogramma.h"
#include "impostazioni.h"
#include "interazione.h"
#include "listecontrolli.h"
#include "paginaguida.h"
#include "posizionefigli.h"
#include "programma.h"
#include "tastiprogramma.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QLayout>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPointer>
#include <QScreen>
#include <QSignalBlocker>
#include <QStatusBar>
#include <QStyle>
#include <QTimer>

namespace {

// The program names its windows frm... and Form...; menus, tips and the like are no windows of it.
bool FinestraDelProgramma(const QWidget& finestra) {
    const QString nome = finestra.objectName().toLower();
    return nome != QLatin1String("frmmain") &&
           (nome.startsWith(QLatin1String("frm")) || nome.startsWith(QLatin1String("form")));
}

} // namespace

QString TitoloFrame(int maggiore, int minore, int revisione) {
    return Programma::Titolo() + QStringLiteral(" - versione ") + QString::number(maggiore) +
           QLatin1Char('.') + QString::number(minore) + QLatin1Char('.') + QString::number(revisione) +
           QStringLiteral(" BETA");
}

frmMAIN::frmMAIN(QWidget* parent)
    : QMainWindow(parent)
    , m_area(new QMdiArea(this)) {
    setObjectName(QStringLiteral("frmMAIN"));
    m_area->setObjectName(QStringLiteral("AreaFigli"));
    m_area->setBackground(palette().brush(QPalette::Dark));
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setCentralWidget(m_area);
    setWindowIcon(IconaProgramma());
    Sbar1 = new QStatusBar(this);
    Sbar1->setObjectName(QStringLiteral("Sbar1"));
    setStatusBar(Sbar1);
    CreaMenu();
    connect(m_area, &QMdiArea::subWindowActivated, this, [this] { AggiornaMenu(); });
    DisponiFrame();
    setWindowTitle(
        TitoloFrame(Programma::VersioneMaggiore(), Programma::VersioneMinore(), Programma::Revisione()));
    ImpostaOspiteFinestre(this);
    new TastiProgramma(*this);
    // The record window's "Trova..." reaches the search window through this hook.
    ImpostaApertoreRicerca(ApriRicerca);
    ImpostaApertoreElenco(ApriElenco);
    ImpostaRipristinatore([this](const QString& backup) {
        // Queued: the restore unloads the window whose menu asked for it.
        QTimer::singleShot(0, this, [this, backup] { EseguiProtetto([&] { Ripristina(*this, backup); }); });
    });
    MostraFiglia(&CaricaForm1());
}

frmMAIN::~frmMAIN() {
    ImpostaOspiteFinestre(nullptr);
    ImpostaRipristinatore({});
    // The children go first, while the frame is whole and no longer follows their activation.
    m_area->disconnect(this);
    for (QMdiSubWindow* figlio : m_area->subWindowList())
        if (figlio->widget())
            figlio->widget()->disconnect(this);
    delete m_area;
}

void frmMAIN::CreaMenu() {
    mnuFIle = new QMenu(QStringLiteral("&File"), this);
    mnuFIle->setObjectName(QStringLiteral("mnuFIle"));
    QAction* gestione = mnuFIle->addAction(QStringLiteral("Gestione Collezioni"));
    gestione->setObjectName(QStringLiteral("mnuApriGestioneCollezioni"));
    mnuFIle->addSeparator()->setObjectName(QStringLiteral("mnusep"));
    QAction* esci = mnuFIle->addAction(QStringLiteral("Esci"));
    esci->setObjectName(QStringLiteral("mnuEsci"));

    mnuWindow = new QMenu(QStringLiteral("Finestra"), this);
    mnuWindow->setObjectName(QStringLiteral("mnuWindow"));
    QAction* verticale = mnuWindow->addAction(QStringLiteral("Affianca in Verticale"));
    verticale->setObjectName(QStringLiteral("mnuTileV"));
    QAction* orizzontale = mnuWindow->addAction(QStringLiteral("Affianca in Orizzontale"));
    orizzontale->setObjectName(QStringLiteral("mnuTileH"));

    mnuH = new QMenu(QStringLiteral("&?"), this);
    mnuH->setObjectName(QStringLiteral("mnuH"));
    QAction* aiuto = mnuH->addAction(QStringLiteral("Help"));
    aiuto->setObjectName(QStringLiteral("mnuHelp"));
    QAction* informazioni = mnuH->addAction(QStringLiteral("Informazioni su..."));
    informazioni->setObjectName(QStringLiteral("mnuAbout"));

    connect(gestione, &QAction::triggered, this, Protetto([this] { mnuApriGestioneCollezioni_Click(); }));
    connect(esci, &QAction::triggered, this, &QWidget::close);
    connect(verticale, &QAction::triggered, this, [this] { Affianca(true); });
    connect(orizzontale, &QAction::triggered, this, [this] { Affianca(false); });
    connect(aiuto, &QAction::triggered, this, Protetto([this] { mnuHelp_Click(); }));
    connect(informazioni, &QAction::triggered, this, Protetto([this] { mnuAbout_Click(); }));
    connect(mnuWindow, &QMenu::aboutToShow, this, [this] {
        // The window list follows the two tile commands, as the child windows stand now.
        const auto azioni = mnuWindow->actions();
        for (int i = 2; i < azioni.size(); ++i)
            delete azioni.at(i);
        const auto figli = m_area->subWindowList();
        if (!figli.isEmpty())
            mnuWindow->addSeparator();
        for (QMdiSubWindow* figlio : figli) {
            QAction* voce = mnuWindow->addAction(figlio->windowTitle());
            voce->setCheckable(true);
            voce->setChecked(figlio == m_area->currentSubWindow());
            connect(voce, &QAction::triggered, m_area,
                    [this, figlio] { m_area->setActiveSubWindow(figlio); });
        }
    });
    AggiornaMenu();
}

void frmMAIN::AggiornaMenu() {
    QMdiSubWindow* attiva = m_area->currentSubWindow();
    const auto* conMenu = attiva ? dynamic_cast<const FinestraConMenu*>(attiva->widget()) : nullptr;
    const QList<QMenu*> menu = conMenu ? conMenu->MenuFinestra() : QList<QMenu*>{mnuFIle, mnuWindow, mnuH};
    menuBar()->clear();
    for (QMenu* voce : menu)
        menuBar()->addMenu(voce);
}

void frmMAIN::MostraFiglia(QWidget* finestra) {
    QMdiSubWindow* contenitore = nullptr;
    for (QMdiSubWindow* figlio : m_area->subWindowList())
        if (figlio->widget() == finestra)
            contenitore = figlio;
    if (!contenitore) {
        const QSize voluta = finestra->size();
        contenitore = m_area->addSubWindow(finestra);
        contenitore->setAttribute(Qt::WA_DeleteOnClose);
        // Queued: while a child is destroyed its sub-window may be half destroyed, yet still current.
        connect(
            finestra, &QObject::destroyed, this, [this] { AggiornaMenu(); }, Qt::QueuedConnection);
        // The child keeps the size it asked for, the title bar and borders on top. A child laid out
        // by a layout is cut to what the frame holds; a form of placed controls (a record window)
        // keeps its size and the frame scrolls to it. It goes where it covers no other child.
        const QMargins bordi = contenitore->contentsMargins();
        layout()->activate(); // the frame may not be shown yet: its area must have its real size
        const QRect area(QPoint(0, 0), m_area->contentsRect().size());
        const QSize intera = voluta.grownBy(bordi);
        contenitore->resize(finestra->layout() ? intera.boundedTo(area.size()) : intera);
        contenitore->move(PosizioneLibera(area, AltriFigli(contenitore), contenitore->size()));
    }
    contenitore->show();
    finestra->show();
    m_area->setActiveSubWindow(contenitore);
    AggiornaMenu();
}

QList<QRect> frmMAIN::AltriFigli(const QMdiSubWindow* escluso) const {
    QList<QRect> occupati;
    for (QMdiSubWindow* figlio : m_area->subWindowList())
        if (figlio != escluso && figlio->isVisible())
            occupati << figlio->geometry();
    return occupati;
}

void frmMAIN::MostraStato(const QString& testo) {
    Sbar1->showMessage(testo);
}

void frmMAIN::ScaricaFinestre() {
    {
        // Deleted at once: a window reloaded right after must be a new one.
        const QSignalBlocker blocco(m_area);
        for (QMdiSubWindow* figlio : m_area->subWindowList())
            delete figlio;
    }
    QList<QPointer<QWidget>> altre;
    for (QWidget* finestra : QApplication::topLevelWidgets())
        if (finestra != this && FinestraDelProgramma(*finestra))
            altre << finestra;
    for (const QPointer<QWidget>& finestra : std::as_const(altre))
        delete finestra.data();
    AggiornaMenu();
}

void frmMAIN::mnuApriGestioneCollezioni_Click() {
    Form1& form = CaricaForm1();
    CaricaCollezioniInLista(*form.List1);
    MostraFiglia(&form);
}

void frmMAIN::mnuHelp_Click() {
    // The guide is HTML, which every desktop opens; a missing guide fails silently.
    ApriConShell(PercorsoGuida());
}

void frmMAIN::mnuAbout_Click() {
    frmAbout informazioni(this);
    MostraModale(informazioni);
}

void frmMAIN::Affianca(bool verticale) {
    const auto figli = m_area->subWindowList();
    if (figli.isEmpty())
        return;
    const QSize area = m_area->viewport()->size();
    const int n = static_cast<int>(figli.size());
    for (int i = 0; i < n; ++i) {
        figli.at(i)->showNormal();
        if (verticale)
            figli.at(i)->setGeometry(i * area.width() / n, 0, area.width() / n, area.height());
        else
            figli.at(i)->setGeometry(0, i * area.height() / n, area.width(), area.height() / n);
    }
}

// The size and place the user left it at; the first time, as large as suits the screen's free area.
void frmMAIN::DisponiFrame() {
    const QString salvata = GetSetting(QStringLiteral("finestra"), QStringLiteral("geometria"));
    if (!salvata.isEmpty() && restoreGeometry(QByteArray::fromBase64(salvata.toLatin1())))
        return;
    const QRect libera = screen()->availableGeometry();
    const QSize voluta = QSize(1024, 700).boundedTo(libera.size() * 0.92);
    setGeometry(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, voluta, libera));
}

void frmMAIN::closeEvent(QCloseEvent* evento) {
    SaveSetting(QStringLiteral("finestra"), QStringLiteral("geometria"),
                QString::fromLatin1(saveGeometry().toBase64()));
    m_area->closeAllSubWindows();
    ChiudiDatabase();
    evento->accept();
}
