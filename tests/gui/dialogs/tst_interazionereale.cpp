#include "archivio.h"
#include "archiviotemporaneo.h"
#include "blocchiarchivio.h"
#include "dialogofile.h"
#include "interazionereale.h"
#include "interazionescriptata.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QPrinter>
#include <QTimer>
#include <QtTest>

namespace {

// Waits, as a person looking at the dialog would, until every name in the folder is listed with
// the icon and the type the view shows for it.
void AttendiElenco(QFileSystemModel& elenco, const QString& cartella, int nomi) {
    QFileSystemModel* modello = &elenco;
    const QModelIndex radice = modello->index(cartella);
    QTRY_COMPARE(modello->rowCount(radice), nomi);
    for (int riga = 0; riga < nomi; ++riga) {
        const QModelIndex nome = modello->index(riga, 0, radice);
        QTRY_VERIFY(!modello->fileIcon(nome).isNull());
        QTRY_VERIFY(!modello->type(nome).isEmpty());
    }
}

// A committed write: the store then has its log and its shared index beside it.
void ScriviNellArchivio() {
    Database().Esegui("insert into collezioni (nome, descrizione, data_creazione) "
                      "values ('Dischi', '', '2024-01-01')");
}

// The store refused by the browse button, then a PDF beside it taken.
void SfogliaDueVolte(QDialog& dialogo, const QString& copia) {
    auto* nome = dialogo.findChild<QLineEdit*>("filename");
    QVERIFY(nome->isReadOnly());
    const QString prima = nome->text();
    auto* sfoglia = dialogo.findChild<QAbstractButton*>("fileBrowser");
    sfoglia->click();
    QCOMPARE(nome->text(), prima);
    sfoglia->click();
    QCOMPARE(nome->text(), copia);
}

} // namespace

// The real dialogs answered by a timer as a person would.
class TestInterazioneReale final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // A long text offered and typed to comes back whole, past the line edit's usual 32,767 characters.
    void inputBoxKeepsLongTextWhole() {
        const QString offerto = QString(40000, u'a') + "fine";
        QTimer::singleShot(0, [] {
            auto* campo = QApplication::activeModalWidget()->findChild<QLineEdit*>();
            campo->end(false);
            QTest::keyClicks(campo, "!");
            qobject_cast<QDialog*>(QApplication::activeModalWidget())->accept();
        });
        QCOMPARE(InterazioneReale().InputBox("Valore:", "Prova", offerto), offerto + "!");
    }

    // The real save dialog, reached through the wrapper with a NUL-separated filter, starts in the given
    // folder and adds the default extension to a typed name.
    void saveDialogAddsTheExtension() {
        const QString filtro = QStringList{"Files di Backup...", "*.dat"}.join(QChar(u'\0'));
        QTemporaryDir cartella;
        QTimer::singleShot(0, [&] {
            auto* dialogo = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            QCOMPARE(dialogo->directory().absolutePath(), QDir(cartella.path()).absolutePath());
            dialogo->selectFile("copia");
            QMetaObject::invokeMethod(dialogo, "accept");
        });
        QCOMPARE(DialogoFile(nullptr, 2, "Backup", {}, filtro, cartella.path(), "dat"),
                 cartella.filePath("copia.dat"));
    }

    // A dialog opened on the folder of the open store lists its files by name alone: a descriptor
    // opened on the store, or on its shared index, and closed again would release the engine's locks,
    // and another program could then move the log into the store under the open connection.
    void fileDialogsLeaveTheStoreLocked_data() {
        QTest::addColumn<int>("modo");
        QTest::addColumn<QFileDialog::ViewMode>("vista");
        QTest::newRow("open, list") << 1 << QFileDialog::List;
        QTest::newRow("save, details") << 2 << QFileDialog::Detail;
    }
    void fileDialogsLeaveTheStoreLocked() {
        QFETCH(int, modo);
        QFETCH(QFileDialog::ViewMode, vista);
        ArchivioTemporaneo archivio;
        ScriviNellArchivio();
        const QString cartella = QDir(archivio.Cartella()).canonicalPath();
        const int nomi = QDir(cartella).entryList(QDir::Files).size();
        QVERIFY(nomi >= 3); // the store, its log and its shared index
        const int blocchi = BlocchiArchivio(archivio.PercorsoArchivio());
        QVERIFY(blocchi > 0);
        QTimer::singleShot(0, [&] {
            auto* dialogo = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            dialogo->setViewMode(vista);
            AttendiElenco(*dialogo->findChild<QFileSystemModel*>(), cartella, nomi);
            dialogo->reject();
        });
        const QString filtro = QStringList{"Tutti i files", "*.*"}.join(QChar(u'\0'));
        QVERIFY(DialogoFile(nullptr, modo, "Prova", {}, filtro, cartella, "txt").isEmpty());
        QCOMPARE(BlocchiArchivio(archivio.PercorsoArchivio()), blocchi);
    }

    // A file the program holds, chosen to be opened, is refused before any command reads it; one chosen to
    // be saved is left to the routine that writes it.
    void openDialogRefusesTheStore() {
        ArchivioTemporaneo archivio;
        const QString indice = archivio.PercorsoArchivio() + "-shm";
        InterazioneScriptata script;
        script.File(indice).Rispondi(Risposta::Ok).File(indice);
        ImpostaInterazione(&script);
        const QString aperto = DialogoFile(nullptr, 1, "Apri", {}, {}, archivio.Cartella(), {});
        const QString salvato = DialogoFile(nullptr, 2, "Salva", {}, {}, archivio.Cartella(), {});
        ImpostaInterazione(nullptr);
        QVERIFY(aperto.isEmpty());
        QCOMPARE(salvato, indice);
        QCOMPARE(Descrivi(script.Richieste().at(1).messaggio),
                 "Non è possibile leggere " + indice +
                     ": è un file dell'archivio delle collezioni in uso. | Orvix | 31");
        VERIFICA_SCRIPT(script);
    }

    // The printer set-up names its PDF file in a field that completes from the home folder, and browses
    // for it with the program's own dialog: neither opens the files it lists.
    void printerDialogLeavesTheStoreLocked() {
        ArchivioTemporaneo archivio;
        ScriviNellArchivio();
        const QString cartella = QDir(archivio.Cartella()).canonicalPath();
        const int nomi = QDir(cartella).entryList(QDir::Files).size();
        const QByteArray casa = qgetenv("HOME");
        qputenv("HOME", QFile::encodeName(cartella));
        const int blocchi = BlocchiArchivio(archivio.PercorsoArchivio());
        QVERIFY(blocchi > 0);
        QString sfogliata;
        QTimer::singleShot(0, [&] {
            auto* dialogo = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            AttendiElenco(*dialogo->findChild<QFileSystemModel*>(), cartella, nomi);
            dialogo->findChild<QLineEdit*>("filename")->setText(cartella + "/stampa.pdf");
            QTimer::singleShot(0, [&] {
                auto* sfoglia = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
                if (!sfoglia)
                    return;
                sfogliata = QDir(sfoglia->directory()).canonicalPath();
                sfoglia->selectNameFilter("Tutti i files (*.*)");
                AttendiElenco(*sfoglia->findChild<QFileSystemModel*>(), cartella, nomi);
                sfoglia->reject();
            });
            dialogo->findChild<QAbstractButton*>("fileBrowser")->click();
            dialogo->reject();
        });
        QPrinter stampante;
        QVERIFY(!InterazioneReale().ImpostaStampante(stampante));
        qputenv("HOME", casa);
        QCOMPARE(sfogliata, cartella);
        QCOMPARE(BlocchiArchivio(archivio.PercorsoArchivio()), blocchi);
    }

    // The PDF's name comes from the program's file dialog, which may not name the store; a name typed
    // in the field would be opened by the print dialog's own check, so the field takes none.
    void printerDialogChoosesThePdfThroughTheProgram() {
        ArchivioTemporaneo archivio;
        const QString copia = archivio.Cartella() + "/copia.pdf";
        InterazioneScriptata script;
        script.File(archivio.PercorsoArchivio()).Rispondi(Risposta::Ok).File(copia);
        ImpostaInterazione(&script);
        QTimer::singleShot(0, [&] {
            auto* dialogo = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            SfogliaDueVolte(*dialogo, copia);
            QMetaObject::invokeMethod(dialogo, "accept");
        });
        QPrinter stampante;
        const bool confermata = InterazioneReale().ImpostaStampante(stampante);
        ImpostaInterazione(nullptr);
        QVERIFY(confermata);
        QCOMPARE(stampante.outputFormat(), QPrinter::PdfFormat);
        QCOMPARE(stampante.outputFileName(), copia);
        QCOMPARE(script.TestiMessaggi(),
                 QStringList{"Non è possibile scrivere su " + archivio.PercorsoArchivio() +
                             ": è l'archivio delle collezioni in uso."});
        QCOMPARE(script.Richieste().first().file.titolo, QString("Stampa su file..."));
        VERIFICA_SCRIPT(script);
    }

    // However the printer was set, a PDF over a file the program holds is undone and said.
    void pdfOverTheStoreIsRefused_data() {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QString>("motivo");
        QTest::newRow("store") << "personalizza.orx"
                               << "è l'archivio delle collezioni in uso.";
        QTest::newRow("log") << "personalizza.orx-wal"
                             << "è un file dell'archivio delle collezioni in uso.";
    }
    void pdfOverTheStoreIsRefused() {
        QFETCH(QString, nome);
        QFETCH(QString, motivo);
        ArchivioTemporaneo archivio;
        const QString percorso = archivio.Cartella() + "/" + nome;
        InterazioneScriptata script;
        script.Stampante(true, [&](QPrinter& p) { p.setOutputFileName(percorso); }).Rispondi(Risposta::Ok);
        ImpostaInterazione(&script);
        QPrinter stampante;
        const bool confermata = ImpostaStampante(stampante);
        ImpostaInterazione(nullptr);
        QVERIFY(!confermata);
        QVERIFY(stampante.outputFileName().isEmpty());
        QCOMPARE(script.TestiMessaggi(),
                 QStringList{"Non è possibile scrivere su " + percorso + ": " + motivo});
        VERIFICA_SCRIPT(script);
    }
};

QTEST_MAIN(TestInterazioneReale)
#include "tst_interazionereale.moc"
