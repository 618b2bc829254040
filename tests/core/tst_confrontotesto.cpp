#include "archiviotemporaneo.h"
#include "campiprova.h"

#include "archivio.h"
#include "confrontotesto.h"
#include "routinesql.h"

#include <QtTest>

using namespace Qt::StringLiterals;

// Names and values compare without regard to case for every letter, the same way in the program and
// in every statement, and sort as Italian readers expect.
class TestConfrontoTesto final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void confronto_data() {
        QTest::addColumn<QString>("a");
        QTest::addColumn<QString>("b");
        QTest::addColumn<int>("atteso");
        QTest::newRow("accented capital") << u"CITTÀ"_s << u"Città"_s << 0;
        QTest::newRow("ascii case") << u"Dischi"_s << u"DISCHI"_s << 0;
        QTest::newRow("greek") << u"ΆΛΦΑ"_s << u"άλφα"_s << 0;
        QTest::newRow("decomposed accent") << u"citta\u0300"_s << u"CITTÀ"_s << 0;
        QTest::newRow("accent is not its base") << u"citta"_s << u"città"_s << -1;
        QTest::newRow("accent sorts with its base") << u"città"_s << u"cittadino"_s << -1;
        QTest::newRow("accented capital before F") << u"Èra"_s << u"Fine"_s << -1;
        QTest::newRow("ascii order ignores case") << u"alfa"_s << u"BETA"_s << -1;
        QTest::newRow("prefix first") << u"Dis"_s << u"dischi"_s << -1;
        QTest::newRow("empty first") << QString() << u"a"_s << -1;
    }
    void confronto() {
        QFETCH(QString, a);
        QFETCH(QString, b);
        QFETCH(int, atteso);
        QCOMPARE(ConfrontaTesti(a, b), atteso);
        QCOMPARE(ConfrontaTesti(b, a), -atteso);
        // The store answers the same through its collation.
        ArchivioTemporaneo archivio;
        Database().Esegui(u"insert into collezioni (nome) values ('%1')"_s.arg(a));
        Database().Esegui(u"insert into collezioni (nome) values ('%1')"_s.arg(b));
        QCOMPARE(RigheSql(u"select nome from collezioni order by nome, id"_s).first(), atteso <= 0 ? a : b);
        QCOMPARE(RigheSql(u"select count(*) from collezioni where nome='%1'"_s.arg(a)).first().toInt(),
                 atteso ? 1 : 2);
    }

    void somiglianza_data() {
        QTest::addColumn<QString>("testo");
        QTest::addColumn<QString>("modello");
        QTest::addColumn<bool>("atteso");
        QTest::newRow("contained, other case") << u"Vivere in CITTÀ oggi"_s << u"%città%"_s << true;
        QTest::newRow("exact, other case") << u"CITTÀ"_s << u"città"_s << true;
        QTest::newRow("accent still counts") << u"citta"_s << u"%città%"_s << false;
        QTest::newRow("one character, accented") << u"città"_s << u"citt_"_s << true;
        QTest::newRow("ascii contained") << u"Il Nome della Rosa"_s << u"%nome%"_s << true;
        QTest::newRow("ascii absent") << u"Il Nome della Rosa"_s << u"%nomi%"_s << false;
        QTest::newRow("backtracking") << u"aaab"_s << u"%a%ab"_s << true;
        QTest::newRow("empty pattern") << u"x"_s << QString() << false;
        QTest::newRow("only percent") << QString() << u"%%"_s << true;
    }
    void somiglianza() {
        QFETCH(QString, testo);
        QFETCH(QString, modello);
        QFETCH(bool, atteso);
        QCOMPARE(SomigliaA(testo, modello), atteso);
        ArchivioTemporaneo archivio;
        Database().Esegui(u"insert into collezioni (nome) values ('%1')"_s.arg(testo));
        QCOMPARE(
            RigheSql(u"select count(*) from collezioni where nome like '%1'"_s.arg(modello)).first().toInt(),
            atteso ? 1 : 0);
    }

    void likeKeepsTheEnginesEscapeAndNulls() {
        ArchivioTemporaneo archivio;
        QCOMPARE(RigheSql(u"select ('a%b' like 'A!%B' escape '!') || ('100%' like '100!%' escape '!') ||"
                          u" ('è_x' like 'È!_X' escape '!') || ('abc' like 'a!_c' escape '!')"_s),
                 QStringList({"1110"}));
        QCOMPARE(RigheSql(u"select null like 'a', 'a' like null"_s), QStringList({"|"}));
        QVERIFY_THROWS_EXCEPTION(std::exception,
                                 Database().ApriRecordset(u"select 'a' like 'a' escape 'xy'"_s));
    }

    void namesFoldOnEveryPath() {
        ArchivioTemporaneo archivio;
        const qint32 id = CreaCollezione(u"Città"_s, QString());
        QCOMPARE(CreaCollezione(u"CITTÀ"_s, QString()), -1);
        QVERIFY(CreaCollezione(u"citta"_s, QString()) > id);
        // Many mixed-case accented names under an index on the folded column: the index stays
        // consistent with the collation the store compares with.
        Database().Esegui(u"create index prova_nome on campi (nome)"_s);
        const QStringList nomi{u"Èra"_s,  u"era"_s,  u"ÉPOCA"_s, u"Fine"_s, u"cittadino"_s, u"CITTÀ"_s,
                               u"Über"_s, u"über"_s, u"zeta"_s,  u"ÖL"_s,   u"öl"_s};
        for (int giro = 0; giro < 40; ++giro)
            for (const QString& nome : nomi)
                Database().Esegui(
                    u"insert into campi (id_collezione,nome) values (%1,'%2%3')"_s.arg(id).arg(nome).arg(
                        giro % 7));
        QCOMPARE(RigheSql(u"pragma integrity_check"_s), QStringList({"ok"}));
        QCOMPARE(RigheSql(u"select count(*) from campi where nome='CITTÀ3'"_s), QStringList({"6"}));
        QCOMPARE(RigheSql(u"select count(*) from campi indexed by prova_nome where nome='über2'"_s),
                 QStringList({"12"}));
        const QStringList ordine = RigheSql(u"select nome from campi where id in (select min(id) from campi "
                                            u"where nome like '%0' group by nome)"
                                            u" order by nome"_s);
        QCOMPARE(ordine, QStringList({"CITTÀ0", "cittadino0", "ÉPOCA0", "era0", "Èra0", "Fine0", "ÖL0",
                                      "Über0", "zeta0"}));
    }
};

QTEST_APPLESS_MAIN(TestConfrontoTesto)
#include "tst_confrontotesto.moc"
