#include "matheval.h"

#include <QLocale>
#include <QTest>

using namespace Qt::StringLiterals;

class TestMathEval final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy)); }
    void cleanup() { initTestCase(); }

    void valuta_data() {
        QTest::addColumn<QString>("espressione");
        QTest::addColumn<bool>("valida");
        QTest::addColumn<double>("atteso");
        // One pass per operator in the order ^ / \ * - +, each leftmost first.
        QTest::newRow("prodotto prima") << u"2 + 3 * 4"_s << true << 14.0;
        QTest::newRow("parentesi") << u"( 2 + 3 ) * 4"_s << true << 20.0;
        QTest::newRow("meno poi piu") << u"10 - 2 + 1"_s << true << 9.0;
        QTest::newRow("catena di meno") << u"10 - 2 - 3"_s << true << 5.0;
        QTest::newRow("diviso prima di per") << u"50 * 20 / 100"_s << true << 10.0;
        QTest::newRow("diviso prima di intera") << u"8 \\ 4 / 2"_s << true << 4.0;
        QTest::newRow("intera prima di per") << u"3 * 7 \\ 2"_s << true << 9.0;
        QTest::newRow("potenza") << u"2 ^ 3"_s << true << 8.0;
        QTest::newRow("potenze da sinistra") << u"2^3^2"_s << true << 64.0;
        QTest::newRow("annidate") << u"2 * (3 + (4 - 1) * 2)"_s << true << 18.0;
        QTest::newRow("molto annidate") << u"((((((1))))))"_s << true << 1.0;
        // A '-' with no number before it is the sign of the number after it.
        QTest::newRow("segno iniziale") << u"-3 - 2"_s << true << -5.0;
        QTest::newRow("segno dopo per") << u"2 * -3"_s << true << -6.0;
        QTest::newRow("meno meno") << u"5 - - 3"_s << true << 8.0;
        QTest::newRow("segno dopo piu") << u"1 + 2 * -3"_s << true << -5.0;
        QTest::newRow("esponente negativo") << u"2 ^ -1"_s << true << 0.5;
        QTest::newRow("segno della base") << u"-2 ^ 2"_s << true << 4.0;
        QTest::newRow("sottrazione non segno") << u"10 - 3 ^ 2"_s << true << 1.0;
        QTest::newRow("segno dopo per nella potenza") << u"2 * -3 ^ 2"_s << true << 18.0;
        QTest::newRow("negativo poi piu") << u"2 - 5 + 1"_s << true << -2.0;
        QTest::newRow("negativo poi meno") << u"3 - 5 - 1"_s << true << -3.0;
        QTest::newRow("parentesi negativa per") << u"(1 - 4) * 2"_s << true << -6.0;
        QTest::newRow("meno parentesi negativa") << u"5 - (1 - 4)"_s << true << 8.0;
        QTest::newRow("doppio segno") << u"--5"_s << false << 0.0;
        QTest::newRow("piu come segno") << u"+2"_s << false << 0.0;
        // Integer division rounds both operands half to even, then truncates.
        QTest::newRow("intera") << u"7 \\ 2"_s << true << 3.0;
        QTest::newRow("intera 2,5 al pari") << u"2,5 \\ 1"_s << true << 2.0;
        QTest::newRow("intera 3,5 al pari") << u"3,5 \\ 1"_s << true << 4.0;
        QTest::newRow("intera tronca verso zero") << u"-7 \\ 2"_s << true << -3.0;
        QTest::newRow("intera divisore arrotondato") << u"5 \\ 1,5"_s << true << 2.0;
        QTest::newRow("intera divisore a zero") << u"5 \\ 0,4"_s << false << 0.0;
        QTest::newRow("intera divisore mezzo") << u"5 \\ 0,5"_s << false << 0.0;
        QTest::newRow("intera oltre 32 bit") << u"3000000000 \\ 2"_s << false << 0.0;
        QTest::newRow("diviso zero") << u"8 / 0"_s << false << 0.0;
        QTest::newRow("potenza enorme") << u"10 ^ 400"_s << false << 0.0;
        QTest::newRow("radice di negativo") << u"-8 ^ 0,5"_s << false << 0.0;
        // Numbers are read in the user's format, where '.' only groups thousands.
        QTest::newRow("punto come migliaia") << u"1.000 + 0,5"_s << true << 1000.5;
        QTest::newRow("punto non decimale") << u"1.5 + 1"_s << false << 0.0;
        QTest::newRow("due virgole") << u"1,2,3 + 1"_s << false << 0.0;
        QTest::newRow("spazi di controllo") << u"\b2\t+\n3\r"_s << true << 5.0;
        QTest::newRow("vuota") << QString() << false << 0.0;
        QTest::newRow("lettere") << u"2 + a"_s << false << 0.0;
        QTest::newRow("notazione esponenziale") << u"1E5"_s << false << 0.0;
        QTest::newRow("parentesi aperta") << u"(2+3"_s << false << 0.0;
        QTest::newRow("parentesi chiusa") << u"2+3)"_s << false << 0.0;
        QTest::newRow("chiusa prima di aperta") << u")2+3("_s << false << 0.0;
        QTest::newRow("parentesi vuote") << u"()"_s << false << 0.0;
        QTest::newRow("manca operando destro") << u"2 +"_s << false << 0.0;
        QTest::newRow("manca operando sinistro") << u"* 2"_s << false << 0.0;
    }
    void valuta() {
        QFETCH(QString, espressione);
        QFETCH(bool, valida);
        QFETCH(double, atteso);
        double risultato = 99.0;
        QCOMPARE(MathEval().Valuta(espressione, risultato), valida);
        QCOMPARE(risultato, atteso);
    }

    // Each partial result goes back into the text with 15 significant digits and is read
    // again, so the answers are exactly those digits; tiny or huge values must not become an
    // exponent whose sign a later pass would take for a subtraction.
    void risultatiIntermediRiletti_data() {
        QTest::addColumn<QString>("espressione");
        QTest::addColumn<double>("atteso");
        QTest::newRow("dieci terzi") << u"10 / 3"_s << 3.33333333333333;
        QTest::newRow("terzo per tre") << u"1 / 3 * 3"_s << 0.999999999999999;
        QTest::newRow("piccolo poi piu") << u"0,00001 * 3 + 1"_s << 1.00003;
        QTest::newRow("piccolo tra parentesi") << u"(0,00001) * 2"_s << 0.00002;
        QTest::newRow("piccolo negativo") << u"(0 - 0,000003) * 2"_s << -0.000006;
        QTest::newRow("grande poi diviso") << u"10 ^ 20 / 10 ^ 18"_s << 100.0;
        QTest::newRow("grande poi meno") << u"1000000 * 1000000000 - 1"_s << 999999999999999.0;
    }
    void risultatiIntermediRiletti() {
        QFETCH(QString, espressione);
        QFETCH(double, atteso);
        double risultato = 0.0;
        QVERIFY(MathEval().Valuta(espressione, risultato));
        QCOMPARE(QString::number(risultato, 'g', 17), QString::number(atteso, 'g', 17));
    }

    void segueLocaleCorrente() {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        double risultato = 0.0;
        QVERIFY(MathEval().Valuta(u"1.5 * 2 / 4"_s, risultato));
        QCOMPARE(risultato, 0.75);
        QVERIFY(!MathEval().Valuta(u"1,5 * 2"_s, risultato));
    }
};

QTEST_APPLESS_MAIN(TestMathEval)
#include "tst_matheval.moc"
