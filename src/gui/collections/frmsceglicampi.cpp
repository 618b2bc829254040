#include "frmsceglicampi.h"

#include "archivio.h"
#include "confine.h"
#include "disposizionedialogo.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLinearGradient>
#include <QListWidget>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTextEdit>
#include <QVBoxLayout>
#include <algorithm>
#include <memory>

namespace {

constexpr QSize DimensioneAnteprima(260, 170);

QPixmap Paesaggio(const QSize& dimensione) {
    QPixmap immagine(dimensione);
    QPainter pittore(&immagine);
    pittore.setRenderHint(QPainter::Antialiasing);
    QLinearGradient cielo(0, 0, 0, dimensione.height());
    cielo.setColorAt(0, QColor(96, 156, 222));
    cielo.setColorAt(1, QColor(205, 228, 246));
    pittore.fillRect(immagine.rect(), cielo);
    pittore.setPen(Qt::NoPen);
    pittore.setBrush(QColor(255, 214, 84));
    pittore.drawEllipse(QPointF(dimensione.width() * 0.75, dimensione.height() * 0.28), 14, 14);
    QPainterPath colline;
    colline.moveTo(0, dimensione.height());
    colline.lineTo(0, dimensione.height() * 0.62);
    colline.quadTo(dimensione.width() * 0.3, dimensione.height() * 0.35, dimensione.width() * 0.55,
                   dimensione.height() * 0.66);
    colline.quadTo(dimensione.width() * 0.8, dimensione.height() * 0.5, dimensione.width(),
                   dimensione.height() * 0.6);
    colline.lineTo(dimensione.width(), dimensione.height());
    pittore.setBrush(QColor(76, 140, 74));
    pittore.drawPath(colline);
    return immagine;
}

QWidget* Esempio(int indice) {
    switch (indice) {
    case 0:
        return new QLineEdit(QStringLiteral("Il nome della rosa"));
    case 1: {
        auto* combo = new QComboBox;
        combo->addItems(
            {QStringLiteral("Romanzo storico"), QStringLiteral("Saggio"), QStringLiteral("Poesia")});
        return combo;
    }
    case 2: {
        auto* casella = new QCheckBox(QStringLiteral("Prima edizione"));
        casella->setChecked(true);
        return casella;
    }
    case 3: {
        auto* cursore = new QSlider(Qt::Horizontal);
        cursore->setRange(1, 10);
        cursore->setValue(7);
        cursore->setTickPosition(QSlider::TicksBelow);
        cursore->setTickInterval(1);
        return cursore;
    }
    case 4:
        return new QTextEdit(QStringLiteral("Acquistato a una fiera del libro usato.\nCopertina leggermente "
                                            "rovinata, pagine in ottimo stato."));
    case 5: {
        auto* lista = new QListWidget;
        lista->addItems({QStringLiteral("Ottima"), QStringLiteral("Buona"), QStringLiteral("Discreta")});
        lista->setCurrentRow(1);
        return lista;
    }
    default:
        break;
    }
    auto* cornice = new QLabel;
    cornice->setFrameShape(QFrame::Box);
    cornice->setPixmap(Paesaggio({140, 90}));
    cornice->setFixedSize(142, 92);
    return cornice;
}

QString EtichettaEsempio(int indice) {
    static const std::array<QString, 7> etichette{
        QStringLiteral("Titolo:"),      QStringLiteral("Genere:"), QString(),
        QStringLiteral("Valutazione:"), QStringLiteral("Note:"),   QStringLiteral("Condizione:"),
        QStringLiteral("Copertina:")};
    return etichette.at(static_cast<std::size_t>(indice));
}

// The control drawn as it looks on a record form, with its label above it (a checkbox has none).
QPixmap Anteprima(int indice) {
    auto pannello = std::make_unique<QWidget>();
    pannello->setAttribute(Qt::WA_DontShowOnScreen);
    auto* colonna = new QVBoxLayout(pannello.get());
    colonna->setContentsMargins(16, 16, 16, 16);
    if (!EtichettaEsempio(indice).isEmpty())
        colonna->addWidget(new QLabel(EtichettaEsempio(indice)));
    colonna->addWidget(Esempio(indice));
    if (indice != 4 && indice != 5)
        colonna->addStretch();
    pannello->setFixedSize(DimensioneAnteprima);
    pannello->show();
    // Drawn without the window background, so the preview sits on the dialog's own.
    QPixmap immagine(pannello->size() * pannello->devicePixelRatio());
    immagine.setDevicePixelRatio(pannello->devicePixelRatio());
    immagine.fill(Qt::transparent);
    pannello->render(&immagine, {}, {}, QWidget::DrawChildren);
    return immagine;
}

QString TestoOpzione(int indice) {
    static const std::array<QString, 7> testi{QStringLiteral("&1. Casella di testo (textbox)"),
                                              QStringLiteral("&2. Casella combinata (combo)"),
                                              QStringLiteral("&3. Casella di controllo (checkbox)"),
                                              QStringLiteral("&4. Dispositivo di scorrimento (slider)"),
                                              QStringLiteral("&5. Testo su più righe (memo)"),
                                              QStringLiteral("&6. Elenco (list)"),
                                              QStringLiteral("&7. Immagine (image)")};
    return testi.at(static_cast<std::size_t>(indice));
}

} // namespace

FrmScegliCampi::FrmScegliCampi(QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("FrmScegliCampi"));
    setWindowTitle(QStringLiteral(
        "Scegli il tipo di Controllo preferito per rappresentare il nuovo Campo (scegli tra 1 e 7)"));

    auto* contenuto = new QHBoxLayout;
    contenuto->addWidget(CreaOpzioni());
    contenuto->addWidget(CreaAnteprime(), 1);
    const PulsantiDialogo pulsanti = DisponiDialogo(*this, contenuto, QStringLiteral("SCEGLI"));
    cmdSCEGLI = pulsanti.conferma;
    cmdANNULLA = pulsanti.annulla;

    connect(cmdSCEGLI, &QPushButton::clicked, this, Protetto([this] { cmdSCEGLI_Click(); }));
    connect(cmdANNULLA, &QPushButton::clicked, this, Protetto([this] { reject(); }));
    // The window is wide enough for its whole caption, in the title bar's bolder font, with room
    // for the icon and the title bar's buttons.
    QFont titolo = font();
    titolo.setBold(true);
    const int perTitolo = QFontMetrics(titolo).horizontalAdvance(windowTitle()) + 160;
    resize(std::max({640, perTitolo, sizeHint().width()}), sizeHint().height());
}

QWidget* FrmScegliCampi::CreaOpzioni() {
    auto* gruppo = new QGroupBox(QStringLiteral("Tipo di controllo"));
    auto* colonna = new QVBoxLayout(gruppo);
    const std::array<QRadioButton**, 7> opzioni{&Option1, &Option2, &Option3, &Option4,
                                                &Option5, &Option6, &Option7};
    for (int i = 0; i < static_cast<int>(opzioni.size()); ++i) {
        auto* opzione = new QRadioButton(TestoOpzione(i));
        opzione->setObjectName(QStringLiteral("Option%1").arg(i + 1));
        colonna->addWidget(opzione);
        *opzioni.at(static_cast<std::size_t>(i)) = opzione;
        connect(opzione, &QRadioButton::toggled, this, [this, i](bool scelta) {
            if (scelta)
                MostraAnteprima(i);
        });
    }
    colonna->addStretch();
    return gruppo;
}

std::array<QRadioButton*, 7> FrmScegliCampi::Opzioni() const {
    return {Option1, Option2, Option3, Option4, Option5, Option6, Option7};
}

QWidget* FrmScegliCampi::CreaAnteprime() {
    auto* gruppo = new QGroupBox(QStringLiteral("Anteprima"));
    auto* griglia = new QGridLayout(gruppo);
    m_suggerimento = new QLabel(QStringLiteral("Scegli un tipo di controllo per vederne qui l'aspetto."));
    m_suggerimento->setWordWrap(true);
    m_suggerimento->setAlignment(Qt::AlignCenter);
    m_suggerimento->setMinimumSize(DimensioneAnteprima);
    griglia->addWidget(m_suggerimento, 0, 0);
    for (int i = 0; i < static_cast<int>(Pic1.size()); ++i) {
        auto* immagine = new QLabel;
        immagine->setObjectName(QStringLiteral("Pic1(%1)").arg(i));
        immagine->setPixmap(Anteprima(i));
        immagine->setAlignment(Qt::AlignCenter);
        immagine->hide();
        griglia->addWidget(immagine, 0, 0);
        Pic1.at(static_cast<std::size_t>(i)) = immagine;
    }
    return gruppo;
}

void FrmScegliCampi::MostraAnteprima(int indice) {
    m_suggerimento->hide();
    for (int i = 0; i < static_cast<int>(Pic1.size()); ++i)
        Pic1.at(static_cast<std::size_t>(i))->setVisible(i == indice);
}

void FrmScegliCampi::cmdSCEGLI_Click() {
    const auto opzioni = Opzioni();
    for (std::size_t i = 0; i < opzioni.size(); ++i) {
        if (opzioni.at(i)->isChecked()) {
            m_risultato = ControlTypes().at(static_cast<qsizetype>(i));
            break;
        }
    }
    // With no option set the result stays as it was: on a fresh dialog, empty, the same as cancelling.
    done(m_risultato.isEmpty() ? Rejected : Accepted);
}

void FrmScegliCampi::reject() {
    m_risultato.clear();
    QDialog::reject();
}
