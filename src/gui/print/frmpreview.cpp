#include "frmpreview.h"

#include "casellafigura.h"
#include "confine.h"
#include "interazione.h"
#include "routinesql.h"
#include "stampaschede.h"
#include "stampatabellare.h"
#include "superficiestampante.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QPrinter>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <cmath>

namespace {

QCheckBox* Casella(const char* nome, const QString& testo) {
    auto* casella = new QCheckBox(testo);
    casella->setObjectName(QLatin1String(nome));
    return casella;
}

QPushButton* Pulsante(const char* nome, const QString& testo) {
    auto* pulsante = new QPushButton(testo);
    pulsante->setObjectName(QLatin1String(nome));
    pulsante->setAutoDefault(false);
    return pulsante;
}

} // namespace

frmPreview::frmPreview(QWidget* parent)
    : QDialog(parent)
    , m_stampante(std::make_unique<QPrinter>(QPrinter::HighResolution)) {
    setObjectName(QStringLiteral("frmPreview"));
    setWindowTitle(QStringLiteral("Anteprima di Stampa..."));
    CreaControlli();
    CollegaEventi();
    AdattaPagina();
    resize(Pic1->width() + 90, 780);
}

frmPreview::~frmPreview() = default;

void frmPreview::CreaControlli() {
    Immagini = Casella("Immagini", QStringLiteral("Stampa Immagini"));
    NumeroRecord = Casella("NumeroRecord", QStringLiteral("Stampa Numero Record"));
    Tabulare = Casella("Tabulare", QStringLiteral("Stampa Tabulare"));
    Immagini->setChecked(true);
    NumeroRecord->setChecked(true);
    auto* opzioni = new QHBoxLayout;
    for (QCheckBox* casella : {Immagini, NumeroRecord, Tabulare})
        opzioni->addWidget(casella);
    opzioni->addStretch();

    // The sheet lies on a dark desk with a border of it all around.
    Pic1 = new CasellaFigura;
    auto* tavolo = new QWidget;
    auto* bordo = new QVBoxLayout(tavolo);
    bordo->setContentsMargins(16, 16, 16, 16);
    bordo->addWidget(Pic1, 0, Qt::AlignHCenter);
    Scorrimento = new QScrollArea;
    Scorrimento->setObjectName(QStringLiteral("Scorrimento"));
    Scorrimento->setBackgroundRole(QPalette::Dark);
    Scorrimento->setWidgetResizable(true);
    Scorrimento->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Scorrimento->setWidget(tavolo);
    Scorrimento->viewport()->installEventFilter(this);
    Sfoglia = new QScrollBar(Qt::Vertical);
    Sfoglia->setObjectName(QStringLiteral("Sfoglia"));
    Sfoglia->setRange(0, 0);
    auto* anteprima = new QHBoxLayout;
    anteprima->setSpacing(0);
    anteprima->addWidget(Scorrimento, 1);
    anteprima->addWidget(Sfoglia);

    cmdStampa = Pulsante("cmdStampa", QStringLiteral("STAMPA"));
    cmdImpostaStampante = Pulsante("cmdImpostaStampante", QStringLiteral("Imposta Stampante"));
    cmdAnnulla = Pulsante("cmdAnnulla", QStringLiteral("Annulla"));
    auto* pulsanti = new QHBoxLayout;
    pulsanti->addStretch();
    for (QPushButton* pulsante : {cmdStampa, cmdImpostaStampante, cmdAnnulla})
        pulsanti->addWidget(pulsante);

    auto* colonna = new QVBoxLayout(this);
    colonna->addLayout(opzioni);
    colonna->addLayout(anteprima, 1);
    colonna->addLayout(pulsanti);
}

void frmPreview::CollegaEventi() {
    connect(Immagini, &QCheckBox::clicked, this, Protetto([this] { Ridisegna(); }));
    connect(NumeroRecord, &QCheckBox::clicked, this, Protetto([this] { Ridisegna(); }));
    connect(Tabulare, &QCheckBox::clicked, this, Protetto([this] { Tabulare_Click(); }));
    connect(cmdStampa, &QPushButton::clicked, this, Protetto([this] { cmdStampa_Click(); }));
    connect(cmdImpostaStampante, &QPushButton::clicked, this,
            Protetto([this] { cmdImpostaStampante_Click(); }));
    connect(cmdAnnulla, &QPushButton::clicked, this, &QDialog::reject);
    connect(Sfoglia, &QScrollBar::valueChanged, this, Protetto([this] { Ridisegna(); }));
    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_End), this), &QShortcut::activated, this,
            [this] { Sfoglia->triggerAction(QAbstractSlider::SliderToMaximum); });
    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Home), this), &QShortcut::activated, this,
            [this] { Sfoglia->triggerAction(QAbstractSlider::SliderToMinimum); });
}

// The wheel over the sheet moves through the records.
bool frmPreview::eventFilter(QObject* oggetto, QEvent* evento) {
    if (oggetto == Scorrimento->viewport() && evento->type() == QEvent::Wheel) {
        QCoreApplication::sendEvent(Sfoglia, evento);
        return true;
    }
    return QDialog::eventFilter(oggetto, evento);
}

void frmPreview::AdattaPagina() {
    const QPageLayout pagina = m_stampante->pageLayout();
    const QRectF intera = pagina.fullRect(QPageLayout::Inch);
    const QRectF area = pagina.paintRect(QPageLayout::Inch);
    const double twip = Superficie::TwipPerPollice;
    Pic1->ImpostaPagina(intera.width() * twip, QMarginsF(area.left() * twip, area.top() * twip,
                                                         (intera.right() - area.right()) * twip, 0));
    const int altezza = static_cast<int>(std::ceil(intera.height() * twip / Superficie::TwipPerPixel));
    Pic1->setFixedHeight(altezza);
}

void frmPreview::Ridisegna() {
    Pic1->Cls();
    const qint32 primo = Sfoglia->value() + 1;
    const qint32 ultimo = Tabulare->isChecked() ? StampaTabellare(*Pic1, IdCollezione, primo)
                                                : StampaSchede(*Pic1, IdCollezione, Immagini->isChecked(),
                                                               NumeroRecord->isChecked(), primo);
    AggiornaSfoglia(primo, ultimo);
}

void frmPreview::AggiornaSfoglia(qint32 primo, qint32 ultimo) {
    const QSignalBlocker fermo(Sfoglia);
    Sfoglia->setRange(0, std::max(0, ContaRecord(IdCollezione) - 1));
    Sfoglia->setPageStep(std::max(1, ultimo - primo));
}

void frmPreview::Tabulare_Click() {
    const bool tabellare = Tabulare->isChecked();
    Immagini->setEnabled(!tabellare);
    NumeroRecord->setEnabled(!tabellare);
    Ridisegna();
}

void frmPreview::cmdStampa_Click() {
    SuperficieStampante stampante(*m_stampante);
    if (Tabulare->isChecked())
        StampaTabellare(stampante, IdCollezione);
    else
        StampaSchede(stampante, IdCollezione, Immagini->isChecked(), NumeroRecord->isChecked());
}

// A page of another size or orientation is drawn again at its own width.
void frmPreview::cmdImpostaStampante_Click() {
    if (!ImpostaStampante(*m_stampante))
        return;
    AdattaPagina();
    Ridisegna();
}
