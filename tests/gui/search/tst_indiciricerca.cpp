#include "archiviotemporaneo.h"
#include "campiprova.h"

#include "archivio.h"
#include "confrontotesto.h"
#include "programma.h"
#include "routinesql.h"
#include "sqlricerca.h"

#include <QProcess>
#include <QtTest>

// How the store finds a search's rows: the indexes it reads, the keys that let a whole value be
// sought under the program's case folding, and a store that a plain engine shell still finds sound.
class TestIndiciRicerca final : public QObject {
    Q_OBJECT

    // Precomposed and decomposed accents, capitals, and the characters that fold to ASCII alone
    // (ſ, the Kelvin sign, the Greek question mark); "città" and "cittadino", "Èra" and "Fine" sort
    // one way under the program's folding and the other way byte by byte.
    const QStringList m_valori{
        QStringLiteral("città"),       QStringLiteral("CITTÀ"),
        QStringLiteral("citta\u0300"), QStringLiteral("CITTA\u0300"),
        QStringLiteral("citta"),       QStringLiteral("cittadino"),
        QStringLiteral("Èra"),         QStringLiteral("era"),
        QStringLiteral("Fine"),        QStringLiteral("ſole"),
        QStringLiteral("SOLE"),        QStringLiteral("\u212Aiwi"),
        QStringLiteral("kiwi"),        QStringLiteral("a;b"),
        QStringLiteral("A\u037Eb"),    QStringLiteral("Roma"),
        QStringLiteral("roma "),       QStringLiteral("una nota lunga abbastanza da superare la chiave")};

    static QStringList Piano(const QString& sql) {
        QStringList passi;
        for (const QString& riga : RigheSql(QStringLiteral("explain query plan ") + sql))
            passi << riga.section(QLatin1Char('|'), 3);
        return passi;
    }

    static QStringList IndiciRicerca() {
        QStringList indici;
        for (const QString& sql :
             RigheSql(QStringLiteral("select sql from sqlite_master where name in "
                                     "('valori_ricerca','valori_chiave') order by name")))
            indici << sql.simplified();
        return indici;
    }

    qint32 Valori() {
        const qint32 id = CreaCollezione(QStringLiteral("Parole"), QString());
        const qint32 campo = AggiungiCampo(id, {{"nome", "Parola"}});
        for (int i = 0; i < m_valori.size(); ++i)
            ScriviValore(campo, i + 1, m_valori.at(i));
        return campo;
    }

private Q_SLOTS:
    // Whatever the text, the key sought finds exactly the values the folding calls equal, and a
    // whole value is sought through the key while a contained one reads one index alone.
    void chiaviSecondoLaPiegatura() {
        ArchivioTemporaneo archivio;
        const qint32 campo = Valori();
        QStringList testi = m_valori;
        testi << "CITTA"
              << "Città"
              << "ÈRA"
              << "SOLE"
              << "KIWI"
              << "A;B"
              << "roma"
              << "x";
        for (const QString& testo : std::as_const(testi)) {
            QStringList attesi;
            for (int i = 0; i < m_valori.size(); ++i) {
                if (TestiUguali(m_valori.at(i), testo))
                    attesi << QString::number(i + 1);
            }
            QStringList trovati;
            for (const QString& riga : RigheSql(SqlRicerca(campo, testo, true)))
                trovati << riga.section(QLatin1Char('|'), 1, 1);
            trovati.sort();
            attesi.sort();
            QVERIFY2(trovati == attesi,
                     qPrintable(testo + ": " + trovati.join(',') + " / " + attesi.join(',')));
        }
        QCOMPARE(RigheSql(SqlRicerca(campo, "città", true)).size(), 4);
        QVERIFY(Piano(SqlRicerca(campo, "Roma", true)).join(' ').contains("USING INDEX valori_chiave"));
        QCOMPARE(Piano(SqlRicerca(campo, "ott", false)),
                 QStringList("SEARCH TABLE VALORI USING COVERING INDEX valori_ricerca (id_campo=?)"));
    }

    // A store made before the search indexes gets them, as the shipped store has them, when opened.
    void archivioPrecedente() {
        ArchivioTemporaneo archivio;
        const QStringList spediti = IndiciRicerca();
        QCOMPARE(spediti.size(), 2);
        Database().Esegui("drop index valori_ricerca");
        Database().Esegui("drop index valori_chiave");
        QVERIFY(IndiciRicerca().isEmpty());
        ChiudiDatabase();
        ApriDatabase(archivio.Cartella());
        QCOMPARE(IndiciRicerca(), spediti);
    }

    // A shell with none of the program's collations or functions finds the store sound, writes a row
    // into it, and the program then finds that row by its folded value.
    void shellSemplice() {
        ArchivioTemporaneo archivio;
        const qint32 campo = Valori();
        ChiudiDatabase();
        QProcess shell;
        shell.start(QStringLiteral("sqlcipher"), {archivio.PercorsoArchivio()});
        QVERIFY2(shell.waitForStarted(), "sqlcipher is missing: scripts/deps installs it");
        shell.write(("PRAGMA key='" + Programma::PasswordArchivio() + "';\n").toUtf8());
        shell.write("PRAGMA integrity_check;\n");
        shell.write(QStringLiteral("insert into valori (id_campo, valore, data_ins, data_mod, numerorecord) "
                                   "values (%1, 'ÈRA DI ROMA', '2024-05-01', '2024-05-01', 99);\n")
                        .arg(campo)
                        .toUtf8());
        shell.write("PRAGMA integrity_check;\n");
        shell.closeWriteChannel();
        QVERIFY(shell.waitForFinished(30000));
        const QString detto = QString::fromUtf8(shell.readAllStandardOutput() + shell.readAllStandardError());
        QCOMPARE(detto.split('\n', Qt::SkipEmptyParts).filter(QRegularExpression("^(?!ok$)")), QStringList());
        QCOMPARE(detto.count("ok"), 2);
        ApriDatabase(archivio.Cartella());
        QCOMPARE(RigheSql(SqlRicerca(campo, "èra di roma", true)).value(0).section('|', 0, 1),
                 "ÈRA DI ROMA|99");
        QCOMPARE(RigheSql("PRAGMA integrity_check"), QStringList("ok"));
    }
};

QTEST_MAIN(TestIndiciRicerca)
#include "tst_indiciricerca.moc"
