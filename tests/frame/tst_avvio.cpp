#include "archiviotemporaneo.h"
#include "interazionescriptata.h"

#include "archivio.h"
#include "avvio.h"
#include "form1.h"
#include "frmabout.h"
#include "frmmain.h"
#include "frmproprietacontrollo.h"
#include "numeri.h"
#include "programma.h"
#include "routinesql.h"

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStatusBar>
#include <QTextEdit>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <QtTest>
#include <unistd.h>

namespace {

QStringList TitoliMenu(QMenuBar* barra) {
    QStringList titoli;
    for (QAction* azione : barra->actions())
        titoli << azione->text();
    return titoli;
}

QStringList VociMenu(QMenu* menu) {
    QStringList voci;
    for (QAction* azione : menu->actions())
        voci << (azione->isSeparator() ? QStringLiteral("-") : azione->text());
    return voci;
}

// A copy of the program in a folder of its own, so it finds its own store and help file there.
QString CopiaProgramma(const QString& cartella) {
    const QString destinazione = cartella + QStringLiteral("/orvix");
    QFile::copy(QStringLiteral(ORVIX_PROGRAMMA), destinazione);
    return destinazione;
}

QProcessEnvironment AmbienteProva(const QString& cartella) {
    QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
    ambiente.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    ambiente.insert(QStringLiteral("XDG_RUNTIME_DIR"), cartella);
    ambiente.insert(QStringLiteral("XDG_CONFIG_HOME"), cartella);
    return ambiente;
}

// Root writes wherever it likes: a store made read-only is tried as an ordinary user.
QProcess* AvviaSenzaPrivilegi(const QString& eseguibile, const QString& runtime, QObject* genitore) {
    auto* programma = new QProcess(genitore);
    programma->setProcessEnvironment(AmbienteProva(runtime));
    if (geteuid() == 0) {
        // The runtime folder must belong to the user who runs the program.
        QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        if (chown(QFile::encodeName(runtime).constData(), 65534, 65534) != 0)
            qWarning("chown of the runtime folder failed");
        programma->start(QStringLiteral("setpriv"),
                         {"--reuid=65534", "--regid=65534", "--clear-groups", "--", eseguibile});
    } else {
        programma->start(eseguibile, {});
    }
    return programma;
}

QByteArray Contenuto(const QString& percorso) {
    QFile file(percorso);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

constexpr auto Aperta = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadGroup |
                        QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther |
                        QFile::ExeOther;
constexpr auto SolaLettura = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup |
                             QFile::ReadOther | QFile::ExeOther;

} // namespace

class TestAvvio final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void emptyStorePromptsBeforeTheFrameShows() {
        ArchivioTemporaneo archivio;
        const QString cartella = archivio.Cartella();
        ChiudiDatabase();
        InterazioneScriptata script;
        bool frameVisibileAlPrompt = true;
        script.Digita(QString(), [&] {
            frameVisibileAlPrompt = false;
            for (QWidget* finestra : QApplication::topLevelWidgets())
                frameVisibileAlPrompt |= qobject_cast<frmMAIN*>(finestra) && finestra->isVisible();
        });
        std::unique_ptr<frmMAIN> frame(EseguiAvvio(cartella));
        VERIFICA_SCRIPT(script);
        QVERIFY(!frameVisibileAlPrompt);
        QCOMPARE(script.Richieste().at(0).messaggio.testo,
                 QStringLiteral("Digita il nome della nuova Collezione?"));
        QCOMPARE(script.Richieste().at(0).messaggio.titolo, QStringLiteral("Cosa collezioni?"));
        QVERIFY(frame->isVisible());
        Form1* collezioni = IstanzaForm1();
        QVERIFY(collezioni && collezioni->isVisible());
        QCOMPARE(collezioni->List1->count(), 0);
        QCOMPARE(collezioni->IdCollezioneCorrente(), -1);
        QCOMPARE(collezioni->IdCampoCorrente(), -1);
    }

    // A failure in the first collection's prompts ends them quietly; the program goes on with the frame
    // and the collections window, and the menu's next attempt shows the engine's message.
    void aFailedFirstCollectionLeavesTheProgramRunning_data() {
        QTest::addColumn<QString>("collezione");
        QTest::addColumn<QString>("campo");
        QTest::addColumn<QString>("larghezza");
        QTest::addColumn<QString>("elencate");
        QTest::newRow("quote in the collection") << "L'isola d'Arturo" << QString() << QString() << "0";
        QTest::newRow("quote in the field") << "Romanzi"
                                            << "L'autore"
                                            << "200"
                                            << "1";
        QTest::newRow("refused width") << "Romanzi"
                                       << "Autore"
                                       << "12,5"
                                       << "1";
    }
    void aFailedFirstCollectionLeavesTheProgramRunning() {
        QFETCH(QString, collezione);
        QFETCH(QString, campo);
        QFETCH(QString, larghezza);
        QFETCH(QString, elencate);
        ArchivioTemporaneo archivio;
        ChiudiDatabase();
        InterazioneScriptata script;
        script.Digita(collezione).Digita(QString());
        if (!campo.isEmpty()) {
            script.Modale([](QDialog& scelta) {
                scelta.findChild<QRadioButton*>(QStringLiteral("Option1"))->click();
                scelta.findChild<QPushButton*>(QStringLiteral("cmdSCEGLI"))->click();
            });
            script.Modale([&](QDialog& finestra) {
                auto& dialogo = dynamic_cast<frmProprietaControllo&>(finestra);
                const auto riga = [&](const char* nome) {
                    return dialogo.LV1->findItems(QLatin1String(nome), Qt::MatchExactly, 1).constFirst();
                };
                dialogo.FineModifica(riga("Nome"), campo);
                dialogo.FineModifica(riga("Width"), larghezza);
                dialogo.cmdSCEGLI->click();
                if (!dialogo.Confermato)
                    dialogo.cmdANNULLA->click(); // the dialog said why and stayed open
            });
            if (!MisuraAmmessa(larghezza))
                script.Rispondi(Risposta::Ok);
        }
        std::unique_ptr<frmMAIN> frame(EseguiAvvio(archivio.Cartella()));
        VERIFICA_SCRIPT(script);
        QVERIFY(frame->isVisible());
        QVERIFY(IstanzaForm1() && IstanzaForm1()->isVisible());
        QCOMPARE(QString::number(IstanzaForm1()->List1->count()), elencate);
        QCOMPARE(Database().ApriRecordset(QStringLiteral("select count(*) from campi")).Campo(0).toInt(), 0);
        if (campo.isEmpty()) {
            script.Digita(collezione).Digita(QString()).Rispondi(Risposta::Ok);
            IstanzaForm1()->mnuNewCollection->trigger();
            VERIFICA_SCRIPT(script);
            QVERIFY(script.TestiMessaggi().constLast().contains(QLatin1String("syntax error")));
        }
    }

    void storeWithCollectionsShowsThemWithoutPrompting() {
        ArchivioTemporaneo archivio;
        CreaCollezione(QStringLiteral("Dischi"), QString());
        CreaCollezione(QStringLiteral("Film"), QString());
        InterazioneScriptata script;
        std::unique_ptr<frmMAIN> frame(EseguiAvvio(archivio.Cartella()));
        VERIFICA_SCRIPT(script);
        QCOMPARE(IstanzaForm1()->List1->count(), 2);
        QCOMPARE(IstanzaForm1()->List1->item(1)->text(), QStringLiteral("Film"));
        QCOMPARE(frame->windowTitle(), TitoloFrame(Programma::VersioneMaggiore(), Programma::VersioneMinore(),
                                                   Programma::Revisione()));
        QCOMPARE(TitoloFrame(1, 2, 3), QStringLiteral("Orvix - versione 1.2.3 BETA"));

        frame->MostraStato(QStringLiteral("Pronto"));
        QCOMPARE(frame->Sbar1->currentMessage(), QStringLiteral("Pronto"));
        const QString cartellaFoto = qEnvironmentVariable("ORVIX_SCREENSHOTS");
        if (!cartellaFoto.isEmpty()) {
            IstanzaForm1()->List1->setCurrentRow(0);
            QVERIFY(frame->grab().save(cartellaFoto + QStringLiteral("/frame.png")));
        }
    }

    void childMenusTakeThePlaceOfTheFramesOwn() {
        ArchivioTemporaneo archivio;
        CreaCollezione(QStringLiteral("Dischi"), QString());
        InterazioneScriptata script;
        std::unique_ptr<frmMAIN> frame(EseguiAvvio(archivio.Cartella()));
        QCOMPARE(TitoliMenu(frame->menuBar()), QStringList({"Collezione", "Campi"}));
        QCOMPARE(VociMenu(IstanzaForm1()->mnuCollezioni),
                 QStringList({"Nuova", "Nuova da Modello...", "Rinomina", "Elimina", "-", "Inserisci Record",
                              "-", "Esporta", "Importa...", "Stampa...", "-", "Esegui Ricerca", "-", "Backup",
                              "Restore"}));
        QCOMPARE(VociMenu(IstanzaForm1()->mnuCampi),
                 QStringList({"Crea Nuovo Campo", "Elimina Campo", "-", "Consenti Modifica Proprietà",
                              "Visualizza in Anteprima"}));

        frame->AreaFigli()->closeAllSubWindows();
        QTRY_VERIFY(!IstanzaForm1());
        QCOMPARE(TitoliMenu(frame->menuBar()), QStringList({"&File", "Finestra", "&?"}));
        QCOMPARE(VociMenu(frame->mnuFIle), QStringList({"Gestione Collezioni", "-", "Esci"}));
        QCOMPARE(VociMenu(frame->mnuWindow),
                 QStringList({"Affianca in Verticale", "Affianca in Orizzontale"}));
        QCOMPARE(VociMenu(frame->mnuH), QStringList({"Help", "Informazioni su..."}));

        // Brought back with a freshly loaded list.
        CreaCollezione(QStringLiteral("Francobolli"), QString());
        frame->findChild<QAction*>(QStringLiteral("mnuApriGestioneCollezioni"))->trigger();
        QVERIFY(IstanzaForm1() && IstanzaForm1()->isVisible());
        QCOMPARE(IstanzaForm1()->List1->count(), 2);
        QCOMPARE(IstanzaForm1()->IdCollezioneCorrente(), -1);
        QCOMPARE(frame->AreaFigli()->subWindowList().size(), 1);
        VERIFICA_SCRIPT(script);
    }

    void childrenKeepTheirSizeAndTile() {
        ArchivioTemporaneo archivio;
        CreaCollezione(QStringLiteral("Dischi"), QString());
        InterazioneScriptata script;
        std::unique_ptr<frmMAIN> frame(EseguiAvvio(archivio.Cartella()));
        frame->resize(1400, 1000);
        QCoreApplication::processEvents();
        auto* altra = new QWidget;
        altra->setWindowTitle(QStringLiteral("Altra"));
        altra->resize(300, 200);
        frame->MostraFiglia(altra);
        // A child gets the room it asked for inside the frame's decorations, where it covers no
        // other child; one larger than the frame is cut down to the frame.
        QCOMPARE(altra->size(), QSize(300, 200));
        const auto figli = frame->AreaFigli()->subWindowList();
        const QRect area(QPoint(), frame->AreaFigli()->viewport()->size());
        QVERIFY(!figli.at(0)->geometry().intersects(figli.at(1)->geometry()));
        QVERIFY(area.contains(figli.at(1)->geometry()));
        // One larger than the frame: cut down to the frame when a layout arranges it; a form of
        // placed controls keeps its size, and the frame scrolls to show all of it.
        auto* disposta = new QWidget;
        new QVBoxLayout(disposta);
        disposta->resize(5000, 4000);
        frame->MostraFiglia(disposta);
        QVERIFY(area.contains(frame->AreaFigli()->subWindowList().at(2)->geometry()));
        auto* modulo = new QWidget;
        modulo->resize(3000, 2500);
        frame->MostraFiglia(modulo);
        QCOMPARE(modulo->size(), QSize(3000, 2500));
        QCoreApplication::processEvents();
        QVERIFY(frame->AreaFigli()->verticalScrollBar()->isVisible());
        frame->AreaFigli()->verticalScrollBar()->setValue(frame->AreaFigli()->verticalScrollBar()->maximum());
        QVERIFY(frame->AreaFigli()->viewport()->rect().intersects(
            frame->AreaFigli()->subWindowList().at(3)->geometry()));
        delete disposta;
        delete modulo;
        frame->Affianca(true);
        QCOMPARE(figli.at(0)->y(), figli.at(1)->y());
        QVERIFY(figli.at(0)->x() != figli.at(1)->x());
        frame->Affianca(false);
        QCOMPARE(figli.at(0)->x(), figli.at(1)->x());
        QVERIFY(figli.at(0)->y() != figli.at(1)->y());
    }

    void exitClosesTheStore() {
        ArchivioTemporaneo archivio;
        CreaCollezione(QStringLiteral("Dischi"), QString());
        InterazioneScriptata script;
        QPointer<frmMAIN> frame(EseguiAvvio(archivio.Cartella()));
        frame->setGeometry(40, 50, 700, 500);
        frame->findChild<QAction*>(QStringLiteral("mnuEsci"))->trigger();
        QTRY_VERIFY(!frame);
        QVERIFY(!Database().Aperta());
        // The next start finds the frame where the user left it.
        std::unique_ptr<frmMAIN> dopo(EseguiAvvio(archivio.Cartella()));
        QCOMPARE(dopo->geometry(), QRect(40, 50, 700, 500));
    }

    void helpAndAboutGoThroughTheShell() {
        ArchivioTemporaneo archivio;
        CreaCollezione(QStringLiteral("Dischi"), QString());
        InterazioneScriptata script;
        std::unique_ptr<frmMAIN> frame(EseguiAvvio(archivio.Cartella()));
        script.Shell(false);
        frame->mnuHelp_Click();
        QCOMPARE(script.Richieste().last().predefinito,
                 QCoreApplication::applicationDirPath() + QStringLiteral("/guidaorvix/index.html"));

        script.Modale([](QDialog& finestra) {
            auto& about = static_cast<frmAbout&>(finestra);
            QCOMPARE(about.windowTitle(), QStringLiteral("Informazioni su Orvix"));
            QCOMPARE(about.lblTitle->text(), QStringLiteral("ORVIX"));
            QCOMPARE(about.lblVersion->text(), QStringLiteral("Versione ") + Programma::Versione());
            QVERIFY(about.lblDescription->toPlainText().startsWith(
                QStringLiteral("Orvix per Tarvino\n\nQuesto")));
            const QString cartellaFoto = qEnvironmentVariable("ORVIX_SCREENSHOTS");
            if (!cartellaFoto.isEmpty())
                about.grab().save(cartellaFoto + QStringLiteral("/about.png"));
            about.cmdOK->click();
        });
        frame->mnuAbout_Click();
        VERIFICA_SCRIPT(script);

        QCOMPARE(frmAbout::DestinazioneCollegamento(QStringLiteral("orvix@example.org")),
                 QStringLiteral("mailto:orvix@example.org?subject=Orvix_Tarvino"));
        QCOMPARE(frmAbout::DestinazioneCollegamento(QStringLiteral("https://www.example.org")),
                 QStringLiteral("https://www.example.org"));
        frmAbout about;
        script.Shell();
        Q_EMIT about.lblMail->linkActivated(QStringLiteral("#"));
        QCOMPARE(script.Richieste().last().predefinito,
                 QStringLiteral("mailto:orvix@example.org?subject=Orvix_Tarvino"));
        script.Rispondi(Risposta::Ok);
        about.cmdSysInfo->click();
        QCOMPARE(script.TestiMessaggi().last(),
                 QStringLiteral("Le informazioni sul sistema non sono attualmente disponibili."));
        VERIFICA_SCRIPT(script);
    }

    void missingStoreEndsWithoutAWindowAndSaysWhy() {
        QTemporaryDir cartella;
        QProcess programma;
        programma.setProcessEnvironment(AmbienteProva(cartella.path()));
        programma.start(CopiaProgramma(cartella.path()), {});
        QVERIFY(programma.waitForFinished(20000));
        QCOMPARE(programma.exitCode(), 1);
        const QString errore = QString::fromLocal8Bit(programma.readAllStandardError());
        QVERIFY2(errore.contains(QLatin1String("personalizza.orx")), qPrintable(errore));
    }

    // A store that cannot be written fails the start at once, as a missing one does, and is left as
    // it was: a read-only file, or a store in WAL mode in a folder where its journal cannot be made.
    void aStoreThatCannotBeWrittenFailsTheStart_data() {
        QTest::addColumn<bool>("cartellaInSolaLettura");
        QTest::newRow("read-only file") << false;
        QTest::newRow("read-only folder") << true;
    }
    void aStoreThatCannotBeWrittenFailsTheStart() {
        QFETCH(bool, cartellaInSolaLettura);
        QTemporaryDir cartella, runtime;
        ArchivioTemporaneo::CopiaVuoto(cartella.path());
        const QString archivio = cartella.filePath(Programma::NomeArchivio());
        ApriDatabase(cartella.path()); // a first start leaves it in WAL mode
        CreaCollezione(QStringLiteral("Dischi"), QString());
        ChiudiDatabase();
        const QString eseguibile = CopiaProgramma(cartella.path());
        const QByteArray prima = Contenuto(archivio);
        QFile::setPermissions(archivio, cartellaInSolaLettura ? Aperta : SolaLettura);
        QFile::setPermissions(cartella.path(), cartellaInSolaLettura ? SolaLettura : Aperta);
        QProcess* programma = AvviaSenzaPrivilegi(eseguibile, runtime.path(), this);
        QVERIFY(programma->waitForFinished(20000));
        QFile::setPermissions(cartella.path(), Aperta);
        const QString errore = QString::fromLocal8Bit(programma->readAllStandardError());
        QCOMPARE(programma->exitCode(), 1);
        QVERIFY2(errore.contains(archivio), qPrintable(errore));
        QCOMPARE(Contenuto(archivio), prima);
        QCOMPARE(QDir(cartella.path()).entryList(QDir::Files),
                 QStringList({"orvix", Programma::NomeArchivio()}));
    }

    // --help and --version answer with no display at all; with none, the program says so in one
    // line and fails, whether no display is named or the one named cannot be reached.
    void commandLineAndMissingDisplay_data() {
        QTest::addColumn<QStringList>("argomenti");
        QTest::addColumn<QString>("display");
        QTest::addColumn<int>("uscita");
        QTest::addColumn<QString>("atteso");
        QTest::newRow("--version") << QStringList{"--version"} << QString() << 0 << "Orvix 0.1.0\n";
        QTest::newRow("-h") << QStringList{"-h"} << QString() << 0 << "  -v, --version";
        QTest::newRow("no display") << QStringList{} << QString() << 1 << "nessuno schermo disponibile";
        QTest::newRow("unreachable display") << QStringList{} << ":97" << 1 << "nessuno schermo disponibile";
    }
    void commandLineAndMissingDisplay() {
        QFETCH(QStringList, argomenti);
        QFETCH(QString, display);
        QFETCH(int, uscita);
        QFETCH(QString, atteso);
        QTemporaryDir cartella;
        ArchivioTemporaneo::CopiaVuoto(cartella.path());
        QProcessEnvironment ambiente = AmbienteProva(cartella.path());
        for (const char* nome : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
            ambiente.remove(QLatin1String(nome));
        if (!display.isEmpty())
            ambiente.insert(QStringLiteral("DISPLAY"), display);
        QProcess programma;
        programma.setProcessEnvironment(ambiente);
        programma.start(CopiaProgramma(cartella.path()), argomenti);
        QVERIFY(programma.waitForFinished(20000));
        QCOMPARE(programma.exitStatus(), QProcess::NormalExit);
        QCOMPARE(programma.exitCode(), uscita);
        const QString detto = QString::fromLocal8Bit(uscita == 0 ? programma.readAllStandardOutput()
                                                                 : programma.readAllStandardError());
        QVERIFY2(detto.contains(atteso), qPrintable(detto));
        if (uscita != 0)
            QCOMPARE(detto.count(QLatin1Char('\n')), 1);
    }

    // Installed as <prefix>/bin/orvix, the program keeps its store in the user's data folder, seeded
    // once from <prefix>/share/orvix; a store lost later fails the start instead of being replaced.
    void anInstalledProgramSeedsTheUsersFolderOnce() {
        QTemporaryDir prefisso, dati;
        QDir().mkpath(prefisso.filePath("bin"));
        QDir().mkpath(prefisso.filePath("share/orvix/modelli"));
        ArchivioTemporaneo::CopiaVuoto(prefisso.filePath("share/orvix"));
        QFile modello(prefisso.filePath("share/orvix/modelli/Libri.wzd"));
        QVERIFY(modello.open(QIODevice::WriteOnly));
        modello.write("[tabella]\r\nnome=Libri\r\n");
        modello.close();
        const QString eseguibile = CopiaProgramma(prefisso.filePath("bin"));
        QProcessEnvironment ambiente = AmbienteProva(dati.path());
        ambiente.insert(QStringLiteral("XDG_DATA_HOME"), dati.path());
        const QString archivio = dati.filePath("orvix/personalizza.orx");

        QProcess prima;
        prima.setProcessEnvironment(ambiente);
        prima.start(eseguibile, {});
        // An empty store: the program waits at the first collection's prompt.
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(archivio), 20000);
        prima.kill();
        prima.waitForFinished();
        ApriDatabase(dati.filePath("orvix"));
        QCOMPARE(Database().ApriRecordset(QStringLiteral("select count(*) from collezioni")).Campo(0).toInt(),
                 0);
        ChiudiDatabase();
        QCOMPARE(Contenuto(dati.filePath("orvix/modelli/Libri.wzd")),
                 QByteArray("[tabella]\r\nnome=Libri\r\n"));
        QVERIFY(!QFile::exists(prefisso.filePath("bin/personalizza.orx")));

        QVERIFY(QFile::remove(archivio));
        QProcess seconda;
        seconda.setProcessEnvironment(ambiente);
        seconda.start(eseguibile, {});
        QVERIFY(seconda.waitForFinished(20000));
        QCOMPARE(seconda.exitCode(), 1);
        QVERIFY(!QFile::exists(archivio));
        const QString errore = QString::fromLocal8Bit(seconda.readAllStandardError());
        QVERIFY2(errore.contains(archivio), qPrintable(errore));
    }

    void aSecondInstanceEndsAtOnce() {
        QTemporaryDir cartella;
        ArchivioTemporaneo::CopiaVuoto(cartella.path());
        const QString eseguibile = CopiaProgramma(cartella.path());
        QProcess prima;
        prima.setProcessEnvironment(AmbienteProva(cartella.path()));
        prima.start(eseguibile, {});
        QVERIFY(prima.waitForStarted());
        // The first instance waits at the new-collection prompt of its empty store.
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(cartella.filePath(QStringLiteral("orvix.lock"))), 20000);
        QProcess seconda;
        seconda.setProcessEnvironment(AmbienteProva(cartella.path()));
        seconda.start(eseguibile, {});
        QVERIFY(seconda.waitForFinished(20000));
        QCOMPARE(seconda.exitCode(), 0);
        QCOMPARE(prima.state(), QProcess::Running);
        prima.kill();
        prima.waitForFinished();
    }

    void singleInstanceLockIsHeldOnce() {
        QTemporaryDir cartella;
        qputenv("XDG_RUNTIME_DIR", cartella.path().toLocal8Bit());
        QVERIFY(PrimaIstanza());
        QVERIFY(QFile::exists(cartella.filePath(QStringLiteral("orvix.lock"))));
    }
};

QTEST_MAIN(TestAvvio)
#include "tst_avvio.moc"
