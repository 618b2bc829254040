#include "localeprogramma.h"
#include "numeri.h"

#include <QTest>

using namespace Qt::StringLiterals;

// "text = result;...", "nan" for a text refused.
static QList<std::pair<QString, double>> Casi(const QString& tabella) {
    QList<std::pair<QString, double>> casi;
    for (const QString& caso : tabella.split(u';'))
        casi.append({caso.section(u" = "_s, 0, 0), caso.section(u" = "_s, 1).toDouble()});
    return casi;
}

class TestNumeri final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy)); }

    // IsNumeric and CDbl accept exactly the same texts, digits grouped by three or not; CDbl gives 0 for
    // the others. Val reads a leading
    // number with a '.' point whatever the locale; CBoolTesto sets its flag false on a text it refuses;
    // CLng rounds half to even and throws out of range; sizes are whole numbers from 0 to 32767.
    void conversioni() {
        for (const auto& [testo, atteso] :
             Casi(u"1.000,5 = 1000.5;12,5abc = nan;1e400 = nan;    = nan;"
                  " -12.345.678,25  = -12345678.25;1.000 = 1000;,5 = 0.5;"
                  "+2,5e3 = 2500;1.00 = nan;1.0000 = nan;.100 = nan;1,000.5 = nan;"
                  "1,5,0 = nan;2e = nan;- = nan;1.000,5,0 = nan;inf = nan"_s)) {
            bool ok = qIsNaN(atteso);
            QCOMPARE(CDbl(testo, &ok), qIsNaN(atteso) ? 0.0 : atteso);
            QVERIFY2(ok != qIsNaN(atteso) && IsNumeric(testo) == ok, qPrintable(testo));
        }
        for (const auto& [testo, atteso] : Casi(u"2|a = 2;  -4x = -4;3,5 = 3;1.2.3 = 1.2;- = 0"_s))
            QCOMPARE(Val(testo), atteso);
        for (const auto& [testo, atteso] : Casi(u"True = 1;0,5 = 1; FALSE  = 0;Vero = nan; = nan"_s)) {
            bool ok = qIsNaN(atteso);
            QVERIFY2(CBoolTesto(testo, &ok) == (atteso == 1) && ok != qIsNaN(atteso), qPrintable(testo));
        }
        for (const auto& [testo, atteso] : Casi(u"2.5 = 2;-3.5 = -4;-2147483648.5 = -2147483648"_s))
            QCOMPARE(CLng(testo.toDouble()), atteso);
        for (const double valore : {2147483647.5, -2147483649.0, qQNaN()})
            QVERIFY_THROWS_EXCEPTION(std::overflow_error, CLng(valore));
        for (const auto& [testo, ammessa] : Casi(u" 32767  = 1; = 0;32768 = 0;-1 = 0;+5 = 0;1.000 = 0"_s))
            QVERIFY2(MisuraAmmessa(testo) == (ammessa == 1), qPrintable(testo));
    }

    // Plain digits, 15 significant, in the user's locale; values too large or small for them still come
    // back through CDbl. A machine without a locale of its own gets Italian; Val never follows it.
    void numeroInTestoELocale() {
        QCOMPARE((QStringList{NumeroInTesto(-0.0), NumeroInTesto(1.0 / 3.0), NumeroInTesto(0.1 + 0.2)}),
                 (QStringList{"0", "0,333333333333333", "0,3"}));
        for (const double valore : {1234567.5, 1e20, 2.5e-7, -3e-5})
            QCOMPARE(CDbl(NumeroInTesto(valore)), valore);
        QCOMPARE(LocaleProgramma(QLocale::c()).name(), u"it_IT"_s);
        QCOMPARE(LocaleProgramma(QLocale(QLocale::German, QLocale::Switzerland)).name(), u"de_CH"_s);
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        QCOMPARE(NumeroInTesto(1234.5), u"1234.5"_s);
        QVERIFY(CDbl(u"1,000.5"_s) == 1000.5 && !IsNumeric(u"12,5"_s) && Val(u"3,5"_s) == 3.0);
    }
};

QTEST_APPLESS_MAIN(TestNumeri)
#include "tst_numeri.moc"
