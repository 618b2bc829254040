#include "archiviotemporaneo.h"
#include "campiprova.h"

#include "archivio.h"
#include "programma.h"
#include "routinesql.h"

#include <QProcess>
#include <QtTest>
#include <sqlcipher/sqlite3.h>

using namespace Qt::StringLiterals;

// Stores written by one engine series open with the other: the program pins the cipher settings
// that both read. The other engine is a separate program built against it (ORVIX_ALTRO_MOTORE).
class TestFormatoArchivio final : public QObject {
    Q_OBJECT

private:
    // What the other engine's program printed: its version, then the store's collections.
    static QStringList AltroMotore(const QStringList& argomenti) {
        const QString programma =
            qEnvironmentVariable("ORVIX_ALTRO_MOTORE", QStringLiteral(ORVIX_SCAMBIO_PROPRIO));
        QProcess processo;
        processo.start(programma, argomenti);
        const bool finito = processo.waitForFinished(120000);
        const QString errori = QString::fromLocal8Bit(processo.readAllStandardError());
        if (!finito || processo.exitStatus() != QProcess::NormalExit || processo.exitCode() != 0) {
            qWarning("%s: %s", qPrintable(programma), qPrintable(errori));
            return {};
        }
        return QString::fromLocal8Bit(processo.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
    }

    static QString Versione() { return RigheSql(u"PRAGMA cipher_version"_s).value(0); }

    static QStringList Nomi() {
        QStringList nomi;
        for (const VoceElenco& collezione : ElencoCollezioni())
            nomi << collezione.nome;
        return nomi;
    }

private Q_SLOTS:
    // A store changed here opens there and takes its change; back here, both changes read. The other
    // engine's own empty store, changed there, opens here too.
    void storesMoveBetweenEngines() {
        ArchivioTemporaneo archivio;
        const QString questo = Versione();
        CreaCollezione(u"Dischi"_s, QString());
        ChiudiDatabase();
        const QStringList letto = AltroMotore({archivio.Cartella()});
        QCOMPARE(letto.mid(1), QStringList{u"Dischi"_s});
        const QString altro = letto.at(0);
        qInfo("this engine %s, the other %s", qPrintable(questo), qPrintable(altro));
        if (qEnvironmentVariableIsSet("ORVIX_ALTRO_MOTORE"))
            QVERIFY2(questo.left(1) != altro.left(1), "the other program runs the same engine series");
        ApriDatabase(archivio.Cartella());
        QCOMPARE(Nomi(), (QStringList{u"Dischi"_s, u"motore "_s + altro}));
        ChiudiDatabase();

        QTemporaryDir cartella;
        QCOMPARE(AltroMotore({u"nuovo"_s, cartella.path()}), QStringList{altro});
        ApriDatabase(cartella.path());
        QCOMPARE(Nomi(), QStringList{u"motore "_s + altro});
        ChiudiDatabase();
    }

    // A store that this engine wrote with its own defaults (the 4.x series' differ) still opens.
    void aStoreInTheEnginesOwnFormatOpens() {
        QTemporaryDir cartella;
        const QByteArray percorso = QFile::encodeName(cartella.filePath(Programma::NomeArchivio()));
        sqlite3* db = nullptr;
        QCOMPARE(sqlite3_open(percorso.constData(), &db), SQLITE_OK);
        const QByteArray chiave = Programma::PasswordArchivio().toUtf8();
        sqlite3_key(db, chiave.constData(), static_cast<int>(chiave.size()));
        QCOMPARE(sqlite3_exec(db,
                              "create table collezioni (id integer primary key, nome text);"
                              "create table campi (id integer);"
                              "create table valori (id_campo integer, numerorecord integer, valore text, "
                              "data_ins text, data_mod text);"
                              "insert into collezioni (nome) values ('Monete')",
                              nullptr, nullptr, nullptr),
                 SQLITE_OK);
        sqlite3_close(db);
        ApriDatabase(cartella.path());
        QCOMPARE(Nomi(), QStringList{u"Monete"_s});
        ChiudiDatabase();
    }
};

QTEST_GUILESS_MAIN(TestFormatoArchivio)
#include "tst_formatoarchivio.moc"
