#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "interazionescriptata.h"
#include "letture.h"

#include "aprirecord.h"
#include "form1.h"
#include "frmmain.h"
#include "frmrecord.h"
#include "listecontrolli.h"
#include "programma.h"
#include "ripristino.h"
#include "routinesql.h"

#include <QAction>
#include <QDir>
#include <QStatusBar>
#include <QtTest>
#include <sqlcipher/sqlite3.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

void Scrivi(const QString& percorso, const QByteArray& dati) {
    QFile file(percorso);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(dati) == dati.size());
}

// Every collection with its fields and values, in id order: what a user would miss.
QString Istantanea(Connessione& archivio) {
    static const QString sql = QStringLiteral(
        "select group_concat(riga, ' / ') from (select c.nome||'|'||ifnull(c.descrizione,'')||'|'||"
        "ifnull(f.nome,'')||'|'||ifnull(v.numerorecord,'')||'|'||ifnull(v.valore,'') as riga from collezioni "
        "c "
        "left join campi f on f.id_collezione=c.id left join valori v on v.id_campo=f.id "
        "order by c.id, f.id, v.numerorecord)");
    return archivio.ApriRecordset(sql).Campo(0).toString();
}

// The file opened alone, in a folder of its own: nothing beside it can complete it.
QString IstantaneaDelFile(const QString& percorso) {
    QTemporaryDir cartella;
    const QString copia = cartella.filePath(Programma::NomeArchivio());
    QFile::copy(percorso, copia);
    Connessione archivio;
    archivio.Apri(copia, Programma::PasswordArchivio());
    return Istantanea(archivio);
}

// The POSIX locks this process holds on the file now at the path, as the kernel lists them.
int BlocchiPosix(const QString& percorso) {
    struct stat dati {};
    if (::stat(QFile::encodeName(percorso).constData(), &dati) != 0)
        return -1;
    QFile elenco(QStringLiteral("/proc/locks"));
    if (!elenco.open(QIODevice::ReadOnly | QIODevice::Text))
        return -1;
    const QString pid = QString::number(QCoreApplication::applicationPid());
    const QString inode = QStringLiteral(":") + QString::number(dati.st_ino);
    int blocchi = 0;
    for (const QByteArray& riga : elenco.readAll().split('\n')) {
        const QStringList campi = QString::fromLatin1(riga).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        blocchi += campi.size() > 5 && campi.at(1) == QLatin1String("POSIX") && campi.at(4) == pid &&
                   campi.at(5).endsWith(inode);
    }
    return blocchi;
}

// The names that left or were removed from a folder while a watch was on it.
class SparizioniNellaCartella final {
public:
    explicit SparizioniNellaCartella(const QString& cartella)
        : m_coda(inotify_init1(IN_NONBLOCK))
        , m_guardia(inotify_add_watch(m_coda, QFile::encodeName(cartella).constData(),
                                      IN_DELETE | IN_MOVED_FROM)) {}
    ~SparizioniNellaCartella() { ::close(m_coda); }
    SparizioniNellaCartella(const SparizioniNellaCartella&) = delete;
    SparizioniNellaCartella& operator=(const SparizioniNellaCartella&) = delete;

    bool Attiva() const { return m_coda >= 0 && m_guardia >= 0; }
    QStringList Nomi() const {
        QStringList nomi;
        alignas(inotify_event) char dati[8192];
        for (ssize_t letti; (letti = ::read(m_coda, dati, sizeof dati)) > 0;)
            for (ssize_t i = 0; i < letti;) {
                const auto* evento = reinterpret_cast<const inotify_event*>(dati + i);
                nomi << QFile::decodeName(evento->len ? evento->name : "");
                i += static_cast<ssize_t>(sizeof(inotify_event) + evento->len);
            }
        return nomi;
    }

private:
    int m_coda;
    int m_guardia;
};

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
    QString Attuale() { return Istantanea(Database()); }

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

private Q_SLOTS:
    // Recovery copies are named by the minute: a fixed one makes their names known in advance.
    void initTestCase() {
        ImpostaOrologioRipristino([] { return QDateTime(QDate(2026, 3, 1), QTime(9, 5, 59)); });
    }

    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        const qint32 dischi = CreaCollezione(QStringLiteral("Dischi"), QStringLiteral("in vinile"));
        const qint32 titolo = AggiungiCampo(dischi, {{"nome", "Titolo"}});
        ScriviValore(titolo, 1, QStringLiteral("Blue Train"));
        ScriviValore(titolo, 2, QStringLiteral("L'isola\r\nche non c'è"));
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

    // Aimed at the store or at its log, the backup says why and writes nothing. Changes still in the log
    // are in the copy by itself, which replaces the file there.
    void backupIsAWholeStoreAndRepeatsExactly() {
        Cambia();
        QVERIFY(QFileInfo(Archivio() + "-wal").size() > 0);
        const QString atteso = Attuale();
        const QStringList file = QDir(m_archivio->Cartella()).entryList(QDir::Files);
        const QString archivio = AppPath() + Programma::NomeArchivio();
        Scrivi(Altrove("vecchio.dat"), "un backup di ieri, da sostituire");
        InterazioneScriptata script;
        script.File(archivio).Rispondi(Risposta::Ok).File(archivio + "-wal").Rispondi(Risposta::Ok);
        script.File(Altrove("vecchio.dat"));
        for (int i = 0; i < 3; ++i)
            IstanzaForm1()->mnuBackup->trigger();
        VERIFICA_SCRIPT(script);
        QCOMPARE(QDir(m_archivio->Cartella()).entryList(QDir::Files), file);
        QCOMPARE(IstantaneaDelFile(Altrove("vecchio.dat")), atteso);
        QCOMPARE(Attuale(), atteso);
    }

    // Restored with a record window open: No leaves everything; Yes closes it and brings the backup's data
    // exactly in a new collections window; what the store held before (changes still in its log) is in the
    // recovery copy.
    void roundTrip() {
        const QString salvato = Attuale();
        Backup(Altrove("copia.dat"));
        Cambia();
        const QString cambiato = Attuale();
        ApriRecord(IstanzaForm1()->List1->item(0)->data(Qt::UserRole).toInt(), 1);
        InterazioneScriptata script;
        script.Rispondi(Risposta::No);
        Restore(script);
        QVERIFY(IstanzaRecord());
        QCOMPARE(Attuale(), cambiato);
        QVERIFY(CopieRecupero().isEmpty());
        script.Rispondi(Risposta::Si).File(Altrove("copia.dat"));
        Restore(script);
        QVERIFY(!IstanzaRecord() && IstanzaForm1()->isVisible());
        QCOMPARE(Attuale(), salvato);
        QCOMPARE(CopieRecupero().size(), 1);
        QCOMPARE(IstantaneaDelFile(AppPath() + CopieRecupero().at(0)), cambiato);
        // The store in use is not a backup to read: choosing it says so and changes nothing.
        script.File(Archivio()).Rispondi(Risposta::Ok);
        Restore(script);
        QCOMPARE(script.TestiMessaggi().last(),
                 "Non è possibile leggere " + Archivio() + ": è l'archivio delle collezioni in uso.");
        QCOMPARE(Attuale(), salvato);
        QCOMPARE(CopieRecupero().size(), 1);
    }

    // A wrong file fails the restore: the program goes on with no open store and names the recovery copy.
    // The second failure's copy holds the first one's wrong file; its message still names the copy that
    // holds the user's data (with the changes that were in the log), and putting it back brings all back.
    void twoFailedRestoresInARowLoseNothing() {
        Cambia();
        const QString atteso = Attuale();
        Scrivi(Altrove("testo.dat"), "non sono un archivio");
        InterazioneScriptata script;
        script.File(Altrove("testo.dat")).Rispondi(Risposta::Ok);
        Restore(script);
        QVERIFY(!Database().Aperta() && m_frame->isVisible() && IstanzaForm1()->isVisible());
        const QString buona = AppPath() + CopieRecupero().value(0);
        script.File(Altrove("testo.dat")).Rispondi(Risposta::Ok);
        Restore(script);
        const QStringList copie = CopieRecupero();
        const QString nome = Programma::NomeArchivio() + ".prima-del-ripristino-20260301-0905";
        QCOMPARE(copie, (QStringList{nome, nome + "-2"}));
        QCOMPARE(Contenuto(AppPath() + copie.value(0)) + Contenuto(AppPath() + copie.value(1)),
                 Contenuto(buona) + "non sono un archivio");
        for (const QString& testo : script.TestiMessaggi())
            QVERIFY2(testo.contains("conservato nel file:\n" + buona + "\n"), qPrintable(testo));
        QCOMPARE(IstantaneaDelFile(buona), atteso);
        Rimetti(buona);
        QCOMPARE(Attuale(), atteso);
    }

    // Another program holding the store keeps its log from being emptied at the close: the restore
    // stops before touching anything, and the store opens again with every change.
    void aStoreHeldElsewhereIsNotReplaced() {
        Backup(Altrove("copia.dat"));
        Cambia();
        const QString cambiato = Attuale();
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
        QVERIFY(script.TestiMessaggi().at(0).startsWith("Il ripristino è stato annullato"));
        QVERIFY(CopieRecupero().isEmpty());
        QCOMPARE(Attuale(), cambiato);
    }
    // The copy is read through the engine: the locks it holds on the store and its index stay, so
    // no other program can empty the log or change the store under it. The status bar says where.
    void backupKeepsTheEngineLocks() {
        Cambia();
        const int store = BlocchiPosix(Archivio());
        const int indice = BlocchiPosix(Archivio() + "-shm");
        QVERIFY2(store > 0 && indice > 0, qPrintable(QStringLiteral("%1 %2").arg(store).arg(indice)));
        Backup(Altrove("copia.dat"));
        QCOMPARE(BlocchiPosix(Archivio()), store);
        QCOMPARE(BlocchiPosix(Archivio() + "-shm"), indice);
        QCOMPARE(m_frame->statusBar()->currentMessage(), "Backup salvato in " + Altrove("copia.dat"));
        QCOMPARE(IstantaneaDelFile(Altrove("copia.dat")), Attuale());
    }

    // A folder that is missing or cannot be written is named in the message; nothing is written.
    void backupToAFolderThatCannotBeWritten() {
        QList<std::pair<QString, QString>> casi{{Altrove("manca"), QStringLiteral("la cartella non esiste")}};
        const QString chiusa = Altrove("chiusa");
        QVERIFY(QDir().mkdir(chiusa) && QFile::setPermissions(chiusa, QFile::ReadOwner | QFile::ExeOwner));
        if (!QFileInfo(chiusa).isWritable()) // the superuser writes in any folder
            casi.append({chiusa, QStringLiteral("manca il permesso di scrittura")});
        for (const auto& [cartella, motivo] : std::as_const(casi)) {
            InterazioneScriptata script;
            script.File(cartella + "/copia.dat").Rispondi(Risposta::Ok);
            IstanzaForm1()->mnuBackup->trigger();
            VERIFICA_SCRIPT(script);
            QCOMPARE(script.TestiMessaggi().value(0),
                     "Non è possibile scrivere nella cartella " + cartella + ": " + motivo + ".");
            QVERIFY(QDir(cartella).isEmpty());
        }
    }

    // The backup takes the store's name in one rename: the name never disappears, so a stop at any
    // moment leaves a whole store there. The engine then holds its locks on the new file.
    void restoreReplacesTheStoreInOneStep() {
        Backup(Altrove("copia.dat"));
        const QString salvato = Attuale();
        Cambia();
        const SparizioniNellaCartella sparizioni(m_archivio->Cartella());
        QVERIFY(sparizioni.Attiva());
        Rimetti(Altrove("copia.dat"));
        QCOMPARE(Attuale(), salvato);
        const QStringList sparite = sparizioni.Nomi();
        QVERIFY2(!sparite.contains(Programma::NomeArchivio()), qPrintable(sparite.join(',')));
        QVERIFY(BlocchiPosix(Archivio()) > 0 && BlocchiPosix(Archivio() + "-shm") > 0);
    }
};

QTEST_MAIN(TestBackup)
#include "tst_backup.moc"
