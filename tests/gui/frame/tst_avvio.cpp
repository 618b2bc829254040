#include "archiviotemporaneo.h"
#include "interazionescriptata.h"
#include "letture.h"

#include "avvio.h"
#include "form1.h"
#include "frmmain.h"
#include "istanzaunica.h"
#include "programma.h"
#include "routinesql.h"

#include <QAction>
#include <QMdiArea>
#include <QProcess>
#include <QtTest>
#include <unistd.h>

namespace {

// A copy of the program in a folder of its own, so it finds its own store and help file there.
QString CopiaProgramma(const QString& cartella) {
    const QString destinazione = cartella + QStringLiteral("/orvix");
    QFile::copy(QStringLiteral(ORVIX_PROGRAMMA), destinazione);
    return destinazione;
}

void Scrivi(const QString& percorso, const QByteArray& contenuto) {
    QFile file(percorso);
    if (file.open(QIODevice::WriteOnly))
        file.write(contenuto);
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

// The real start on a store holding one collection; prompts are scripted.
struct Avviato {
    Avviato() {
        CreaCollezione(QStringLiteral("Dischi"), QString());
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
    // On an empty store the first collection's prompt comes; cancelled, or failed on a quote, it ends
    // quietly, the program goes on, and the menu's next try shows the engine's message.
    void theFirstCollectionsPromptsEndQuietly() {
        ArchivioTemporaneo archivio;
        ChiudiDatabase();
        InterazioneScriptata script;
        script.Digita(QStringLiteral("L'isola d'Arturo")).Digita(QString());
        std::unique_ptr<frmMAIN> frame(EseguiAvvio(archivio.Cartella()));
        VERIFICA_SCRIPT(script);
        QVERIFY(frame->isVisible() && IstanzaForm1() && IstanzaForm1()->isVisible());
        QCOMPARE(IstanzaForm1()->List1->count(), 0);
        QCOMPARE(Valori("select count(*) from collezioni"), "0");
        script.Digita(QStringLiteral("L'isola d'Arturo")).Digita(QString()).Rispondi(Risposta::Ok);
        IstanzaForm1()->mnuNewCollection->trigger();
        VERIFICA_SCRIPT(script);
        const Messaggio& errore = script.Richieste().constLast().messaggio;
        QVERIFY(errore.testo.contains(QLatin1String("syntax error")) && errore.icona == Icona::Critica);
    }

    // With the collections window closed, the frame's command brings it back with a fresh list; Esci closes
    // the frame and the store.
    void theCollectionsWindowReturnsAndExitClosesTheStore() {
        Avviato a;
        a.frame->AreaFigli()->closeAllSubWindows();
        QTRY_VERIFY(!IstanzaForm1());
        CreaCollezione(QStringLiteral("Francobolli"), QString());
        a.frame->findChild<QAction*>(QStringLiteral("mnuApriGestioneCollezioni"))->trigger();
        QVERIFY(IstanzaForm1() && IstanzaForm1()->isVisible());
        QCOMPARE(Elencati(*IstanzaForm1()->List1), QStringList({"Dischi", "Francobolli"}));
        QCOMPARE(a.frame->AreaFigli()->subWindowList().size(), 1);
        VERIFICA_SCRIPT(a.script);
        QPointer<frmMAIN> frame(a.frame.release());
        frame->findChild<QAction*>(QStringLiteral("mnuEsci"))->trigger();
        QTRY_VERIFY(!frame);
        QVERIFY(!Database().Aperta());
    }

    // A store that cannot be written fails the start at once, naming it, and is left as it was: a read-only
    // file, or a WAL store in a folder where its journal cannot be made. (A missing one: see the installed
    // program's test.)
    void aStoreNotWritableFailsTheStart_data() {
        QTest::addColumn<bool>("cartella");
        QTest::newRow("read-only file") << false;
        QTest::newRow("read-only folder") << true;
    }
    void aStoreNotWritableFailsTheStart() {
        QFETCH(bool, cartella);
        QTemporaryDir dove, runtime;
        const QString archivio = dove.filePath(Programma::NomeArchivio());
        ArchivioTemporaneo::CopiaVuoto(dove.path());
        ApriDatabase(dove.path()); // a first start leaves it in WAL mode
        CreaCollezione(QStringLiteral("Dischi"), QString());
        ChiudiDatabase();
        const QString eseguibile = CopiaProgramma(dove.path());
        const QByteArray prima = Contenuto(archivio);
        QFile::setPermissions(archivio, cartella ? Aperta : SolaLettura);
        QFile::setPermissions(dove.path(), cartella ? SolaLettura : Aperta);
        const Esito esito = EseguiSenzaPrivilegi(eseguibile, runtime.path());
        QFile::setPermissions(dove.path(), Aperta);
        QCOMPARE(esito.uscita, 1);
        QVERIFY2(esito.errore.contains(archivio), qPrintable(esito.errore));
        QCOMPARE(Contenuto(archivio), prima);
        QCOMPARE(QDir(dove.path()).entryList(QDir::Files), QStringList({"orvix", Programma::NomeArchivio()}));
    }

    // --version answers with no display at all, and so does an option nobody knows: the usage on standard
    // error and exit code 2; Qt's own options are let through. With the display unreachable, the program
    // says so in one line and fails.
    void commandLineAndMissingDisplay() {
        QTemporaryDir cartella;
        ArchivioTemporaneo::CopiaVuoto(cartella.path());
        const QString eseguibile = CopiaProgramma(cartella.path());
        QProcessEnvironment ambiente = AmbienteProva(cartella.path());
        for (const char* nome : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
            ambiente.remove(QLatin1String(nome));
        const Esito versione = Esegui(eseguibile, {"--version"}, ambiente);
        QVERIFY2(versione.uscita == 0 && versione.uscitaStandard.contains("Orvix 0.1.0\n"),
                 qPrintable(versione.uscitaStandard));
        for (const QStringList& argomenti : {QStringList{"--bogus"}, QStringList{"--version", "-x"},
                                             QStringList{"un-file.orx"}, QStringList{"-style"}}) {
            const Esito sconosciuta = Esegui(eseguibile, argomenti, ambiente);
            QCOMPARE(sconosciuta.uscita, 2);
            QVERIFY2(sconosciuta.uscitaStandard.isEmpty() && sconosciuta.errore.contains(argomenti.last()) &&
                         sconosciuta.errore.contains("Uso: orvix [--help] [--version]"),
                     qPrintable(sconosciuta.errore));
        }
        const Esito conQt = Esegui(eseguibile, {"-style", "fusion", "--reverse", "--version"}, ambiente);
        QVERIFY2(conQt.uscita == 0 && conQt.uscitaStandard == "Orvix 0.1.0\n", qPrintable(conQt.errore));
        ambiente.insert(QStringLiteral("DISPLAY"), QStringLiteral(":97"));
        const Esito esito = Esegui(eseguibile, {}, ambiente);
        QCOMPARE(esito.uscita, 1);
        QVERIFY2(esito.errore.contains("nessuno schermo disponibile") && esito.errore.count('\n') == 1,
                 qPrintable(esito.errore));
    }

    // Installed as <prefix>/bin/orvix, the program keeps its store and templates in the user's data folder,
    // seeded once from <prefix>/share/orvix; a store lost later fails the start instead of being replaced.
    void anInstalledProgramSeedsTheUsersFolderOnce() {
        QTemporaryDir prefisso, dati;
        QDir().mkpath(prefisso.filePath("bin"));
        QDir().mkpath(prefisso.filePath("share/orvix"));
        ArchivioTemporaneo::CopiaVuoto(prefisso.filePath("share/orvix"));
        QDir().mkpath(prefisso.filePath("share/orvix/modelli"));
        const QByteArray modello("[Info]\r\nDescrizione=Dischi in vinile\r\n");
        Scrivi(prefisso.filePath("share/orvix/modelli/Vinili.wzd"), modello);
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
        QCOMPARE(Valori("select count(*) from collezioni"), "0");
        ChiudiDatabase();
        // The gallery reads the templates from the application folder's modelli.
        QCOMPARE(QDir(dati.filePath("orvix/modelli")).entryList(QDir::Files), QStringList{"Vinili.wzd"});
        QCOMPARE(Contenuto(dati.filePath("orvix/modelli/Vinili.wzd")), modello);

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
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(cartella.filePath(QStringLiteral("orvix.lock"))), 20000);
        QCOMPARE(Esegui(eseguibile, {}, AmbienteProva(cartella.path())).uscita, 0);
        QCOMPARE(prima.state(), QProcess::Running);
        prima.kill();
        prima.waitForFinished();
    }

    // A second start asks the running program to come to the front: its frame, minimized, is restored and
    // active again, and the second program ends with nothing to say. The running one here is this process.
    void aSecondStartBringsTheRunningWindowToTheFront() {
        QTemporaryDir runtime;
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime.path()));
        Avviato a;
        QVERIFY(PrimaIstanza(PortaDavanti));
        a.frame->showMinimized();
        QTRY_VERIFY(a.frame->isMinimized());
        QTemporaryDir cartella;
        ArchivioTemporaneo::CopiaVuoto(cartella.path());
        QProcess seconda;
        seconda.setProcessEnvironment(AmbienteProva(runtime.path()));
        seconda.start(CopiaProgramma(cartella.path()), {});
        QTRY_VERIFY_WITH_TIMEOUT(seconda.state() == QProcess::NotRunning, 20000);
        QCOMPARE(seconda.exitStatus(), QProcess::NormalExit);
        QCOMPARE(seconda.exitCode(), 0);
        QCOMPARE(seconda.readAllStandardError(), QByteArray());
        QTRY_VERIFY(!a.frame->isMinimized() && QApplication::activeWindow() == a.frame.get());
    }
};

QTEST_MAIN(TestAvvio)
#include "tst_avvio.moc"
