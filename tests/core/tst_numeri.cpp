#include "localeprogramma.h"
#include "numeri.h"

#include <QLocale>
#include <QTest>
#include <limits>
#include <stdexcept>

using namespace Qt::StringLiterals;

class TestNumeri final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy)); }
    void cleanup() { initTestCase(); }

    // IsNumeric and CDbl accept exactly the same texts, so they share one table.
    void cdbl_data() {
        QTest::addColumn<QString>("testo");
        QTest::addColumn<bool>("numerico");
        QTest::addColumn<double>("valore");
        QTest::newRow("intero") << u"20"_s << true << 20.0;
        QTest::newRow("virgola decimale") << u"12,5"_s << true << 12.5;
        QTest::newRow("spazi attorno") << u" 7 "_s << true << 7.0;
        QTest::newRow("meno") << u"-3"_s << true << -3.0;
        QTest::newRow("migliaia e decimali") << u"1.000,5"_s << true << 1000.5;
        QTest::newRow("esponente") << u"1,5E+3"_s << true << 1500.0;
        QTest::newRow("lettere") << u"abc"_s << false << 0.0;
        QTest::newRow("vuoto") << QString() << false << 0.0;
        QTest::newRow("solo spazi") << u"   "_s << false << 0.0;
        QTest::newRow("coda di lettere") << u"12,5abc"_s << false << 0.0;
        QTest::newRow("due virgole") << u"1,2,3"_s << false << 0.0;
        QTest::newRow("infinito") << u"inf"_s << false << 0.0;
        QTest::newRow("oltre double") << u"1e400"_s << false << 0.0;
    }
    void cdbl() {
        QFETCH(QString, testo);
        QFETCH(bool, numerico);
        QFETCH(double, valore);
        QCOMPARE(IsNumeric(testo), numerico);
        bool ok = !numerico;
        QCOMPARE(CDbl(testo, &ok), valore);
        QCOMPARE(ok, numerico);
    }

    void val_data() {
        QTest::addColumn<QString>("testo");
        QTest::addColumn<double>("valore");
        QTest::newRow("prima del separatore") << u"1|10"_s << 1.0;
        QTest::newRow("seguito da lettera") << u"2|a"_s << 2.0;
        QTest::newRow("vuoto") << QString() << 0.0;
        QTest::newRow("lettere") << u"abc"_s << 0.0;
        QTest::newRow("spazi e segno") << u"  -4x"_s << -4.0;
        QTest::newRow("punto decimale") << u"3.25kg"_s << 3.25;
        QTest::newRow("virgola non decimale") << u"3,5"_s << 3.0;
        QTest::newRow("secondo punto") << u"1.2.3"_s << 1.2;
        QTest::newRow("solo segno") << u"-"_s << 0.0;
    }
    void val() {
        QFETCH(QString, testo);
        QFETCH(double, valore);
        QCOMPARE(Val(testo), valore);
    }

    void clng_data() {
        QTest::addColumn<double>("valore");
        QTest::addColumn<qint32>("atteso");
        QTest::newRow("2,5 al pari") << 2.5 << 2;
        QTest::newRow("3,5 al pari") << 3.5 << 4;
        QTest::newRow("0,5 al pari") << 0.5 << 0;
        QTest::newRow("-2,5 al pari") << -2.5 << -2;
        QTest::newRow("-3,5 al pari") << -3.5 << -4;
        QTest::newRow("sopra la meta") << 2.5001 << 3;
        QTest::newRow("negativo sopra la meta") << -1.6 << -2;
        QTest::newRow("minimo arrotondato") << -2147483648.5 << std::numeric_limits<qint32>::min();
    }
    void clng() {
        QFETCH(double, valore);
        QFETCH(qint32, atteso);
        QCOMPARE(CLng(valore), atteso);
    }

    void clngFuoriIntervallo() {
        for (const double valore : {2147483647.5, -2147483649.0, std::numeric_limits<double>::infinity(),
                                    std::numeric_limits<double>::quiet_NaN()})
            QVERIFY_THROWS_EXCEPTION(std::overflow_error, CLng(valore));
    }

    void numeroInTesto_data() {
        QTest::addColumn<double>("valore");
        QTest::addColumn<QString>("testo");
        QTest::newRow("intero") << 14.0 << u"14"_s;
        QTest::newRow("negativo") << -5.0 << u"-5"_s;
        QTest::newRow("zero virgola") << 0.2 << u"0,2"_s;
        QTest::newRow("zero negativo") << -0.0 << u"0"_s;
        QTest::newRow("senza migliaia") << 1234567.5 << u"1234567,5"_s;
        QTest::newRow("15 cifre") << 123456789012345.0 << u"123456789012345"_s;
        QTest::newRow("periodico") << 1.0 / 3.0 << u"0,333333333333333"_s;
        QTest::newRow("errore binario nascosto") << 0.1 + 0.2 << u"0,3"_s;
    }
    void numeroInTesto() {
        QFETCH(double, valore);
        QFETCH(QString, testo);
        QCOMPARE(NumeroInTesto(valore), testo);
    }

    // Values too large or small for plain digits must still come back through CDbl.
    void numeroInTestoEstremiRiletti() {
        for (const double valore : {1e20, 2.5e-7, -3e-5})
            QCOMPARE(CDbl(NumeroInTesto(valore)), valore);
    }

    void cboolTesto_data() {
        QTest::addColumn<QString>("testo");
        QTest::addColumn<bool>("valido");
        QTest::addColumn<bool>("valore");
        QTest::newRow("True") << u"True"_s << true << true;
        QTest::newRow("FALSE") << u"FALSE"_s << true << false;
        QTest::newRow("con spazi") << u" false "_s << true << false;
        QTest::newRow("uno") << u"1"_s << true << true;
        QTest::newRow("zero") << u"0"_s << true << false;
        QTest::newRow("decimale") << u"0,5"_s << true << true;
        QTest::newRow("vero in italiano") << u"Vero"_s << false << false;
        QTest::newRow("vuoto") << QString() << false << false;
    }
    void cboolTesto() {
        QFETCH(QString, testo);
        QFETCH(bool, valido);
        QFETCH(bool, valore);
        bool ok = !valido;
        QCOMPARE(CBoolTesto(testo, &ok), valore);
        QCOMPARE(ok, valido);
    }

    // The user's locale, not a fixed Italian format; Val alone never follows it.
    void seguonoLocaleCorrente() {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        QCOMPARE(NumeroInTesto(1234.5), u"1234.5"_s);
        QCOMPARE(CDbl(u"1,000.5"_s), 1000.5);
        QVERIFY(!IsNumeric(u"12,5"_s));
        QCOMPARE(Val(u"3,5"_s), 3.0);
    }

    void misureAmmesse_data() {
        QTest::addColumn<QString>("testo");
        QTest::addColumn<bool>("ammessa");
        for (const char* si : {"0", "20", " 32767 ", "00012"})
            QTest::newRow(si) << QString::fromLatin1(si) << true;
        for (const char* no :
             {"", "32768", "-1", "+5", "1,5", "1.000", "12.5", "1e3", "99999999999999999999", "abc"})
            QTest::newRow(no) << QString::fromLatin1(no) << false;
    }
    void misureAmmesse() {
        QFETCH(QString, testo);
        QFETCH(bool, ammessa);
        QCOMPARE(MisuraAmmessa(testo), ammessa);
    }

    // Without a locale of its own the machine gets the interface's Italian formats; any real
    // locale is the user's choice and is kept.
    void localeDelProgramma() {
        QCOMPARE(LocaleProgramma(QLocale::c()).name(), u"it_IT"_s);
        QCOMPARE(LocaleProgramma(QLocale(u"C.UTF-8"_s)).name(), u"it_IT"_s);
        QCOMPARE(LocaleProgramma(QLocale(u"POSIX"_s)).name(), u"it_IT"_s);
        QCOMPARE(LocaleProgramma(QLocale(QLocale::German, QLocale::Switzerland)).name(), u"de_CH"_s);
        QLocale::setDefault(LocaleProgramma(QLocale::c()));
        QCOMPARE(CDbl(u"12,50"_s), 12.5);
        QCOMPARE(NumeroInTesto(12.5), u"12,5"_s);
    }
};

QTEST_APPLESS_MAIN(TestNumeri)
#include "tst_numeri.moc"
