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
    // "a|b|ConfrontaTesti(a, b)" and "text|pattern|1 if alike": the store answers the same.
    void confrontoESomiglianza() {
        ArchivioTemporaneo archivio;
        for (const QString& caso :
             u"CITTÀ|Città|0;ΆΛΦΑ|άλφα|0;citta\u0300|CITTÀ|0;citta|città|-1;città|cittadino|-1;"
             "Èra|Fine|-1"_s.split(u';')) {
            const QStringList parti = caso.split(u'|');
            QCOMPARE(ConfrontaTesti(parti[0], parti[1]), parti[2].toInt());
            QCOMPARE(ConfrontaTesti(parti[1], parti[0]), -parti[2].toInt());
            Database().Esegui(u"insert into collezioni (nome) values ('%1')"_s.arg(parti[1]));
            QCOMPARE(RigheSql(u"select (nome='%1') || (nome>'%1') from collezioni"_s.arg(parti[0])),
                     QStringList{parti[2] == u"0"_s ? u"10"_s : u"01"_s});
            Database().Esegui(u"delete from collezioni"_s);
        }
        for (const QString& caso : u"Vivere in CITTÀ oggi|%città%|1;citta|%città%|0;città|citt_|1;"
                                   "aaab|%a%ab|1;x||0;|%%|1"_s.split(u';')) {
            const QStringList parti = caso.split(u'|');
            QVERIFY2(SomigliaA(parti[0], parti[1]) == (parti[2] == u"1"_s), qPrintable(caso));
            QCOMPARE(RigheSql(u"select '%1' like '%2'"_s.arg(parti[0], parti[1])), QStringList{parti[2]});
        }
        QVERIFY_THROWS_EXCEPTION(std::exception,
                                 Database().ApriRecordset(u"select 'a' like 'a' escape 'xy'"_s));
    }

    void namesFoldOnEveryPath() {
        ArchivioTemporaneo archivio;
        const qint32 id = CreaCollezione(u"Città"_s, QString());
        QCOMPARE(CreaCollezione(u"CITTÀ"_s, QString()), -1);
        // Many mixed-case accented names under an index: it stays consistent with the store's collation.
        Database().Esegui(u"create index prova_nome on campi (nome)"_s);
        for (int giro = 0; giro < 40; ++giro)
            for (const QString& nome :
                 u"Èra era ÉPOCA Fine cittadino CITTÀ Über über zeta ÖL öl"_s.split(u' '))
                Database().Esegui(u"insert into campi (id_collezione,nome) values (%1,'%2')"_s.arg(id).arg(
                    nome + QString::number(giro % 7)));
        QCOMPARE(RigheSql(u"pragma integrity_check"_s), QStringList({"ok"}));
        QCOMPARE(RigheSql(u"select count(*) from campi indexed by prova_nome where nome='über2'"_s),
                 QStringList({"12"}));
    }
};

QTEST_APPLESS_MAIN(TestConfrontoTesto)
#include "tst_confrontotesto.moc"
