#include "frmpreview.h"

#include "casellafigura.h"
#include "confine.h"
#include "interazione.h"
#include "stampaschede.h"
#include "stampatabellare.h"
#include "superficiestampante.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QPrinter>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
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
    Scorrimento->setWidget(tavolo);

    cmdStampa = Pulsante("cmdStampa", QStringLiteral("STAMPA"));
    cmdImpostaStampante = Pulsante("cmdImpostaStampante", QStringLiteral("Imposta Stampante"));
    cmdAnnulla = Pulsante("cmdAnnulla", QStringLiteral("Annulla"));
    auto* pulsanti = new QHBoxLayout;
    pulsanti->addStretch();
    for (QPushButton* pulsante : {cmdStampa, cmdImpostaStampante, cmdAnnulla})
        pulsanti->addWidget(pulsante);

    auto* colonna = new QVBoxLayout(this);
    colonna->addLayout(opzioni);
    colonna->addWidget(Scorrimento, 1);
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
    QScrollBar* barra = Scorrimento->verticalScrollBar();
    connect(barra, &QScrollBar::valueChanged, this, Protetto([this, barra](int valore) {
                if (valore > 0 && valore == barra->maximum() && Pic1->Piena())
                    Allunga();
            }));
}

void frmPreview::AdattaPagina() {
    const QPageLayout pagina = m_stampante->pageLayout();
    const QRectF intera = pagina.fullRect(QPageLayout::Inch);
    const QRectF area = pagina.paintRect(QPageLayout::Inch);
    const double twip = Superficie::TwipPerPollice;
    Pic1->ImpostaPagina(intera.width() * twip, QMarginsF(area.left() * twip, area.top() * twip,
                                                         (intera.right() - area.right()) * twip, 0));
    const int altezza = static_cast<int>(std::ceil(intera.height() * twip / Superficie::TwipPerPixel));
    Pic1->setFixedHeight(std::max(Pic1->height(), altezza));
}

void frmPreview::Ridisegna() {
    Pic1->Cls();
    if (Tabulare->isChecked())
        StampaTabellare(*Pic1, IdCollezione);
    else
        StampaSchede(*Pic1, IdCollezione, Immagini->isChecked(), NumeroRecord->isChecked());
}

void frmPreview::Allunga() {
    if (Pic1->height() > QWIDGETSIZE_MAX / 2)
        return;
    Pic1->setFixedHeight(Pic1->height() * 2);
    Ridisegna();
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
