#include "matheval.h"

#include <QLocale>
#include <QTest>

using namespace Qt::StringLiterals;

class TestMathEval final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy)); }
    void cleanup() { initTestCase(); }

    // One pass per operator in the order ^ / \ * - +, each leftmost first; a '-' with no number before it
    // is a sign; \ rounds both operands half to even, then truncates; '.' only groups thousands. Partial
    // results go back into the text with 15 significant digits, never as an exponent whose sign a later
    // pass would take for a subtraction: compared to the last bit.
    void valuta_data() {
        QTest::addColumn<QString>("espressione");
        QTest::addColumn<bool>("valida");
        QTest::addColumn<double>("atteso");
        const auto valida = [](const char* caso) { // "expression = result"
            const QString testo = QString::fromUtf8(caso);
            const qsizetype uguale = testo.lastIndexOf(u" = "_s);
            QTest::newRow(caso) << testo.left(uguale) << true << testo.mid(uguale + 3).toDouble();
        };
        for (const char* caso : {"2 + 3 * 4 = 14", "( 2 + 3 ) * 4 = 20", "10 - 2 + 1 = 9", "10 - 2 - 3 = 5",
                                 "50 * 20 / 100 = 10", "8 \\ 4 / 2 = 4", "3 * 7 \\ 2 = 9", "2 ^ 3 = 8",
                                 "2^3^2 = 64", "2 * (3 + (4 - 1) * 2) = 18", "((((((1)))))) = 1",
                                 "2 - 5 + 1 = -2", "3 - 5 - 1 = -3", "(1 - 4) * 2 = -6"})
            valida(caso);
        for (const char* caso :
             {"5 - (1 - 4) = 8", "-3 - 2 = -5", "2 * -3 = -6", "5 - - 3 = 8", "1 + 2 * -3 = -5",
              "2 ^ -1 = 0.5", "-2 ^ 2 = 4", "10 - 3 ^ 2 = 1", "2 * -3 ^ 2 = 18", "7 \\ 2 = 3", "2,5 \\ 1 = 2",
              "3,5 \\ 1 = 4", "-7 \\ 2 = -3", "5 \\ 1,5 = 2", "1.000 + 0,5 = 1000.5"})
            valida(caso);
        for (const char* caso :
             {"\b2\t+\n3\r = 5", "10 / 3 = 3.33333333333333", "1 / 3 * 3 = 0.999999999999999",
              "0,00001 * 3 + 1 = 1.00003", "(0,00001) * 2 = 0.00002", "(0 - 0,000003) * 2 = -0.000006",
              "10 ^ 20 / 10 ^ 18 = 100", "1000000 * 1000000000 - 1 = 999999999999999"})
            valida(caso);
        for (const char* espressione :
             {"--5", "+2", "5 \\ 0,4", "5 \\ 0,5", "3000000000 \\ 2", "8 / 0", "10 ^ 400", "-8 ^ 0,5",
              "1.5 + 1", "1,2,3 + 1", "", "2 + a", "1E5", "(2+3", "2+3)", ")2+3(", "()", "2 +", "* 2"})
            QTest::newRow(*espressione ? espressione : "vuota")
                << QString::fromUtf8(espressione) << false << 0.0;
    }
    void valuta() {
        QFETCH(QString, espressione);
        QFETCH(bool, valida);
        QFETCH(double, atteso);
        double risultato = 99.0;
        QCOMPARE(MathEval().Valuta(espressione, risultato), valida);
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
