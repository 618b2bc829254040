#include "archiviotemporaneo.h"

#include "archivio.h"
#include "formasql.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class TestFormaSql final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // "statement => its shape and the numbers lifted". Plain 64-bit integers compared are lifted;
    // arithmetic, quoted text, comments, other numbers and statements holding a placeholder stay.
    void liftsOnlyNumbersCompared() {
        const QString casi =
            u"set n=n-1 where x>-1 and y<>4 and z>= 5 and w!=6 => "
            "set n=n-1 where x>? and y<>? and z>=? and w!=? -1 4 5 6|"
            "where nome='l''x=3' and a=1 -- b=2\n and c=3 /* d=4 */ => "
            "where nome='l''x=3' and a=? -- b=2\n and c=? /* d=4 */ 1 3|"
            "where a=1.5 and b=2e3 and c=7x and d=99999999999999999999 and [k=4]|where a=? and b=5"_s;
        for (const QString& caso : casi.split(u'|')) { // no " => ": left as written
            const FormaSql forma = Parametrizza(caso.section(u" => "_s, 0, 0));
            QString ottenuto = forma.testo;
            for (const qint64 valore : forma.valori)
                ottenuto += u' ' + QString::number(valore);
            QCOMPARE(ottenuto, caso.contains(u" => "_s) ? caso.section(u" => "_s, 1) : caso);
        }
        // A lifted number compares exactly as the literal did, against an integer and a text column.
        ArchivioTemporaneo archivio;
        Database().Esegui(u"insert into valori (id_campo,valore,numerorecord) values (1,'3',3), (1,'4',4)"_s);
        QVERIFY(
            !Database().ApriRecordset(u"select 1 from valori where numerorecord=3 and valore=3"_s).Fine());
    }
};

QTEST_APPLESS_MAIN(TestFormaSql)
#include "tst_formasql.moc"
