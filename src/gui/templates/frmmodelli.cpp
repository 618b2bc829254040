#include "frmmodelli.h"

#include "confine.h"
#include "dialogofile.h"
#include "fileprofilo.h"
#include "formatomodello.h"
#include "iconamodello.h"
#include "interazione.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace {

const QString Suggerimento =
    QStringLiteral("\r\nAltri modelli li puoi trovare liberamente scaricabili da Internet");

QString NomeModello(const QString& file) {
    return LeggiIni(FormatoModello::Tabella, QStringLiteral("nome"), file);
}

QPushButton* Pulsante(const QString& testo, const char* nome) {
    auto* pulsante = new QPushButton(testo);
    pulsante->setObjectName(QLatin1String(nome));
    return pulsante;
}

// Copies over a file already there; false when the copy did not happen.
bool Copia(const QString& origine, const QString& destinazione) {
    if (QFileInfo(origine).canonicalFilePath() == QFileInfo(destinazione).canonicalFilePath())
        return true;
    QFile::remove(destinazione);
    return QFile::copy(origine, destinazione);
}

} // namespace

frmModelli& CaricaFrmModelli(QWidget* proprietario) {
    static QPointer<frmModelli> galleria;
    if (!galleria)
        galleria = new frmModelli(proprietario);
    return *galleria;
}

frmModelli::frmModelli(QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("frmModelli"));
    setWindowTitle(QStringLiteral("Modelli disponibili..."));
    CreaControlli();
    CollegaEventi();
    CaricaElenco();
    resize(520, 400);
}

void frmModelli::CreaControlli() {
    Lv1 = new QListWidget;
    Lv1->setObjectName(QStringLiteral("Lv1"));
    Lv1->setViewMode(QListView::IconMode);
    Lv1->setIconSize(QSize(48, 48));
    Lv1->setGridSize(QSize(116, 96));
    Lv1->setMovement(QListView::Static);
    Lv1->setResizeMode(QListView::Adjust);
    Lv1->setWordWrap(true);
    Lv1->setTextElideMode(Qt::ElideMiddle); // a long file name keeps its start and its extension
    Lv1->setSelectionMode(QAbstractItemView::SingleSelection);
    lblDescrizione = new QLabel(Suggerimento);
    lblDescrizione->setObjectName(QStringLiteral("lblDescrizione"));
    lblDescrizione->setWordWrap(true);
    lblDescrizione->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lblDescrizione->setFrameShape(QFrame::StyledPanel);
    lblDescrizione->setMinimumHeight(3 * fontMetrics().lineSpacing() + 8);
    lblDescrizione->setMargin(4);
    cmdImporta = Pulsante(QStringLiteral("Importa"), "cmdImporta");
    cmdImporta->setToolTip(QStringLiteral("Hai scaricato un Modello da Internet? Clicca Qui per Importarlo"));
    OKButton = Pulsante(QStringLiteral("OK"), "OKButton");
    OKButton->setDefault(true);
    CancelButton = Pulsante(QStringLiteral("Annulla"), "CancelButton");

    auto* bottoni = new QHBoxLayout;
    bottoni->addWidget(cmdImporta);
    bottoni->addStretch();
    bottoni->addWidget(OKButton);
    bottoni->addWidget(CancelButton);
    auto* finestra = new QVBoxLayout(this);
    finestra->addWidget(Lv1, 1);
    finestra->addWidget(lblDescrizione);
    finestra->addLayout(bottoni);
}

void frmModelli::CollegaEventi() {
    connect(Lv1, &QListWidget::itemSelectionChanged, this, Protetto([this] { Lv1_Click(); }));
    connect(Lv1, &QListWidget::itemDoubleClicked, this, Protetto([this] { Lv1_DblClick(); }));
    connect(cmdImporta, &QPushButton::clicked, this, Protetto([this] { cmdImporta_Click(); }));
    connect(OKButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(CancelButton, &QPushButton::clicked, this, &frmModelli::reject);
    Lv1->installEventFilter(this);
}

void frmModelli::CaricaElenco() {
    FileModelloDaImportare.clear();
    const QDir cartella(CartellaModelli());
    const QStringList file =
        cartella.entryList({QStringLiteral("*.wzd")}, QDir::Files, QDir::Name | QDir::IgnoreCase);
    for (const QString& nomeFile : file) {
        const QString percorso = CartellaModelli() + QDir::separator() + nomeFile;
        const QString nome = NomeModello(percorso);
        AggiungiVoce(nome.isEmpty() ? nomeFile : nome, percorso, !nome.isEmpty());
    }
}

void frmModelli::AggiungiVoce(const QString& testo, const QString& percorso, bool conIcona) {
    auto* voce = new QListWidgetItem(testo, Lv1);
    voce->setIcon(conIcona ? IconaModello() : IconaVuota());
    voce->setData(Qt::UserRole, percorso);
    // A caption too long for its cell is cut: the tip shows it whole, with the file it comes from.
    voce->setToolTip(testo + QLatin1Char('\n') + percorso);
}

QListWidgetItem* frmModelli::Selezionato() const {
    const QList<QListWidgetItem*> selezionati = Lv1->selectedItems();
    return selezionati.isEmpty() ? nullptr : selezionati.constFirst();
}

void frmModelli::Lv1_Click() {
    const QListWidgetItem* voce = Selezionato();
    if (!voce)
        return;
    FileModelloDaImportare = voce->data(Qt::UserRole).toString();
    lblDescrizione->setText(
        LeggiIni(FormatoModello::Tabella, QStringLiteral("descrizione"), FileModelloDaImportare));
}

void frmModelli::Lv1_DblClick() {
    const QListWidgetItem* voce = Selezionato();
    if (!voce)
        return;
    FileModelloDaImportare = voce->data(Qt::UserRole).toString();
    accept();
}

void frmModelli::reject() {
    FileModelloDaImportare.clear();
    // A selection left in view would look like a choice the next time the gallery shows.
    Lv1->clearSelection();
    QDialog::reject();
}

bool frmModelli::eventFilter(QObject* oggetto, QEvent* evento) {
    if (oggetto == Lv1 && evento->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(evento)->key() == Qt::Key_Delete) {
        EseguiProtetto([this] { Lv1_Elimina(); });
        return true;
    }
    return QDialog::eventFilter(oggetto, evento);
}

// The choice is left as it is: a template chosen and then deleted is still chosen.
void frmModelli::Lv1_Elimina() {
    QListWidgetItem* voce = Selezionato();
    if (!voce)
        return;
    if (MsgBox(QStringLiteral("Eliminare definitivamente il Modello Corrente?"), Pulsanti::SiNo,
               Icona::Domanda, {}, 2) != Risposta::Si)
        return;
    const QString percorso = voce->data(Qt::UserRole).toString();
    if (!QFile::remove(percorso) && QFileInfo::exists(percorso)) {
        MsgBox(QStringLiteral("Impossibile eliminare il file \"") + percorso + QStringLiteral("\"."));
        return;
    }
    // No neighbour becomes selected, and so chosen, in its place.
    const QSignalBlocker blocco(Lv1);
    delete voce;
    Lv1->clearSelection();
}

void frmModelli::cmdImporta_Click() {
    const QString scelto =
        DialogoFile(this, 1, QStringLiteral("Importa Modello..."), QString(),
                    QStringLiteral("File Modello") + QChar(u'\0') + QStringLiteral("*.wzd"),
                    QDir::currentPath(), QStringLiteral("wzd"));
    if (scelto.isEmpty())
        return;
    const QString nome = NomeModello(scelto);
    if (nome.isEmpty()) {
        MsgBox(QStringLiteral("Modello non valido! Nome collezione non specificato"));
        return;
    }
    const qsizetype barra = std::max(scelto.lastIndexOf(u'/'), scelto.lastIndexOf(u'\\'));
    // The next open dialog starts in the folder this one came from.
    QDir::setCurrent(scelto.left(barra + 1));
    QDir().mkpath(CartellaModelli());
    const QString destinazione = DestinazioneModello(scelto.mid(barra + 1));
    if (!Copia(scelto, destinazione)) {
        MsgBox(QStringLiteral("Impossibile copiare il Modello in \"") + destinazione + QStringLiteral("\"."));
        return;
    }
    AggiungiVoce(nome, destinazione, true);
}
