#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "interazionescriptata.h"
#include "prune_pc.h"

#include "aprirecord.h"
#include "apriricerca.h"
#include "archivio.h"
#include "form1.h"
#include "frmmain.h"
#include "frmrecord.h"
#include "listecontrolli.h"
#include "programma.h"
#include "ripristino.h"
#include "routinesql.h"

#include <QAction>
#include <QDir>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QRegularExpression>
#include <QtTest>
#include <memory>
#include <sqlcipher/sqlite3.h>

namespace {

void Scrivi(const QString& percorso, const QByteArray& dati) {
    QFile file(percorso);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(dati);
}

// Every collection with its fields and values, in id order: what a user would miss.
QStringList Istantanea(Connessione& archivio) {
    Recordset righe = archivio.ApriRecordset(QStringLiteral(
        "select c.nome, c.descrizione, f.nome, v.numerorecord, v.valore from collezioni c left join campi f "
        "on f.id_collezione=c.id left join valori v on v.id_campo=f.id order by c.id, f.id, v.numerorecord"));
    QStringList testo;
    for (; !righe.Fine(); righe.Successivo()) {
        QStringList campi;
        for (int i = 0; i < righe.NumeroColonne(); ++i)
            campi << righe.Campo(i).toString();
        testo << campi.join(QLatin1Char('|'));
    }
    return testo;
}

// The file opened alone, in a folder of its own: nothing beside it can complete it.
QStringList IstantaneaDelFile(const QString& percorso) {
    QTemporaryDir cartella;
    const QString copia = cartella.filePath(Programma::NomeArchivio());
    QFile::copy(percorso, copia);
    Connessione archivio;
    archivio.Apri(copia, Programma::PasswordArchivio());
    return Istantanea(archivio);
}

} // namespace

// Backup and restore through the real frame and the collections window's menu.
class TestBackup final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    std::unique_ptr<frmMAIN> m_frame;
    QTemporaryDir m_altrove;

    QString Archivio() const { return m_archivio->PercorsoArchivio(); }
    QString Altrove(const char* nome) const { return m_altrove.filePath(QLatin1String(nome)); }
    QStringList Attuale() { return Istantanea(Database()); }
    QString Atteso(const QString& tipo) const {
        return tipo + "|File di Backup...||" + AppPath() + "|dat|Files di Backup...=*.dat,Tutti i files=*.*";
    }

    QStringList Elencate() { return Elencati(*IstanzaForm1()->List1); }
    QStringList Figli() {
        QStringList nomi;
        for (const QMdiSubWindow* figlio : m_frame->AreaFigli()->subWindowList())
            nomi << figlio->widget()->objectName();
        return nomi;
    }

    QStringList CopieRecupero() {
        return QDir(m_archivio->Cartella())
            .entryList({Programma::NomeArchivio() + QStringLiteral(".prima-del-ripristino-*")}, QDir::Files,
                       QDir::Name);
    }

    // A command whose only prompt is its file dialog, answered with the given path.
    void ConFile(QAction* comando, const QString& percorso) {
        InterazioneScriptata script;
        script.File(percorso);
        comando->trigger();
        QCoreApplication::processEvents();
        VERIFICA_SCRIPT(script);
    }
    void Backup(const QString& destinazione) { ConFile(IstanzaForm1()->mnuBackup, destinazione); }
    // A recovery copy put back as the failure message says: Restore, and the copy chosen.
    void Rimetti(const QString& copia) { ConFile(IstanzaForm1()->mnuRestore, copia); }

    // The command as the menu runs it; the steps after the choice run from the event loop.
    void Restore(InterazioneScriptata& script) {
        IstanzaForm1()->mnuRestore->trigger();
        QCoreApplication::processEvents();
        VERIFICA_SCRIPT(script);
    }

    // Committed changes that stay in the log until the next checkpoint.
    void Cambia() {
        Database().Esegui(QStringLiteral("delete from collezioni where nome='Libri'"));
        Database().Esegui(QStringLiteral("update valori set valore='Giant Steps' where valore='Blue Train'"));
        CreaCollezione(QStringLiteral("Monete"), QString());
    }

    qint64 Log() const { return QFileInfo(Archivio() + QStringLiteral("-wal")).size(); }

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        const qint32 dischi = CreaCollezione(QStringLiteral("Dischi"), QStringLiteral("in vinile"));
        const qint32 titolo = AggiungiCampo(dischi, {{"nome", "Titolo"}});
        const qint32 anno = AggiungiCampo(dischi, {{"nome", "Anno"}, {"top", 60}});
        ScriviValore(titolo, 1, QStringLiteral("Blue Train"));
        ScriviValore(anno, 1, QStringLiteral("1957"));
        ScriviValore(titolo, 2, QStringLiteral("L'isola\r\nche non c'è"));
        ScriviValore(anno, 2, QStringLiteral("1980"));
        ScriviValore(AggiungiCampo(CreaCollezione(QStringLiteral("Libri"), QString()), {{"nome", "Editore"}}),
                     1, QStringLiteral("Einaudi"));
        m_frame = std::make_unique<frmMAIN>();
        CaricaCollezioniInLista(*IstanzaForm1()->List1);
        m_frame->show();
    }

    void cleanup() {
        m_frame.reset();
        m_archivio.reset();
    }

    // Changes still in the log are in the copy by itself; it replaces the file there, and a second
    // backup with no change between is the same bytes.
    void backupIsAWholeStoreAndRepeatsExactly() {
        Cambia();
        QVERIFY(Log() > 0);
        const QStringList atteso = Attuale();
        Scrivi(Altrove("vecchio.dat"), "un backup di ieri, da sostituire");
        InterazioneScriptata script;
        script.File(Altrove("vecchio.dat")).File(Altrove("nuovo.dat"));
        IstanzaForm1()->mnuBackup->trigger();
        IstanzaForm1()->mnuBackup->trigger();
        VERIFICA_SCRIPT(script);
        QCOMPARE(DialogoFile(script.Richieste().at(0).file), Atteso("salva"));
        QCOMPARE(IstantaneaDelFile(Altrove("vecchio.dat")), atteso);
        QCOMPARE(Contenuto(Altrove("nuovo.dat")), Contenuto(Altrove("vecchio.dat")));
        QCOMPARE(Contenuto(Altrove("nuovo.dat")), Contenuto(Archivio()));
        QCOMPARE(Attuale(), atteso);
    }

    void backupWritesNothingWhenCancelledOrAimedAtTheStore_data() {
        QTest::addColumn<QString>("scelta");
        QTest::newRow("cancelled") << QString();
        QTest::newRow("the store itself") << "personalizza.orx";
        QTest::newRow("the store's log") << "personalizza.orx-wal";
    }
    void backupWritesNothingWhenCancelledOrAimedAtTheStore() {
        QFETCH(QString, scelta);
        Cambia();
        const QStringList atteso = Attuale();
        const QStringList file = QDir(m_archivio->Cartella()).entryList(QDir::Files);
        const QString percorso = scelta.isEmpty() ? scelta : AppPath() + scelta;
        InterazioneScriptata script;
        script.File(percorso);
        if (!scelta.isEmpty())
            script.Rispondi(Risposta::Ok);
        IstanzaForm1()->mnuBackup->trigger();
        VERIFICA_SCRIPT(script);
        if (!scelta.isEmpty())
            QCOMPARE(Descrivi(script.Richieste().at(1).messaggio),
                     "Il backup non può essere scritto sull'archivio stesso: " + percorso + " | Orvix | 11");
        QVERIFY(Log() > 0);
        QCOMPARE(QDir(m_archivio->Cartella()).entryList(QDir::Files), file);
        QCOMPARE(Attuale(), atteso);
    }

    // Restored with the record and search windows open: the question, then the backup's data exactly, in a
    // new collections window; what the store held before (changes still in its log) is in the recovery copy.
    void roundTrip() {
        const QStringList salvato = Attuale();
        Backup(Altrove("copia.dat"));
        Cambia();
        QVERIFY(Log() > 0);
        const QStringList cambiato = Attuale();
        const qint32 dischi = IstanzaForm1()->List1->item(0)->data(Qt::UserRole).toInt();
        ApriRecord(dischi, 1);
        ApriRicerca(dischi);
        QCOMPARE(Figli(), QStringList({"Form1", "frmRecord", "frmFind"}));
        const QPointer<Form1> prima = IstanzaForm1();
        InterazioneScriptata script;
        script.Rispondi(Risposta::Si).File(Altrove("copia.dat"));
        Restore(script);
        QCOMPARE(Descrivi(script.Richieste().at(0).messaggio),
                 QStringLiteral("La finestra INSERIMENTO RECORD deve essere chiusa prima di procedere con "
                                "l'operazione di RESTORE.\nSi desidera proseguire ugualmente chiudendo tale "
                                "finestra automaticamente? | Orvix | 301"));
        QCOMPARE(DialogoFile(script.Richieste().at(1).file), Atteso("apri"));
        QVERIFY(prima.isNull() && !IstanzaRecord() && !FinestraRicerca());
        QCOMPARE(Figli(), QStringList{"Form1"});
        QVERIFY(IstanzaForm1()->isVisible() && m_frame->isVisible());
        QCOMPARE(IstanzaForm1()->IdCollezioneCorrente(), -1);
        QCOMPARE(Elencate(), QStringList({"Dischi", "Libri"}));
        QCOMPARE(Attuale(), salvato);
        const QStringList copie = CopieRecupero();
        QCOMPARE(copie.size(), 1);
        QVERIFY(copie.at(0).contains(
            QRegularExpression(R"(^personalizza\.orx\.prima-del-ripristino-\d{8}-\d{4}$)")));
        QCOMPARE(IstantaneaDelFile(AppPath() + copie.at(0)), cambiato);
        // The restored store goes on working.
        CreaCollezione(QStringLiteral("Francobolli"), QString());
        CaricaCollezioniInLista(*IstanzaForm1()->List1);
        QCOMPARE(Elencate(), QStringList({"Dischi", "Libri", "Francobolli"}));
    }

    // No or Annulla at the question, or no file chosen: nothing closes, changes, or is copied.
    void anythingButYesOrAFileLeavesEverything_data() {
        QTest::addColumn<int>("risposta");
        QTest::newRow("No") << int(Risposta::No);
        QTest::newRow("Annulla") << int(Risposta::Annulla);
        QTest::newRow("no file") << -1;
    }
    void anythingButYesOrAFileLeavesEverything() {
        QFETCH(int, risposta);
        Backup(Altrove("copia.dat"));
        Cambia();
        const QStringList cambiato = Attuale();
        if (risposta >= 0)
            ApriRecord(IstanzaForm1()->List1->item(0)->data(Qt::UserRole).toInt(), 1);
        const QStringList figli = Figli();
        const QPointer<Form1> collezioni = IstanzaForm1();
        InterazioneScriptata script;
        if (risposta >= 0)
            script.Rispondi(Risposta(risposta));
        else
            script.File(QString());
        Restore(script);
        QCOMPARE(IstanzaForm1(), collezioni.data());
        QCOMPARE(Figli(), figli);
        QVERIFY(Database().Aperta());
        QCOMPARE(Attuale(), cambiato);
        QVERIFY(CopieRecupero().isEmpty());
    }

    // The order of the steps would delete the chosen file before copying it; the restore reads it first.
    void restoringTheStoreOntoItselfKeepsIt() {
        Cambia();
        const QStringList atteso = Attuale();
        Rimetti(Archivio());
        QCOMPARE(Attuale(), atteso);
        QCOMPARE(Elencate(), QStringList({"Dischi", "Monete"}));
    }

    void anEmptyBackupStartsTheNewCollectionPrompts() {
        ArchivioTemporaneo::CopiaVuoto(m_altrove.path());
        InterazioneScriptata script;
        script.File(Altrove("personalizza.orx")).Digita(QString());
        Restore(script);
        QCOMPARE(script.Richieste().at(1).messaggio.testo,
                 QStringLiteral("Digita il nome della nuova Collezione?"));
        QVERIFY(Attuale().isEmpty());
        QCOMPARE(Elencate(), QStringList());
        QCOMPARE(Figli(), QStringList{"Form1"});
    }

    void aWrongFileFailsAndLosesNothing_data() {
        QTest::addColumn<QByteArray>("dati");
        QTest::addColumn<QString>("errore");
        QTest::newRow("text file") << QByteArray("Titolo;Anno\r\nBlue Train;1957\r\n")
                                   << "file is encrypted or is not a database";
        QTest::newRow("zero bytes") << QByteArray() << "il file non contiene un archivio delle collezioni";
        QTest::newRow("SQLite without the key")
            << QByteArray("sqlite") << "file is encrypted or is not a database";
    }

    // The message names the recovery copy and how to put it back; the program goes on with no open
    // store, its commands fail with a message, and putting the copy back as it says brings all back.
    void aWrongFileFailsAndLosesNothing() {
        QFETCH(QByteArray, dati);
        QFETCH(QString, errore);
        Cambia();
        const QStringList atteso = Attuale();
        if (dati == "sqlite") { // a plain SQLite file with the right tables and no key
            sqlite3* db = nullptr;
            QCOMPARE(sqlite3_open(Altrove("sbagliato.dat").toUtf8().constData(), &db), SQLITE_OK);
            QCOMPARE(
                sqlite3_exec(db,
                             "create table collezioni(id integer primary key, nome text, descrizione text, "
                             "data_creazione text); create table campi(id integer primary key); create "
                             "table valori(id_campo integer); insert into collezioni(nome) values('E');",
                             nullptr, nullptr, nullptr),
                SQLITE_OK);
            sqlite3_close(db);
        } else {
            Scrivi(Altrove("sbagliato.dat"), dati);
        }
        InterazioneScriptata script;
        script.File(Altrove("sbagliato.dat")).Rispondi(Risposta::Ok);
        Restore(script);
        const QString copia = AppPath() + CopieRecupero().value(0);
        QCOMPARE(Descrivi(script.Richieste().at(1).messaggio),
                 "Dopo il ripristino l'archivio non si apre:\n" + errore + ": " + Archivio() +
                     "\n\nL'archivio com'era prima del ripristino è conservato nel file:\n" + copia +
                     "\n\nPer rimetterlo in uso scegliere di nuovo Restore dal menu Collezione e aprire quel "
                     "file (tipo \"Tutti i files\"), oppure, a programma chiuso, copiarlo al posto di:\n" +
                     Archivio() + " | Orvix | 11");
        QCOMPARE(IstantaneaDelFile(copia), atteso);
        QVERIFY(!Database().Aperta());
        QVERIFY(m_frame->isVisible() && IstanzaForm1()->isVisible());
        QCOMPARE(Elencate(), QStringList());

        InterazioneScriptata comandi;
        comandi.Digita(QStringLiteral("Monete"))
            .Digita(QString())
            .Rispondi(Risposta::Ok)
            .Rispondi(Risposta::Ok);
        IstanzaForm1()->mnuNewCollection->trigger();
        m_frame->findChild<QAction*>(QStringLiteral("mnuApriGestioneCollezioni"))->trigger();
        VERIFICA_SCRIPT(comandi);
        for (int i : {2, 3})
            QCOMPARE(Descrivi(comandi.Richieste().at(i).messaggio),
                     QStringLiteral("Il database non è aperto | Orvix | 11"));

        Rimetti(copia);
        QCOMPARE(Attuale(), atteso);
        QCOMPARE(Elencate(), QStringList({"Dischi", "Monete"}));
        QCOMPARE(CopieRecupero().size(), 2);
    }

    // The second failure's copy holds the first one's wrong file; its message names the copy that
    // holds the user's data, which no restore has overwritten.
    void twoFailedRestoresInARowLoseNothing() {
        const QStringList atteso = Attuale();
        Scrivi(Altrove("testo.dat"), "non sono un archivio");
        Scrivi(Altrove("vuoto.dat"), QByteArray());
        InterazioneScriptata script;
        script.File(Altrove("testo.dat")).Rispondi(Risposta::Ok);
        Restore(script);
        const QStringList dopoPrimo = CopieRecupero();
        script.File(Altrove("vuoto.dat")).Rispondi(Risposta::Ok);
        Restore(script);
        const QStringList copie = CopieRecupero();
        QCOMPARE(dopoPrimo.size(), 1);
        QCOMPARE(copie.size(), 2);
        const QString buona = AppPath() + dopoPrimo.at(0);
        QCOMPARE(Contenuto(AppPath() + (copie.at(0) == dopoPrimo.at(0) ? copie.at(1) : copie.at(0))),
                 QByteArray("non sono un archivio"));
        QVERIFY(script.Richieste().at(3).messaggio.testo.contains("conservato nel file:\n" + buona + "\n"));
        QCOMPARE(IstantaneaDelFile(buona), atteso);
        Rimetti(buona);
        QCOMPARE(Attuale(), atteso);
        QCOMPARE(Elencate(), QStringList({"Dischi", "Libri"}));
    }

    // Another program holding the store keeps its log from being emptied at the close: the restore
    // stops before touching anything, and the store opens again with every change.
    void aStoreHeldElsewhereIsNotReplaced() {
        Backup(Altrove("copia.dat"));
        Cambia();
        const QStringList cambiato = Attuale();
        sqlite3* altro = nullptr;
        QCOMPARE(sqlite3_open(Archivio().toUtf8().constData(), &altro), SQLITE_OK);
        const QByteArray chiave = Programma::PasswordArchivio().toUtf8();
        sqlite3_key(altro, chiave.constData(), static_cast<int>(chiave.size()));
        QCOMPARE(sqlite3_exec(altro, "begin; select count(*) from collezioni;", nullptr, nullptr, nullptr),
                 SQLITE_OK);
        InterazioneScriptata script;
        script.File(Altrove("copia.dat")).Rispondi(Risposta::Ok);
        IstanzaForm1()->mnuRestore->trigger();
        QCoreApplication::processEvents();
        sqlite3_exec(altro, "rollback", nullptr, nullptr, nullptr);
        sqlite3_close(altro);
        VERIFICA_SCRIPT(script);
        QCOMPARE(
            Descrivi(script.Richieste().at(1).messaggio),
            "Il ripristino è stato annullato e l'archivio non è stato modificato:\nil file " + Archivio() +
                "-wal contiene modifiche non ancora scritte nell'archivio: forse un altro programma lo sta "
                "usando. Chiudere ogni altro programma che usa l'archivio e riprovare. | Orvix | 31");
        QVERIFY(CopieRecupero().isEmpty());
        QCOMPARE(Attuale(), cambiato);
        QCOMPARE(Elencate(), QStringList({"Dischi", "Monete"}));
    }

    void recoveryCopiesOfOneMinuteAreNumbered() {
        const QDateTime quando(QDate(2026, 11, 22), QTime(23, 15, 40));
        const QString base = Archivio() + QStringLiteral(".prima-del-ripristino-20261122-2315");
        QCOMPARE(NomeCopiaRecupero(Archivio(), quando), base);
        Scrivi(base, "prima");
        QCOMPARE(NomeCopiaRecupero(Archivio(), quando), base + "-2");
        Scrivi(base + "-2", "seconda");
        QCOMPARE(NomeCopiaRecupero(Archivio(), quando), base + "-3");
    }
};

QTEST_MAIN(TestBackup)
#include "tst_backup.moc"
