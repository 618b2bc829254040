#include "archiviotemporaneo.h"
#include "campiprova.h"

#include "archivio.h"
#include "formasql.h"
#include "routinesql.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class TestFormaSql final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void liftsOnlyNumbersCompared_data() {
        QTest::addColumn<QString>("sql");
        QTest::addColumn<QString>("forma");
        QTest::addColumn<QList<qint64>>("valori");
        QTest::newRow("two comparisons")
            << "select * from valori where id_campo=12 and numerorecord= 3"
            << "select * from valori where id_campo=? and numerorecord=?" << QList<qint64>{12, 3};
        QTest::newRow("signs and operators")
            << "x>-1 and y<>4 and z>=5 and w!=6"
            << "x>? and y<>? and z>=? and w!=?" << QList<qint64>{-1, 4, 5, 6};
        QTest::newRow("arithmetic is left alone")
            << "update valori set numerorecord=numerorecord-1 where numerorecord>4"
            << "update valori set numerorecord=numerorecord-1 where numerorecord>?" << QList<qint64>{4};
        QTest::newRow("inside quotes")
            << "select * from collezioni where nome='a=1' and id=2"
            << "select * from collezioni where nome='a=1' and id=?" << QList<qint64>{2};
        QTest::newRow("comments") << "where a=1 -- b=2\n and c=3 /* d=4 */"
                                  << "where a=? -- b=2\n and c=? /* d=4 */" << QList<qint64>{1, 3};
        // Quoted text, numbers that are not plain 64-bit integers and placeholders stay as written.
        for (const char* intatto : {"where nome='l''x=3' and id=[k=4]", "where a=1.5 and b=2e3 and c=7x",
                                    "where a=99999999999999999999", "where a=? and b=5"})
            QTest::newRow(intatto) << QString::fromUtf8(intatto) << QString::fromUtf8(intatto)
                                   << QList<qint64>{};
    }
    void liftsOnlyNumbersCompared() {
        QFETCH(QString, sql);
        QFETCH(QString, forma);
        QFETCH(QList<qint64>, valori);
        const FormaSql risultato = Parametrizza(sql);
        QCOMPARE(risultato.testo, forma);
        QCOMPARE(risultato.valori, valori);
    }

    // The lifted numbers must compare exactly as the literals did, against integer and text columns.
    void liftedStatementsAnswerAsTheTextWould() {
        ArchivioTemporaneo archivio;
        const qint32 a = CreaCollezione(u"A"_s, QString());
        const qint32 b = CreaCollezione(u"B"_s, QString());
        const auto esegui = [](const QString& sql) { Database().Esegui(sql); };
        esegui(u"insert into campi (id_collezione,nome) values (%1,'x'), (%2,'y')"_s.arg(a).arg(b));
        for (int r = 1; r <= 5; ++r)
            esegui(
                u"insert into valori (id_campo,valore,numerorecord) values (1,'%1',%1), (2,'%2',%2)"_s.arg(r)
                    .arg(r * 10));
        for (int r = 1; r <= 5; ++r) // one integer and one text column
            QCOMPARE(RigheSql(u"select count(*) from valori where numerorecord=%1 and valore=%1"_s.arg(r)),
                     QStringList{"1"});
        QCOMPARE(ContaRecord(a), 5);
        QCOMPARE(ContaRecord(b), 50);
        esegui(u"update valori set numerorecord=numerorecord-1 where numerorecord>2 and id_campo=1"_s);
        QCOMPARE(ContaRecord(a), 4);
        QCOMPARE(ContaRecord(b), 50);
        QCOMPARE(ContaRecord(b + 1), 0);
    }
};

QTEST_APPLESS_MAIN(TestFormaSql)
#include "tst_formasql.moc"
