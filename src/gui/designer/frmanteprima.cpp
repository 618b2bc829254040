#include "frmanteprima.h"

#include "archivio.h"
#include "confine.h"
#include "corniceselezione.h"
#include "immagine.h"
#include "interazione.h"
#include "mappacampi.h"
#include "transazione.h"

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QRubberBand>
#include <array>
#include <stdexcept>
#include <utility>

namespace {

constexpr int DistanzaEtichetta = 20;
constexpr int Passo = 10;
// What the store accepts for a position or a size.
constexpr int MassimoCoordinata = 32767;
// Where the smallest of nothing stays: no control was looked at.
constexpr int Sentinella = 9999999;
constexpr int AmpiezzaMinima = 640;
constexpr int AltezzaMinima = 480;

QString Numero(int n) {
    return QString::number(n);
}

// Left, Top, Width, Height: in the order of frmAnteprima::Proprieta.
std::array<int, 4> Geometria(const QWidget& controllo) {
    return {controllo.x(), controllo.y(), controllo.width(), controllo.height()};
}

} // namespace

frmAnteprima::frmAnteprima(QWidget* parent)
    : FinestraControlli(parent)
    , m_sagoma(new QRubberBand(QRubberBand::Rectangle, this)) {
    setObjectName(QStringLiteral("frmAnteprima"));
    setFocusPolicy(Qt::StrongFocus);
    CreaMenu();
}

// Where the frames' class is complete. As members they go before the window's children, whose
// segments they delete.
frmAnteprima::~frmAnteprima() = default;

QMenu* frmAnteprima::Sottomenu(const char* nome, const QString& titolo) {
    QMenu* menu = mnuControlli->addMenu(titolo);
    menu->setObjectName(QLatin1String(nome));
    return menu;
}

QAction* frmAnteprima::Voce(QMenu* menu, const char* nome, const QString& testo,
                            std::function<void()> comando) {
    QAction* azione = menu->addAction(testo);
    azione->setObjectName(QLatin1String(nome));
    connect(azione, &QAction::triggered, this, Protetto(std::move(comando)));
    return azione;
}

void frmAnteprima::CreaMenu() {
    mnuControlli = new QMenu(QStringLiteral("Controlli"), this);
    mnuControlli->setObjectName(QStringLiteral("mnuControlli"));

    mnuAllinea = Sottomenu("mnuAllinea", QStringLiteral("Allinea"));
    mnuAllineaAlto = Voce(mnuAllinea, "mnuAllineaAlto", QStringLiteral("In alto"),
                          [this] { PortaAlMinimo(Proprieta::Top); });
    mnuAllineaBasso = Voce(mnuAllinea, "mnuAllineaBasso", QStringLiteral("In basso"),
                           [this] { PortaAlMassimo(Proprieta::Top, Proprieta::Height); });
    mnuAllineaSinistra = Voce(mnuAllinea, "mnuAllineaSinistra", QStringLiteral("A sinistra"),
                              [this] { PortaAlMinimo(Proprieta::Left); });
    mnuAllineaDestra = Voce(mnuAllinea, "mnuAllineaDestra", QStringLiteral("A destra"),
                            [this] { PortaAlMassimo(Proprieta::Left, Proprieta::Width); });

    mnualtezza = Sottomenu("mnualtezza", QStringLiteral("Altezza"));
    mnuAUmentaAltezza10 = Voce(mnualtezza, "mnuAUmentaAltezza10", QStringLiteral("Aumenta di 10"),
                               [this] { CambiaDimensione(Proprieta::Height, 10); });
    mnuAUmentaAltezza50 = Voce(mnualtezza, "mnuAUmentaAltezza50", QStringLiteral("Aumenta di 50"),
                               [this] { CambiaDimensione(Proprieta::Height, 50); });
    mnuDiminuisciAltezza10 = Voce(mnualtezza, "mnuDiminuisciAltezza10", QStringLiteral("Diminuisci di 10"),
                                  [this] { CambiaDimensione(Proprieta::Height, -10); });
    mnuDiminuisciAltezza50 = Voce(mnualtezza, "mnuDiminuisciAltezza50", QStringLiteral("Diminuisci di 50"),
                                  [this] { CambiaDimensione(Proprieta::Height, -50); });

    mnularghezza = Sottomenu("mnularghezza", QStringLiteral("Larghezza"));
    mnuAumentaLarghezza10 = Voce(mnularghezza, "mnuAumentaLarghezza10", QStringLiteral("Aumenta di 10"),
                                 [this] { CambiaDimensione(Proprieta::Width, 10); });
    mnuAumentaLarghezza50 = Voce(mnularghezza, "mnuAumentaLarghezza50", QStringLiteral("Aumenta di 50"),
                                 [this] { CambiaDimensione(Proprieta::Width, 50); });
    mnuDiminuisciLarghezza10 =
        Voce(mnularghezza, "mnuDiminuisciLarghezza10", QStringLiteral("Diminuisci di 10"),
             [this] { CambiaDimensione(Proprieta::Width, -10); });
    mnuDiminuisciLarghezza50 =
        Voce(mnularghezza, "mnuDiminuisciLarghezza50", QStringLiteral("Diminuisci di 50"),
             [this] { CambiaDimensione(Proprieta::Width, -50); });

    mnuUguale = Sottomenu("mnuUguale", QStringLiteral("Uguale dimensione"));
    mnuUgualeAltezza = Voce(mnuUguale, "mnuUgualeAltezza", QStringLiteral("Altezza"),
                            [this] { PortaAlMinimo(Proprieta::Height); });
    mnuUgualeLarghezza = Voce(mnuUguale, "mnuUgualeLarghezza", QStringLiteral("Larghezza"),
                              [this] { PortaAlMinimo(Proprieta::Width); });
    mnuUgualeEntrambe = Voce(mnuUguale, "mnuUgualeEntrambe", QStringLiteral("Entrambe"), [this] {
        PortaAlMinimo(Proprieta::Height);
        PortaAlMinimo(Proprieta::Width);
    });

    mnuControlli->addSeparator();
    mnuSalva =
        Voce(mnuControlli, "mnuSalva", QStringLiteral("Salva disposizione"), [this] { mnuSalva_Click(); });
    mnuEsci = Voce(mnuControlli, "mnuEsci", QStringLiteral("Esci"), [this] { mnuEsci_Click(); });
}

void frmAnteprima::Form_Load() {
    m_salvato = true;
    EliminaTutteSelezioni();
    m_premuto = nullptr;
    m_trascinamento = false;
    m_sagoma->hide();
}

void frmAnteprima::ElementoCaricato(QWidget& elemento) {
    // Mouse events pass through to the form, which selects and drags; nothing takes the focus,
    // so keys reach the form too and nothing is typed or toggled.
    elemento.setAttribute(Qt::WA_TransparentForMouseEvents);
    elemento.setFocusPolicy(Qt::NoFocus);
    const QList<QWidget*> parti = elemento.findChildren<QWidget*>();
    for (QWidget* parte : parti)
        parte->setFocusPolicy(Qt::NoFocus);
    // A picture field shows no picture here; hatching marks the area it takes.
    if (qobject_cast<Immagine*>(&elemento)) {
        QPalette tavolozza = elemento.palette();
        tavolozza.setBrush(QPalette::Window, QBrush(tavolozza.color(QPalette::Mid), Qt::BDiagPattern));
        elemento.setPalette(tavolozza);
        elemento.setAutoFillBackground(true);
    }
}

QSize frmAnteprima::minimumSizeHint() const {
    return sizeHint().expandedTo(QSize(AmpiezzaMinima, AltezzaMinima));
}

void frmAnteprima::SelezionaControllo(QWidget& controllo) {
    const QString chiave = ChiaveControllo(controllo);
    if (m_selezione.contains(chiave))
        return;
    m_selezione.append(chiave);
    m_cornici.push_back(std::make_unique<CorniceSelezione>(controllo));
}

void frmAnteprima::EliminaTutteSelezioni() {
    m_selezione.clear();
    m_cornici.clear();
}

void frmAnteprima::SalvaDisposizione() {
    // A whole layout or none: a failure half-way leaves campi as it was.
    Transazione transazione(Database());
    const QString collezione = Numero(IdCollezione);
    for (const QWidget* controllo : ControlliCampo()) {
        if (controllo->isHidden())
            continue;
        const qint32 idCampo = IdCampo(IdCollezione, ChiaveControllo(*controllo));
        if (idCampo == 0)
            continue;
        Database().Esegui(QStringLiteral("update [campi] set [left]=") + Numero(controllo->x()) +
                          QStringLiteral(", [top]=") + Numero(controllo->y()) +
                          QStringLiteral(", [height]=") + Numero(controllo->height()) +
                          QStringLiteral(", [width]=") + Numero(controllo->width()) +
                          QStringLiteral(" where id=") + Numero(idCampo) +
                          QStringLiteral(" and id_collezione=") + collezione);
    }
    transazione.Conferma();
}

bool frmAnteprima::isControlloSelezionato(const QString& chiave) const {
    return m_selezione.contains(chiave);
}

void frmAnteprima::SpostaEtichettaControllo(const QWidget& controllo) {
    const QString chiave = ChiaveControllo(controllo);
    const QString etichette = Label1.Nome() + QLatin1Char('(');
    for (QWidget* elemento : Elementi()) {
        if (elemento->objectName().startsWith(etichette) && elemento->property("Tag").toString() == chiave) {
            elemento->move(controllo.x(), controllo.y() - DistanzaEtichetta);
            break;
        }
    }
    // The form grows to hold a control moved or widened past its edge.
    updateGeometry();
}

int frmAnteprima::Leggi(const QWidget& controllo, Proprieta proprieta) {
    return Geometria(controllo).at(static_cast<std::size_t>(proprieta));
}

void frmAnteprima::Scrivi(QWidget& controllo, Proprieta proprieta, int valore) {
    static const char* const nomi[] = {"Left", "Top", "Width", "Height"};
    const auto indice = static_cast<std::size_t>(proprieta);
    if (valore < 0 || valore > MassimoCoordinata)
        throw std::runtime_error(QStringLiteral("Valore non valido per la proprietà %1 del controllo: %2 "
                                                "(ammessi i valori da 0 a %3).")
                                     .arg(QLatin1String(nomi[indice]))
                                     .arg(valore)
                                     .arg(MassimoCoordinata)
                                     .toLocal8Bit()
                                     .toStdString());
    std::array<int, 4> geometria = Geometria(controllo);
    geometria.at(indice) = valore;
    controllo.setGeometry(geometria[0], geometria[1], geometria[2], geometria[3]);
}

QList<QWidget*> frmAnteprima::Selezionati(bool soloVisibili) const {
    QList<QWidget*> selezionati;
    for (QWidget* controllo : ControlliCampo())
        if (isControlloSelezionato(ChiaveControllo(*controllo)) && !(soloVisibili && controllo->isHidden()))
            selezionati.append(controllo);
    return selezionati;
}

// Every command that changes the layout counts as a change, even with nothing selected.

void frmAnteprima::CambiaDimensione(Proprieta dimensione, int passo) {
    m_salvato = false;
    for (QWidget* controllo : Selezionati(true)) {
        Scrivi(*controllo, dimensione, Leggi(*controllo, dimensione) + passo);
        SpostaEtichettaControllo(*controllo);
    }
}

void frmAnteprima::PortaAlMinimo(Proprieta proprieta) {
    m_salvato = false;
    int riferimento = Sentinella;
    for (const QWidget* controllo : Selezionati(true))
        riferimento = qMin(riferimento, Leggi(*controllo, proprieta));
    if (riferimento == Sentinella)
        return;
    for (QWidget* controllo : Selezionati(false)) {
        Scrivi(*controllo, proprieta, riferimento);
        SpostaEtichettaControllo(*controllo);
    }
}

// The far edge (bottom or right) of every selected control goes to the farthest one.
void frmAnteprima::PortaAlMassimo(Proprieta posizione, Proprieta dimensione) {
    m_salvato = false;
    int riferimento = 0;
    for (const QWidget* controllo : Selezionati(true))
        riferimento = qMax(riferimento, Leggi(*controllo, posizione) + Leggi(*controllo, dimensione));
    for (QWidget* controllo : Selezionati(false)) {
        Scrivi(*controllo, posizione, riferimento - Leggi(*controllo, dimensione));
        SpostaEtichettaControllo(*controllo);
    }
}

void frmAnteprima::Form_DragDrop(QWidget& sorgente, QPoint punto) {
    m_salvato = false;
    // A drop near the left or top edge keeps the control on the form.
    Scrivi(sorgente, Proprieta::Left, qBound(0, punto.x() - sorgente.width() / 2, MassimoCoordinata));
    Scrivi(sorgente, Proprieta::Top, qBound(0, punto.y() - sorgente.height() / 2, MassimoCoordinata));
    SpostaEtichettaControllo(sorgente);
    EliminaTutteSelezioni();
    SelezionaControllo(sorgente);
}

void frmAnteprima::Form_QueryUnload() {
    if (m_salvato)
        return;
    const Risposta risposta = MsgBox(QStringLiteral("La disposizione dei Controlli è stata cambiata.\r\n"
                                                    "Si desidera salvare le modifiche prima di chiudere?"),
                                     Pulsanti::SiNo, Icona::Nessuna, QStringLiteral("Salvare le modifiche?"));
    if (risposta == Risposta::Si)
        SalvaDisposizione();
}

void frmAnteprima::mnuSalva_Click() {
    SalvaDisposizione();
    m_salvato = true;
}

void frmAnteprima::mnuEsci_Click() {
    window()->close();
}

// The topmost field control at a point of the form: the one created last.
QWidget* frmAnteprima::ControlloIn(QPoint punto) const {
    const QList<QWidget*>& controlli = ControlliCampo();
    for (auto controllo = controlli.crbegin(); controllo != controlli.crend(); ++controllo)
        if (!(*controllo)->isHidden() && (*controllo)->geometry().contains(punto))
            return *controllo;
    return nullptr;
}

void frmAnteprima::mousePressEvent(QMouseEvent* evento) {
    if (evento->button() == Qt::LeftButton) {
        m_premuto = ControlloIn(evento->position().toPoint());
        m_puntoPremuto = evento->position().toPoint();
        m_trascinamento = false;
    }
    evento->accept();
}

void frmAnteprima::mouseMoveEvent(QMouseEvent* evento) {
    evento->accept();
    if (!m_premuto || !(evento->buttons() & Qt::LeftButton))
        return;
    const QPoint punto = evento->position().toPoint();
    if (!m_trascinamento) {
        // A hand that shakes while clicking only selects.
        if ((punto - m_puntoPremuto).manhattanLength() < QApplication::startDragDistance())
            return;
        IniziaTrascinamento();
    }
    m_sagoma->move(punto.x() - m_sagoma->width() / 2, punto.y() - m_sagoma->height() / 2);
}

// The pointer jumps to the control's centre, so that where it is let go is where the control's
// centre lands.
void frmAnteprima::IniziaTrascinamento() {
    m_trascinamento = true;
    const QRect schermo(m_premuto->mapToGlobal(QPoint(0, 0)), m_premuto->size());
    QCursor::setPos((schermo.left() + schermo.left() + schermo.width()) / 2,
                    (schermo.top() + schermo.top() + schermo.height()) / 2);
    m_sagoma->setGeometry(m_premuto->geometry());
    m_sagoma->show();
    m_sagoma->raise();
}

void frmAnteprima::mouseReleaseEvent(QMouseEvent* evento) {
    evento->accept();
    const QPoint punto = evento->position().toPoint();
    if (evento->button() == Qt::LeftButton)
        EseguiProtetto([&] { RilascioSinistro(punto, evento->modifiers()); });
    else if (evento->button() == Qt::RightButton)
        mnuControlli->popup(mapToGlobal(punto));
}

void frmAnteprima::RilascioSinistro(QPoint punto, Qt::KeyboardModifiers tasti) {
    QWidget* controllo = m_premuto;
    m_premuto = nullptr;
    m_sagoma->hide();
    if (std::exchange(m_trascinamento, false)) {
        // Let go outside the form, the drag ends with nothing dropped.
        if (controllo && rect().contains(punto))
            Form_DragDrop(*controllo, punto);
    } else if (controllo) {
        if (!(tasti & Qt::ControlModifier))
            EliminaTutteSelezioni();
        SelezionaControllo(*controllo);
    } else {
        EliminaTutteSelezioni();
    }
}

void frmAnteprima::keyReleaseEvent(QKeyEvent* evento) {
    const int passo = evento->key() == Qt::Key_Plus ? Passo : evento->key() == Qt::Key_Minus ? -Passo : 0;
    const Qt::KeyboardModifiers tasti = evento->modifiers() & ~Qt::KeypadModifier;
    if (passo == 0 || !(evento->modifiers() & Qt::KeypadModifier)) {
        FinestraControlli::keyReleaseEvent(evento);
        return;
    }
    if (tasti == Qt::ControlModifier)
        EseguiProtetto([&] { CambiaDimensione(Proprieta::Width, passo); });
    else if (tasti == Qt::AltModifier)
        EseguiProtetto([&] { CambiaDimensione(Proprieta::Height, passo); });
}
