#include "localeprogramma.h"
#include "numeri.h"

#include <QLocale>
#include <QTest>
#include <limits>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

// A table case written "text = result", split at its last " = ".
QPair<QString, QString> Caso(const char* caso) {
    const QString testo = QString::fromUtf8(caso);
    const qsizetype uguale = testo.lastIndexOf(u" = "_s);
    return {testo.left(uguale), testo.mid(uguale + 3)};
}

} // namespace

class TestNumeri final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy)); }
    void cleanup() { initTestCase(); }

    // IsNumeric and CDbl accept exactly the same texts; CDbl gives 0 for the others.
    void cdbl() {
        const auto accettato = [](const QString& testo, bool numerico, double valore) {
            bool ok = !numerico;
            return IsNumeric(testo) == numerico && CDbl(testo, &ok) == valore && ok == numerico;
        };
        for (const char* caso :
             {"20 = 20", "12,5 = 12.5", " 7  = 7", "-3 = -3", "1.000,5 = 1000.5", "1,5E+3 = 1500"})
            QVERIFY2(accettato(Caso(caso).first, true, Caso(caso).second.toDouble()), caso);
        for (const char* testo : {"abc", "", "   ", "12,5abc", "1,2,3", "inf", "1e400"})
            QVERIFY2(accettato(QString::fromUtf8(testo), false, 0.0), testo);
    }

    // Val reads a leading number with a '.' decimal point, whatever the locale.
    void val() {
        for (const char* caso : {"1|10 = 1", "2|a = 2", " = 0", "abc = 0", "  -4x = -4", "3.25kg = 3.25",
                                 "3,5 = 3", "1.2.3 = 1.2", "- = 0"})
            QCOMPARE(Val(Caso(caso).first), Caso(caso).second.toDouble());
    }

    // Half to even; out of range throws.
    void clng() {
        for (const char* caso : {"2.5 = 2", "3.5 = 4", "0.5 = 0", "-2.5 = -2", "-3.5 = -4", "2.5001 = 3",
                                 "-1.6 = -2", "-2147483648.5 = -2147483648"})
            QVERIFY2(CLng(Caso(caso).first.toDouble()) == Caso(caso).second.toInt(), caso);
        for (const double valore : {2147483647.5, -2147483649.0, std::numeric_limits<double>::infinity(),
                                    std::numeric_limits<double>::quiet_NaN()})
            QVERIFY_THROWS_EXCEPTION(std::overflow_error, CLng(valore));
    }

    // Plain digits, 15 significant; values too large or small for them still come back through CDbl.
    void numeroInTesto() {
        for (const char* caso : {"14 = 14", "-5 = -5", "0.2 = 0,2", "1234567.5 = 1234567,5",
                                 "123456789012345 = 123456789012345"})
            QCOMPARE(NumeroInTesto(Caso(caso).first.toDouble()), Caso(caso).second);
        QCOMPARE(NumeroInTesto(-0.0), u"0"_s);
        QCOMPARE(NumeroInTesto(1.0 / 3.0), u"0,333333333333333"_s);
        QCOMPARE(NumeroInTesto(0.1 + 0.2), u"0,3"_s);
        for (const double valore : {1e20, 2.5e-7, -3e-5})
            QCOMPARE(CDbl(NumeroInTesto(valore)), valore);
    }

    // Texts it does not take leave the flag false and give false.
    void cboolTesto() {
        for (const char* caso : {"True = 1", "FALSE = 0", " false  = 0", "1 = 1", "0 = 0", "0,5 = 1",
                                 "Vero = invalid", " = invalid"}) {
            const auto [testo, atteso] = Caso(caso);
            bool ok = atteso == "invalid";
            QVERIFY2(CBoolTesto(testo, &ok) == (atteso == "1"), caso);
            QVERIFY2(ok == (atteso != "invalid"), caso);
        }
    }

    // The user's locale, not a fixed Italian format; Val alone never follows it.
    void seguonoLocaleCorrente() {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        QCOMPARE(NumeroInTesto(1234.5), u"1234.5"_s);
        QCOMPARE(CDbl(u"1,000.5"_s), 1000.5);
        QVERIFY(!IsNumeric(u"12,5"_s));
        QCOMPARE(Val(u"3,5"_s), 3.0);
    }

    void misureAmmesse() {
        for (const char* si : {"0", "20", " 32767 ", "00012"})
            QVERIFY2(MisuraAmmessa(QString::fromLatin1(si)), si);
        for (const char* no :
             {"", "32768", "-1", "+5", "1,5", "1.000", "12.5", "1e3", "99999999999999999999", "abc"})
            QVERIFY2(!MisuraAmmessa(QString::fromLatin1(no)), no);
    }

    // Without a locale of its own the machine gets the interface's Italian formats; any real
    // locale is the user's choice and is kept.
    void localeDelProgramma() {
        for (const QLocale& senza : {QLocale::c(), QLocale(u"C.UTF-8"_s), QLocale(u"POSIX"_s)})
            QCOMPARE(LocaleProgramma(senza).name(), u"it_IT"_s);
        QCOMPARE(LocaleProgramma(QLocale(QLocale::German, QLocale::Switzerland)).name(), u"de_CH"_s);
        QLocale::setDefault(LocaleProgramma(QLocale::c()));
        QCOMPARE(CDbl(u"12,50"_s), 12.5);
        QCOMPARE(NumeroInTesto(12.5), u"12,5"_s);
    }
};

QTEST_APPLESS_MAIN(TestNumeri)
#include "tst_numeri.moc"
