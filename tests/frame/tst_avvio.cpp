#include "archiviotemporaneo.h"
#include "interazionescriptata.h"
#include "prune_pc.h"

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
#include <QTreeWidget>
#include <QVBoxLayout>
#include <QtTest>
#include <unistd.h>

namespace {

QStringList VociMenu(const QList<QAction*>& azioni) {
    QStringList voci;
    for (QAction* azione : azioni)
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

// A run of the program to its end: exit code (-1 if it hung or crashed), standard output and error.
struct Esito {
    int uscita = -1;
    QString uscitaStandard, errore;
};
Esito Esegui(const QString& programma, const QStringList& argomenti, const QProcessEnvironment& ambiente) {
    QProcess processo;
    processo.setProcessEnvironment(ambiente);
    processo.start(programma, argomenti);
    Esito esito;
    if (processo.waitForFinished(20000) && processo.exitStatus() == QProcess::NormalExit)
        esito.uscita = processo.exitCode();
    esito.uscitaStandard = QString::fromLocal8Bit(processo.readAllStandardOutput());
    esito.errore = QString::fromLocal8Bit(processo.readAllStandardError());
    return esito;
}

// Root writes wherever it likes: a store made read-only is tried as an ordinary user.
Esito EseguiSenzaPrivilegi(const QString& eseguibile, const QString& runtime) {
    if (geteuid() != 0)
        return Esegui(eseguibile, {}, AmbienteProva(runtime));
    // The runtime folder must belong to the user who runs the program.
    QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    if (chown(QFile::encodeName(runtime).constData(), 65534, 65534) != 0)
        qWarning("chown of the runtime folder failed");
    return Esegui(QStringLiteral("setpriv"),
                  {"--reuid=65534", "--regid=65534", "--clear-groups", "--", eseguibile},
                  AmbienteProva(runtime));
}

constexpr auto Aperta = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadGroup |
                        QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther |
                        QFile::ExeOther;
constexpr auto SolaLettura = QFile::ReadOwner | QFile::ExeOwner | QFile::ReadGroup | QFile::ExeGroup |
                             QFile::ReadOther | QFile::ExeOther;

// The real start on a store holding the given collections; prompts are scripted.
struct Avviato {
    explicit Avviato(const QStringList& collezioni = {"Dischi"}) {
        for (const QString& nome : collezioni)
            CreaCollezione(nome, QString());
        frame.reset(EseguiAvvio(archivio.Cartella()));
    }
    ArchivioTemporaneo archivio;
    InterazioneScriptata script;
    std::unique_ptr<frmMAIN> frame;
};

} // namespace

class TestAvvio final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // The first collection's prompts come before the frame shows; cancelled, or failed on a quote or a
    // refused width, they end quietly, the program goes on, and the menu's next try shows the engine's
    // message.
    void theFirstCollectionsPromptsEndQuietly_data() {
        QTest::addColumn<QStringList>("risposte"); // collection, field, width
        QTest::addColumn<int>("elencate");
        QTest::newRow("cancelled") << QStringList{QString()} << 0;
        QTest::newRow("quote in the collection") << QStringList{"L'isola d'Arturo"} << 0;
        QTest::newRow("quote in the field") << QStringList{"Romanzi", "L'autore", "200"} << 1;
        QTest::newRow("refused width") << QStringList{"Romanzi", "Autore", "12,5"} << 1;
    }
    void theFirstCollectionsPromptsEndQuietly() {
        QFETCH(QStringList, risposte);
        QFETCH(int, elencate);
        ArchivioTemporaneo archivio;
        ChiudiDatabase();
        InterazioneScriptata script;
        bool frameVisibileAlPrompt = true;
        script.Digita(risposte.at(0), [&] {
            frameVisibileAlPrompt = false;
            for (QWidget* finestra : QApplication::topLevelWidgets())
                frameVisibileAlPrompt |= qobject_cast<frmMAIN*>(finestra) && finestra->isVisible();
        });
        if (!risposte.at(0).isEmpty())
            script.Digita(QString());
        if (risposte.size() > 1) {
            script.Modale([](QDialog& scelta) {
                scelta.findChild<QRadioButton*>(QStringLiteral("Option1"))->click();
                scelta.findChild<QPushButton*>(QStringLiteral("cmdSCEGLI"))->click();
            });
            script.Modale([&](QDialog& finestra) {
                auto& dialogo = dynamic_cast<frmProprietaControllo&>(finestra);
                const auto riga = [&](const char* nome) {
                    return dialogo.LV1->findItems(QLatin1String(nome), Qt::MatchExactly, 1).constFirst();
                };
                dialogo.FineModifica(riga("Nome"), risposte.at(1));
                dialogo.FineModifica(riga("Width"), risposte.at(2));
                dialogo.cmdSCEGLI->click();
                if (!dialogo.Confermato)
                    dialogo.cmdANNULLA->click(); // the dialog said why and stayed open
            });
            if (!MisuraAmmessa(risposte.at(2)))
                script.Rispondi(Risposta::Ok);
        }
        std::unique_ptr<frmMAIN> frame(EseguiAvvio(archivio.Cartella()));
        VERIFICA_SCRIPT(script);
        QVERIFY(!frameVisibileAlPrompt);
        QCOMPARE(script.Richieste().at(0).messaggio.testo + "|" + script.Richieste().at(0).messaggio.titolo,
                 QStringLiteral("Digita il nome della nuova Collezione?|Cosa collezioni?"));
        QVERIFY(frame->isVisible() && IstanzaForm1() && IstanzaForm1()->isVisible());
        QCOMPARE(IstanzaForm1()->List1->count(), elencate);
        QCOMPARE(Database().ApriRecordset(QStringLiteral("select count(*) from campi")).Campo(0).toInt(), 0);
        if (elencate == 0) {
            QCOMPARE(IstanzaForm1()->IdCollezioneCorrente(), -1);
            QCOMPARE(IstanzaForm1()->IdCampoCorrente(), -1);
        }
        if (risposte.size() == 1 && !risposte.at(0).isEmpty()) {
            script.Digita(risposte.at(0)).Digita(QString()).Rispondi(Risposta::Ok);
            IstanzaForm1()->mnuNewCollection->trigger();
            VERIFICA_SCRIPT(script);
            const Messaggio& errore = script.Richieste().constLast().messaggio;
            QVERIFY(errore.testo.contains(QLatin1String("syntax error")) && errore.icona == Icona::Critica);
        }
    }

    // A store with collections shows them with no prompt, under the collections window's menus; with the
    // window closed the frame's own menus come back, and the window returns with a fresh list.
    void storeWithCollectionsShowsThemAndTheirMenus() {
        Avviato a({"Dischi", "Film"});
        QCOMPARE(Elencati(*IstanzaForm1()->List1), QStringList({"Dischi", "Film"}));
        QCOMPARE(a.frame->windowTitle(), TitoloFrame(Programma::VersioneMaggiore(),
                                                     Programma::VersioneMinore(), Programma::Revisione()));
        QCOMPARE(TitoloFrame(1, 2, 3), QStringLiteral("Orvix - versione 1.2.3 BETA"));

        QCOMPARE(VociMenu(a.frame->menuBar()->actions()), QStringList({"Collezione", "Campi"}));
        QCOMPARE(VociMenu(IstanzaForm1()->mnuCollezioni->actions()),
                 QStringList({"Nuova", "Nuova da Modello...", "Rinomina", "Elimina", "-", "Inserisci Record",
                              "-", "Esporta", "Importa...", "Stampa...", "-", "Esegui Ricerca", "-", "Backup",
                              "Restore"}));
        QCOMPARE(VociMenu(IstanzaForm1()->mnuCampi->actions()),
                 QStringList({"Crea Nuovo Campo", "Elimina Campo", "-", "Consenti Modifica Proprietà",
                              "Visualizza in Anteprima"}));

        a.frame->AreaFigli()->closeAllSubWindows();
        QTRY_VERIFY(!IstanzaForm1());
        QCOMPARE(VociMenu(a.frame->menuBar()->actions()), QStringList({"&File", "Finestra", "&?"}));
        QCOMPARE(
            VociMenu(a.frame->mnuFIle->actions() + a.frame->mnuWindow->actions() + a.frame->mnuH->actions()),
            QStringList({"Gestione Collezioni", "-", "Esci", "Affianca in Verticale",
                         "Affianca in Orizzontale", "Help", "Informazioni su..."}));

        CreaCollezione(QStringLiteral("Francobolli"), QString());
        a.frame->findChild<QAction*>(QStringLiteral("mnuApriGestioneCollezioni"))->trigger();
        QVERIFY(IstanzaForm1() && IstanzaForm1()->isVisible());
        QCOMPARE(Elencati(*IstanzaForm1()->List1), QStringList({"Dischi", "Film", "Francobolli"}));
        QCOMPARE(IstanzaForm1()->IdCollezioneCorrente(), -1);
        QCOMPARE(a.frame->AreaFigli()->subWindowList().size(), 1);
        VERIFICA_SCRIPT(a.script);
    }

    // A child keeps the size it asked for, where it covers no other; one larger than the frame is cut
    // down when a layout arranges it, while a form of placed controls keeps its size and the frame scrolls.
    void childrenKeepTheirSizeAndTile() {
        Avviato a;
        frmMAIN* frame = a.frame.get();
        frame->resize(1400, 1000);
        QCoreApplication::processEvents();
        auto* altra = new QWidget;
        altra->resize(300, 200);
        frame->MostraFiglia(altra);
        QCOMPARE(altra->size(), QSize(300, 200));
        const auto figli = frame->AreaFigli()->subWindowList();
        const QRect area(QPoint(), frame->AreaFigli()->viewport()->size());
        QVERIFY(!figli.at(0)->geometry().intersects(figli.at(1)->geometry()));
        QVERIFY(area.contains(figli.at(1)->geometry()));
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
        QScrollBar* barra = frame->AreaFigli()->verticalScrollBar();
        QVERIFY(barra->isVisible());
        barra->setValue(barra->maximum());
        QVERIFY(frame->AreaFigli()->viewport()->rect().intersects(
            frame->AreaFigli()->subWindowList().at(3)->geometry()));
        delete disposta;
        delete modulo;
        frame->Affianca(true);
        QVERIFY(figli.at(0)->y() == figli.at(1)->y() && figli.at(0)->x() != figli.at(1)->x());
        frame->Affianca(false);
        QVERIFY(figli.at(0)->x() == figli.at(1)->x() && figli.at(0)->y() != figli.at(1)->y());
    }

    // Esci closes the store; the next start finds the frame where the user left it.
    void exitClosesTheStore() {
        Avviato a;
        QPointer<frmMAIN> frame(a.frame.release());
        frame->setGeometry(40, 50, 700, 500);
        frame->findChild<QAction*>(QStringLiteral("mnuEsci"))->trigger();
        QTRY_VERIFY(!frame);
        QVERIFY(!Database().Aperta());
        std::unique_ptr<frmMAIN> dopo(EseguiAvvio(a.archivio.Cartella()));
        QCOMPARE(dopo->geometry(), QRect(40, 50, 700, 500));
    }

    void helpAndAboutGoThroughTheShell() {
        Avviato a;
        a.script.Shell(false);
        a.frame->mnuHelp_Click();
        QCOMPARE(a.script.Richieste().last().predefinito,
                 QCoreApplication::applicationDirPath() + QStringLiteral("/guidaorvix/index.html"));
        a.script.Modale([](QDialog& finestra) {
            auto& about = static_cast<frmAbout&>(finestra);
            QCOMPARE(about.lblVersion->text(), "Versione " + Programma::Versione());
            about.cmdOK->click();
        });
        a.frame->mnuAbout_Click();
        VERIFICA_SCRIPT(a.script);

        QCOMPARE(frmAbout::DestinazioneCollegamento(QStringLiteral("https://www.example.org")),
                 QStringLiteral("https://www.example.org"));
        frmAbout about;
        a.script.Shell();
        Q_EMIT about.lblMail->linkActivated(QStringLiteral("#"));
        QCOMPARE(a.script.Richieste().last().predefinito,
                 QStringLiteral("mailto:orvix@example.org?subject=Orvix_Tarvino"));
        a.script.Rispondi(Risposta::Ok);
        about.cmdSysInfo->click();
        QCOMPARE(a.script.TestiMessaggi().last(),
                 QStringLiteral("Le informazioni sul sistema non sono attualmente disponibili."));
        VERIFICA_SCRIPT(a.script);
    }

    // A store missing or that cannot be written fails the start at once, naming it, and is left as it
    // was: no new store, a read-only file, or a WAL store in a folder where its journal cannot be made.
    void aStoreMissingOrNotWritableFailsTheStart_data() {
        QTest::addColumn<QString>("caso");
        QTest::newRow("missing") << "missing";
        QTest::newRow("read-only file") << "file";
        QTest::newRow("read-only folder") << "folder";
    }
    void aStoreMissingOrNotWritableFailsTheStart() {
        QFETCH(QString, caso);
        QTemporaryDir cartella, runtime;
        const QString archivio = cartella.filePath(Programma::NomeArchivio());
        QStringList attesi({"orvix"});
        if (caso != "missing") {
            ArchivioTemporaneo::CopiaVuoto(cartella.path());
            ApriDatabase(cartella.path()); // a first start leaves it in WAL mode
            CreaCollezione(QStringLiteral("Dischi"), QString());
            ChiudiDatabase();
            attesi << Programma::NomeArchivio();
        }
        const QString eseguibile = CopiaProgramma(cartella.path());
        const QByteArray prima = Contenuto(archivio);
        QFile::setPermissions(archivio, caso == "file" ? SolaLettura : Aperta);
        QFile::setPermissions(cartella.path(), caso == "folder" ? SolaLettura : Aperta);
        const Esito esito = EseguiSenzaPrivilegi(eseguibile, runtime.path());
        QFile::setPermissions(cartella.path(), Aperta);
        QCOMPARE(esito.uscita, 1);
        QVERIFY2(esito.errore.contains(archivio), qPrintable(esito.errore));
        QCOMPARE(Contenuto(archivio), prima);
        QCOMPARE(QDir(cartella.path()).entryList(QDir::Files), attesi);
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
        const Esito esito = Esegui(CopiaProgramma(cartella.path()), argomenti, ambiente);
        QCOMPARE(esito.uscita, uscita);
        const QString detto = uscita == 0 ? esito.uscitaStandard : esito.errore;
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
        const Esito seconda = Esegui(eseguibile, {}, ambiente);
        QCOMPARE(seconda.uscita, 1);
        QVERIFY(!QFile::exists(archivio));
        QVERIFY2(seconda.errore.contains(archivio), qPrintable(seconda.errore));
    }

    // The first instance holds the lock while it waits at its empty store's prompt; the second ends at once.
    void aSecondInstanceEndsAtOnce() {
        QTemporaryDir cartella;
        ArchivioTemporaneo::CopiaVuoto(cartella.path());
        const QString eseguibile = CopiaProgramma(cartella.path());
        QProcess prima;
        prima.setProcessEnvironment(AmbienteProva(cartella.path()));
        prima.start(eseguibile, {});
        QVERIFY(prima.waitForStarted());
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(cartella.filePath(QStringLiteral("orvix.lock"))), 20000);
        QCOMPARE(Esegui(eseguibile, {}, AmbienteProva(cartella.path())).uscita, 0);
        QCOMPARE(prima.state(), QProcess::Running);
        prima.kill();
        prima.waitForFinished();
    }
};

QTEST_MAIN(TestAvvio)
#include "tst_avvio.moc"
