#include "frmproprietacontrollo.h"

#include "confine.h"
#include "confrontotesto.h"
#include "disposizionedialogo.h"
#include "elencoproprieta.h"
#include "interazione.h"
#include "numeri.h"

#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <QtNumeric>
#include <limits>
#include <stdexcept>

namespace {

// The defaults are worked out in 16-bit integers: a count that does not fit is an overflow error,
// not a silently wrong position.
qint16 In16Bit(qsizetype valore) {
    if (valore > std::numeric_limits<qint16>::max())
        throw std::overflow_error("Overflow");
    return static_cast<qint16>(valore);
}

qint16 Somma16(qint16 a, qint16 b) {
    qint16 risultato = 0;
    if (qAddOverflow(a, b, &risultato))
        throw std::overflow_error("Overflow");
    return risultato;
}

qint16 Prodotto16(qint16 a, qint16 b) {
    qint16 risultato = 0;
    if (qMulOverflow(a, b, &risultato))
        throw std::overflow_error("Overflow");
    return risultato;
}

struct Special {
    QString valore;
    QString descrizione;
};

Special SpecialDelTipo(const QString& tipo) {
    const QString elementi = QStringLiteral("Elemento1|Elemento2|Elemento3");
    const QString prefisso = QStringLiteral("Per questo tipo di controllo la proprietà Special consente di ");
    if (tipo == QLatin1String("slider"))
        return {QStringLiteral("1|10"),
                prefisso + QStringLiteral("impostare il valore minimo e quello massimo dello "
                                          "Slider (i due valori vanno separati dal carattere | )")};
    if (tipo == QLatin1String("list"))
        return {elementi,
                prefisso + QStringLiteral("impostare gli elementi facenti parte della lista (gli elementi "
                                          "vanno separati dal carattere | )")};
    if (tipo == QLatin1String("combo"))
        return {elementi,
                prefisso + QStringLiteral("impostare gli elementi facenti parte della lista a discesa (gli "
                                          "elementi vanno separati dal carattere | )")};
    if (tipo == QLatin1String("image"))
        return {QStringLiteral("TRUE"),
                prefisso + QStringLiteral(
                               "specificare se l'immagine deve o meno essere automaticamente ridimensionata "
                               "a seconda della dimensione del controllo contenitore (valore consigliato "
                               "TRUE)")};
    return {};
}

} // namespace

frmProprietaControllo::frmProprietaControllo(const QString& tipo, const QStringList& campiElencati,
                                             QWidget* parent)
    : QDialog(parent)
    , m_campiElencati(campiElencati) {
    setObjectName(QStringLiteral("frmProprietaControllo"));
    setWindowTitle(QStringLiteral("Definisci le proprietà del Controllo..."));
    CreaControlli();
    CaricaRighe(tipo);
    resize(680, 380);
}

void frmProprietaControllo::CreaControlli() {
    LV1 = new QTreeWidget;
    LV1->setObjectName(QStringLiteral("LV1"));
    PreparaElencoProprieta(
        *LV1, [this](int riga, const QString& testo) { FineModifica(LV1->topLevelItem(riga), testo); });
    LV1->setEditTriggers(QAbstractItemView::EditKeyPressed);

    Text1 = new QPlainTextEdit;
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setReadOnly(true);
    Text1->setPlainText(
        QStringLiteral("Seleziona una proprietà dalla Lista qui a fianco per visualizzare in questa "
                       "casella la relativa spiegazione\n"));

    auto* contenuto = new QHBoxLayout;
    contenuto->addWidget(LV1, 3);
    contenuto->addWidget(Text1, 2);
    const PulsantiDialogo pulsanti = DisponiDialogo(*this, contenuto, QStringLiteral("CONFERMA"));
    cmdSCEGLI = pulsanti.conferma;
    cmdANNULLA = pulsanti.annulla;

    connect(LV1, &QTreeWidget::itemClicked, this, Protetto([this](QTreeWidgetItem* riga, int) {
                MostraDescrizione(riga);
                LV1->editItem(riga, 0);
            }));
    connect(cmdSCEGLI, &QPushButton::clicked, this, Protetto([this] { cmdSCEGLI_Click(); }));
    connect(cmdANNULLA, &QPushButton::clicked, this, Protetto([this] { reject(); }));
}

void frmProprietaControllo::CaricaRighe(const QString& tipo) {
    LV1->clear();
    if (tipo.isEmpty())
        return;
    const qint16 numero = Somma16(In16Bit(m_campiElencati.size()), 1);
    const qint16 top = Somma16(Prodotto16(numero, 20), 50);
    AggiungiRiga(QStringLiteral("Nome"), QStringLiteral("Controllo") + QString::number(numero),
                 QStringLiteral("Il nome del Controllo che si desidera inserire"));
    AggiungiRiga(
        QStringLiteral("Tooltip"), {},
        QStringLiteral("Suggerimento. E' quel testo che viene visualizzato quando ti posizioni col mouse "
                       "sopra un controllo appositamente predisposto"));
    AggiungiRiga(
        QStringLiteral("Tabindex"), QStringLiteral("0"),
        QStringLiteral("Determina l'ordine in cui lo stato attivo si posiziona sul controllo quando viene "
                       "premuto il tasto TAB all'interno della finestra principale"));
    AggiungiRiga(QStringLiteral("Left"), QStringLiteral("20"),
                 QStringLiteral("Distanza (in pixel) del controllo dal bordo sinistro della finestra"));
    AggiungiRiga(QStringLiteral("Top"), QString::number(top),
                 QStringLiteral("Distanza (in pixel) del controllo dal bordo superiore della finestra"));
    AggiungiRiga(QStringLiteral("Height"), QStringLiteral("20"),
                 QStringLiteral("Altezza (in pixel) del controllo"));
    AggiungiRiga(QStringLiteral("Width"), QStringLiteral("200"),
                 QStringLiteral("Larghezza (in pixel) del controllo"));
    if (tipo == QLatin1String("textbox")) {
        AggiungiRiga(
            QStringLiteral("Formula"), {},
            QStringLiteral(
                "Campo di testo nel quale viene visualizzato un risultato di una formula matematica.\r\n"
                "Ad Es. se abbiamo già inserito un campo denominato IMPONIBILE possiamo utilizzare una "
                "formula per visualizzare in un altro campo il 20% del valore contenuto nel campo "
                "imponibile. In questo caso dobbiamo impostare il seguente valore:\r\n"
                "Imponibile X 20 / 100"));
        AggiungiRiga(
            QStringLiteral("Default"), {},
            QStringLiteral("Valore predefinito. Se non specifichi alcun valore in fase di inserimento dati "
                           "questo diverrà il valore del campo lasciato vuoto"));
        AggiungiRiga(
            QStringLiteral("required"), QStringLiteral("False"),
            QStringLiteral("Digitare TRUE oppure FALSE a seconda che l'utente sia o meno obbligato a "
                           "specificare un qualche valore all'interno del controllo in questione"));
    }
    if (tipo != QLatin1String("checkbox"))
        AggiungiRiga(
            QStringLiteral("Etichetta"), {},
            QStringLiteral("Impostando questo campo verrà apposta un'etichetta di testo immediatamente al di "
                           "sopra del controllo in questione che avrà ovviamente finalità esplicative"));
    const Special special = SpecialDelTipo(tipo);
    if (!special.descrizione.isEmpty())
        AggiungiRiga(QStringLiteral("Special"), special.valore, special.descrizione);
}

void frmProprietaControllo::AggiungiRiga(const QString& proprieta, const QString& valore,
                                         const QString& descrizione) {
    AggiungiProprieta(*LV1, valore, proprieta)->setData(0, RuoloTag, descrizione);
}

void frmProprietaControllo::MostraDescrizione(const QTreeWidgetItem* riga) {
    // Descriptions keep their CR LF line ends; the text box wants plain line feeds.
    Text1->setPlainText(
        riga->data(0, RuoloTag).toString().replace(QLatin1String("\r\n"), QLatin1String("\n")));
}

void frmProprietaControllo::FineModifica(QTreeWidgetItem* riga, const QString& nuovoTesto) {
    riga->setText(0, nuovoTesto);
    if (riga->text(1).toLower() != QLatin1String("nome"))
        return;
    // A new name gives the label its text, but never replaces a label the user has written.
    for (int i = 0; i < LV1->topLevelItemCount(); ++i) {
        QTreeWidgetItem* altra = LV1->topLevelItem(i);
        if (altra->text(1).toLower() == QLatin1String("etichetta") && altra->text(0).isEmpty())
            altra->setText(0, nuovoTesto + QLatin1Char(':'));
    }
}

void frmProprietaControllo::cmdSCEGLI_Click() {
    if (!Valida())
        return;
    Confermato = true;
    accept();
}

void frmProprietaControllo::reject() {
    Confermato = false;
    QDialog::reject();
}

bool frmProprietaControllo::Valida() {
    for (int i = 0; i < LV1->topLevelItemCount(); ++i) {
        QTreeWidgetItem* riga = LV1->topLevelItem(i);
        const QString proprieta = riga->text(1).toLower();
        if (ProprietaNumerica(proprieta) && !MisuraAmmessa(riga->text(0))) {
            MsgBox(QStringLiteral("Proprietà ") + riga->text(1).toUpper() + QStringLiteral(" non valida!"));
            LV1->setCurrentItem(riga);
            return false;
        }
        if (proprieta != QLatin1String("nome"))
            continue;
        // A name already in use is only pointed out: the user may keep it.
        for (const QString& campo : std::as_const(m_campiElencati)) {
            if (TestiUguali(campo, riga->text(0))) {
                MsgBox(QStringLiteral(
                    "Attenzione, hai specificato un valore come proprietà Nome già assegnato ad "
                    "un altro controllo!"));
                LV1->setCurrentItem(riga);
            }
        }
    }
    return true;
}
