#include "interazionereale.h"

#include "confine.h"
#include "fileinuso.h"
#include "iconepernome.h"

#include <QApplication>
#include <QColorDialog>
#include <QComboBox>
#include <QDesktopServices>
#include <QDialog>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPushButton>
#include <QScreen>
#include <QUrl>
#include <limits>

namespace {

QMessageBox::Icon IconaQt(Icona icona) {
    switch (icona) {
    case Icona::Critica:
        return QMessageBox::Critical;
    case Icona::Domanda:
        return QMessageBox::Question;
    case Icona::Esclamativa:
        return QMessageBox::Warning;
    case Icona::Informazione:
        return QMessageBox::Information;
    case Icona::Nessuna:
        break;
    }
    return QMessageBox::NoIcon;
}

QList<QPair<Risposta, QString>> Bottoni(Pulsanti pulsanti) {
    const QPair<Risposta, QString> ok{Risposta::Ok, QStringLiteral("OK")};
    const QPair<Risposta, QString> annulla{Risposta::Annulla, QStringLiteral("Annulla")};
    const QPair<Risposta, QString> si{Risposta::Si, QStringLiteral("&Sì")};
    const QPair<Risposta, QString> no{Risposta::No, QStringLiteral("&No")};
    switch (pulsanti) {
    case Pulsanti::OkAnnulla:
        return {ok, annulla};
    case Pulsanti::SiNo:
        return {si, no};
    case Pulsanti::SiNoAnnulla:
        return {si, no, annulla};
    case Pulsanti::Ok:
        break;
    }
    return {ok};
}

QMessageBox::ButtonRole Ruolo(Risposta risposta) {
    switch (risposta) {
    case Risposta::Si:
        return QMessageBox::YesRole;
    case Risposta::No:
        return QMessageBox::NoRole;
    case Risposta::Annulla:
        return QMessageBox::RejectRole;
    case Risposta::Ok:
        break;
    }
    return QMessageBox::AcceptRole;
}

// A modal window opens over the middle of the window it belongs to, as message boxes do, and
// wholly on the screen.
void CentraSullaFinestra(QDialog& finestra) {
    QWidget* sopra =
        finestra.parentWidget() ? finestra.parentWidget()->window() : QApplication::activeWindow();
    if (!finestra.testAttribute(Qt::WA_Resized))
        finestra.adjustSize();
    QScreen* schermo = sopra ? sopra->screen() : finestra.screen();
    const QRect libera = schermo->availableGeometry();
    const QRect riferimento = sopra ? sopra->frameGeometry() : libera;
    QRect posto(QPoint(), finestra.size().boundedTo(libera.size()));
    posto.moveCenter(riferimento.center());
    posto.moveLeft(std::clamp(posto.left(), libera.left(), libera.right() - posto.width()));
    posto.moveTop(std::clamp(posto.top(), libera.top(), libera.bottom() - posto.height()));
    finestra.resize(posto.size());
    finestra.move(posto.topLeft()); // a dialog is a top-level window: global coordinates
}

// The print dialog's browse button: a PDF beside the name shown, asked through the program's own
// file dialog; a file the program holds is refused. The PDF entry of the printer list comes last.
void SfogliaPdf(QDialog& dialogo, QLineEdit& nome, QComboBox& stampanti) {
    const QFileInfo attuale(nome.text());
    RichiestaFile richiesta;
    richiesta.proprietario = &dialogo;
    richiesta.apertura = false;
    richiesta.chiediSovrascrittura = false; // the print dialog asks when it is confirmed
    richiesta.titolo = QStringLiteral("Stampa su file...");
    richiesta.nomeFile = attuale.fileName();
    richiesta.filtri = {{QStringLiteral("File PDF"), QStringLiteral("*.pdf")},
                        {QStringLiteral("Tutti i files"), QStringLiteral("*.*")}};
    richiesta.cartellaIniziale = attuale.absolutePath();
    richiesta.estensione = QStringLiteral("pdf");
    const QString scelto = interazione().SceltaFile(richiesta);
    if (scelto.isEmpty())
        return;
    if (const QString rifiuto = RifiutoFileInUso(scelto, UsoFile::Scrittura); !rifiuto.isEmpty()) {
        ::MsgBox(rifiuto, Pulsanti::Ok, Icona::Esclamativa);
        return;
    }
    nome.setText(scelto);
    stampanti.setCurrentIndex(stampanti.count() - 1);
}

// The PDF file the print dialog writes is chosen with the program's own file dialog. The dialog's
// own browser and the completer of its name field would list files by opening them, and a typed name
// would be opened by the dialog's check before the program could refuse it.
void SceltaFileStampa(QPrintDialog& dialogo, IconePerNome& icone) {
    for (QFileSystemModel* modello : dialogo.findChildren<QFileSystemModel*>())
        modello->setIconProvider(&icone);
    auto* nome = dialogo.findChild<QLineEdit*>(QStringLiteral("filename"));
    auto* sfoglia = dialogo.findChild<QAbstractButton*>(QStringLiteral("fileBrowser"));
    auto* stampanti = dialogo.findChild<QComboBox*>(QStringLiteral("printers"));
    if (!nome || !sfoglia || !stampanti)
        return;
    nome->setCompleter(nullptr);
    nome->setReadOnly(true);
    QObject::disconnect(sfoglia, &QAbstractButton::clicked, nullptr, nullptr);
    QObject::connect(sfoglia, &QAbstractButton::clicked, &dialogo,
                     Protetto([&dialogo, nome, stampanti] { SfogliaPdf(dialogo, *nome, *stampanti); }));
}

} // namespace

Risposta InterazioneReale::MsgBox(const Messaggio& messaggio) {
    QMessageBox box(IconaQt(messaggio.icona), messaggio.titolo, messaggio.testo, QMessageBox::NoButton,
                    QApplication::activeWindow());
    const auto bottoni = Bottoni(messaggio.pulsanti);
    QList<QPair<QAbstractButton*, Risposta>> creati;
    for (const auto& [risposta, testo] : bottoni)
        creati.append({box.addButton(testo, Ruolo(risposta)), risposta});
    const int predefinito = std::clamp(messaggio.predefinito, 1, static_cast<int>(creati.size())) - 1;
    box.setDefaultButton(qobject_cast<QPushButton*>(creati.at(predefinito).first));
    box.exec();
    for (const auto& [bottone, risposta] : std::as_const(creati))
        if (box.clickedButton() == bottone)
            return risposta;
    // Closing the box by its frame answers as the last button would (Cancel, No or OK).
    return creati.last().second;
}

QString InterazioneReale::InputBox(const QString& prompt, const QString& titolo, const QString& predefinito) {
    QInputDialog dialogo(QApplication::activeWindow());
    dialogo.setWindowTitle(titolo);
    dialogo.setLabelText(prompt);
    // The answer, and the text offered, may be long: nothing typed, pasted or offered is cut.
    dialogo.setInputMode(QInputDialog::TextInput);
    if (auto* campo = dialogo.findChild<QLineEdit*>())
        campo->setMaxLength(std::numeric_limits<int>::max());
    dialogo.setTextValue(predefinito);
    dialogo.setOkButtonText(QStringLiteral("OK"));
    dialogo.setCancelButtonText(QStringLiteral("Annulla"));
    dialogo.resize(420, dialogo.sizeHint().height());
    return dialogo.exec() == QDialog::Accepted ? dialogo.textValue() : QString();
}

int InterazioneReale::MostraModale(QDialog& finestra) {
    CentraSullaFinestra(finestra);
    return finestra.exec();
}

bool InterazioneReale::ApriConShell(const QString& indirizzo) {
    return QDesktopServices::openUrl(QUrl::fromUserInput(indirizzo));
}

QString InterazioneReale::SceltaFile(const RichiestaFile& richiesta) {
    QWidget* proprietario = richiesta.proprietario ? richiesta.proprietario : QApplication::activeWindow();
    // Declared first, so it outlives the dialog's model, which asks it from a thread of its own.
    IconePerNome icone;
    QFileDialog dialogo(proprietario, richiesta.titolo, richiesta.cartellaIniziale);
    // A desktop's own dialog, inside this process, may read the files it lists; this one is told not to.
    dialogo.setOption(QFileDialog::DontUseNativeDialog);
    dialogo.setIconProvider(&icone);
    QStringList filtri;
    for (const auto& [didascalia, modello] : richiesta.filtri)
        filtri << didascalia + QStringLiteral(" (") + modello + QLatin1Char(')');
    dialogo.setNameFilters(filtri);
    dialogo.setAcceptMode(richiesta.apertura ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    dialogo.setFileMode(richiesta.apertura ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialogo.setDefaultSuffix(richiesta.estensione);
    dialogo.setOption(QFileDialog::DontConfirmOverwrite, !richiesta.chiediSovrascrittura);
    if (!richiesta.nomeFile.isEmpty())
        dialogo.selectFile(richiesta.nomeFile);
    if (dialogo.exec() != QDialog::Accepted || dialogo.selectedFiles().isEmpty())
        return {};
    return dialogo.selectedFiles().constFirst();
}

std::optional<QColor> InterazioneReale::SceltaColore(const QColor& iniziale) {
    const QColor scelto = QColorDialog::getColor(iniziale, QApplication::activeWindow());
    if (!scelto.isValid())
        return std::nullopt;
    return scelto;
}

bool InterazioneReale::ImpostaStampante(QPrinter& stampante) {
    IconePerNome icone;
    QPrintDialog dialogo(&stampante, QApplication::activeWindow());
    SceltaFileStampa(dialogo, icone);
    return dialogo.exec() == QDialog::Accepted;
}
