#include "matheval.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestMathEval final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy)); }

    // One pass per operator in the order ^ / \ * - +, leftmost first; a leading '-' is a sign; \ rounds
    // half to even then truncates; '.' only groups thousands; partial results keep 15 digits, no exponent.
    // "expression = result"; "nan": refused, the result left at 0.
    void valuta() {
        const QString casi =
            u"2 + 3 * 4 = 14;2 * (3 + (4 - 1) * 2) = 18;10 - 2 - 3 = 5;2 - 5 + 1 = -2;3 * 7 \\ 2 = 9;"
            "2^3^2 = 64;5 - - 3 = 8;-2 ^ 2 = 4;2 * -3 ^ 2 = 18;2,5 \\ 1 = 2;-7 \\ 2 = -3;"
            "1.000 + 0,5 = 1000.5;1 / 3 * 3 = 0.999999999999999;(0 - 0,000003) * 2 = -0.000006;"
            "1000000 * 1000000000 - 1 = 999999999999999;--5 = nan;5 \\ 0,4 = nan;8 / 0 = nan;"
            "10 ^ 400 = nan;-8 ^ 0,5 = nan;1.5 + 1 = nan; = nan;2 + a = nan;1E5 = nan;(2+3 = nan;"
            ")2+3( = nan;2 + = nan"_s;
        for (const QString& caso : casi.split(u';')) {
            double risultato = 99.0;
            const bool valida = MathEval().Valuta(caso.section(u" = "_s, 0, 0), risultato);
            const QString atteso = caso.section(u" = "_s, 1);
            QCOMPARE(caso + (valida ? u" -> "_s + QString::number(risultato, 'g', 17)
                                    : u" -> nan "_s + QString::number(risultato)),
                     caso + (atteso == u"nan"_s ? u" -> nan 0"_s
                                                : u" -> "_s + QString::number(atteso.toDouble(), 'g', 17)));
        }
    }

    void segueLocaleCorrente() {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        double risultato = 0.0;
        QVERIFY(MathEval().Valuta(u"1.5 * 2 / 4"_s, risultato) && risultato == 0.75 &&
                !MathEval().Valuta(u"1,5 * 2"_s, risultato));
    }
};

QTEST_APPLESS_MAIN(TestMathEval)
#include "tst_matheval.moc"
