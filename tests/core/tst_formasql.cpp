#include "archiviotemporaneo.h"

#include "archivio.h"
#include "formasql.h"
#include "routinesql.h"

#include <QtTest>

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
        QTest::newRow("doubled quote") << "where nome='l''x=3' and id=[k=4]"
                                       << "where nome='l''x=3' and id=[k=4]" << QList<qint64>{};
        QTest::newRow("not plain integers") << "where a=1.5 and b=2e3 and c=7x"
                                            << "where a=1.5 and b=2e3 and c=7x" << QList<qint64>{};
        QTest::newRow("too large") << "where a=99999999999999999999"
                                   << "where a=99999999999999999999" << QList<qint64>{};
        QTest::newRow("own placeholders") << "where a=? and b=5"
                                          << "where a=? and b=5" << QList<qint64>{};
        QTest::newRow("comments") << "where a=1 -- b=2\n and c=3 /* d=4 */"
                                  << "where a=? -- b=2\n and c=? /* d=4 */" << QList<qint64>{1, 3};
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
        const qint32 a = CreaCollezione(QStringLiteral("A"), QString());
        const qint32 b = CreaCollezione(QStringLiteral("B"), QString());
        Database().Esegui(QStringLiteral("insert into campi (id_collezione,nome) values (%1,'x')").arg(a));
        Database().Esegui(QStringLiteral("insert into campi (id_collezione,nome) values (%1,'y')").arg(b));
        for (int r = 1; r <= 5; ++r) {
            Database().Esegui(
                QStringLiteral("insert into valori (id_campo,valore,numerorecord) values (1,'%1',%1)")
                    .arg(r));
            Database().Esegui(
                QStringLiteral("insert into valori (id_campo,valore,numerorecord) values (2,'%1',%1)")
                    .arg(r * 10));
        }
        for (int r = 1; r <= 5; ++r) {
            Recordset rs = Database().ApriRecordset(
                QStringLiteral("select valore from valori where id_campo=1 and numerorecord=%1").arg(r));
            QCOMPARE(rs.Testo(QStringLiteral("valore")), QString::number(r));
            Recordset testo = Database().ApriRecordset(
                QStringLiteral("select numerorecord from valori where valore=%1").arg(r));
            QCOMPARE(testo.Campo(0).toInt(), r);
        }
        QCOMPARE(ContaRecord(a), 5);
        QCOMPARE(ContaRecord(b), 50);
        Database().Esegui(QStringLiteral(
            "update valori set numerorecord=numerorecord-1 where numerorecord>2 and id_campo=1"));
        QCOMPARE(ContaRecord(a), 4);
        QCOMPARE(ContaRecord(b), 50);
        QCOMPARE(ContaRecord(b + 1), 0);
    }
};

QTEST_APPLESS_MAIN(TestFormaSql)
#include "tst_formasql.moc"
