#include "numeri.h"

#include <QLocale>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

void impostaEsito(bool* ok, bool esito) {
    if (ok)
        *ok = esito;
}

bool isCifra(QChar c) {
    return c >= u'0' && c <= u'9';
}

// Only the space character, as SQL's trim() in the store's checks: a TAB or a line break around
// the digits is refused here as it would be there.
QString SenzaSpaziAttorno(const QString& testo) {
    qsizetype inizio = 0, fine = testo.size();
    while (inizio < fine && testo.at(inizio) == u' ')
        ++inizio;
    while (fine > inizio && testo.at(fine - 1) == u' ')
        --fine;
    return testo.mid(inizio, fine - inizio);
}

// The digits of a whole part as the user writes them: plain, or grouped by three after a first
// group of one to three. QLocale's own reading of groups differs between Qt versions (some accept
// "1.000,5" in Italian, some refuse it), so the program reads them itself.
QString CifreIntere(const QString& parte, const QString& gruppo) {
    const QStringList gruppi = gruppo.isEmpty() ? QStringList{parte} : parte.split(gruppo);
    for (qsizetype i = 0; i < gruppi.size(); ++i) {
        const QString& cifre = gruppi.at(i);
        const bool misuraGiusta =
            gruppi.size() == 1 || (i == 0 ? !cifre.isEmpty() && cifre.size() <= 3 : cifre.size() == 3);
        if (!misuraGiusta || !std::all_of(cifre.begin(), cifre.end(), isCifra))
            return u"x"_s;
    }
    return gruppi.join(QString());
}

bool SoloCifre(const QString& testo) {
    return std::all_of(testo.begin(), testo.end(), isCifra);
}

// The text rewritten with '.' as decimal point and no groups: a sign, the whole part, the
// fraction and an exponent, blanks around; "x" when it is not a number in the locale's form.
QString InFormaC(const QString& testo, const QLocale& locale) {
    QString resto = testo.trimmed();
    QString segno;
    if (resto.startsWith(locale.negativeSign()) || resto.startsWith(u'-'))
        segno = u"-"_s;
    if (!segno.isEmpty() || resto.startsWith(locale.positiveSign()) || resto.startsWith(u'+'))
        resto.remove(0, 1);
    QString esponente;
    const qsizetype e = resto.indexOf(u'e', 0, Qt::CaseInsensitive);
    if (e >= 0) {
        esponente = resto.mid(e + 1);
        resto.truncate(e);
        const QString cifre =
            esponente.startsWith(u'+') || esponente.startsWith(u'-') ? esponente.mid(1) : esponente;
        if (cifre.isEmpty() || !SoloCifre(cifre))
            return u"x"_s;
        esponente.prepend(u'e');
    }
    const qsizetype virgola = resto.indexOf(locale.decimalPoint());
    const QString intera = virgola < 0 ? resto : resto.left(virgola);
    const QString frazione = virgola < 0 ? QString() : resto.mid(virgola + locale.decimalPoint().size());
    if ((intera.isEmpty() && frazione.isEmpty()) || !SoloCifre(frazione))
        return u"x"_s;
    const QString cifre = intera.isEmpty() ? u"0"_s : CifreIntere(intera, locale.groupSeparator());
    return segno + cifre + u'.' + frazione + u'0' + esponente;
}

} // namespace

bool IsNumeric(const QString& testo) {
    bool ok = false;
    CDbl(testo, &ok);
    return ok;
}

double CDbl(const QString& testo, bool* ok) {
    bool convertito = false;
    const double valore = QLocale::c().toDouble(InFormaC(testo, QLocale()), &convertito);
    // The C form also reads "inf" and "nan", which are not numbers to the user.
    if (!convertito || !std::isfinite(valore)) {
        impostaEsito(ok, false);
        return 0.0;
    }
    impostaEsito(ok, true);
    return valore;
}

double Val(const QString& testo) {
    qsizetype i = 0;
    while (i < testo.size() && (testo[i] == u' ' || testo[i] == u'\t' || testo[i] == u'\n'))
        ++i;
    QString numero;
    if (i < testo.size() && (testo[i] == u'-' || testo[i] == u'+'))
        numero += testo[i++];
    bool puntoVisto = false;
    for (; i < testo.size(); ++i) {
        const QChar c = testo[i];
        if (c == u'.' && !puntoVisto)
            puntoVisto = true;
        else if (!isCifra(c))
            break;
        numero += c;
    }
    bool ok = false;
    const double valore = QLocale::c().toDouble(numero, &ok);
    return ok ? valore : 0.0;
}

qint32 CLng(double v) {
    const double base = std::floor(v);
    const double resto = v - base;
    double arrotondato = base;
    if (resto > 0.5 || (resto == 0.5 && std::fmod(base, 2.0) != 0.0))
        arrotondato = base + 1.0;
    // Written so that NaN fails both comparisons and lands in the error.
    if (!(arrotondato >= std::numeric_limits<qint32>::min() &&
          arrotondato <= std::numeric_limits<qint32>::max()))
        throw std::overflow_error("CLng: valore fuori dall'intervallo di un intero a 32 bit");
    return static_cast<qint32>(arrotondato);
}

QString NumeroInTesto(double v) {
    QLocale locale;
    locale.setNumberOptions(locale.numberOptions() | QLocale::OmitGroupSeparator);
    return locale.toString(v, 'g', 15);
}

bool CBoolTesto(const QString& testo, bool* ok) {
    const QString pulito = testo.trimmed();
    if (pulito.compare("true"_L1, Qt::CaseInsensitive) == 0) {
        impostaEsito(ok, true);
        return true;
    }
    if (pulito.compare("false"_L1, Qt::CaseInsensitive) == 0) {
        impostaEsito(ok, true);
        return false;
    }
    bool numerico = false;
    const double valore = CDbl(pulito, &numerico);
    impostaEsito(ok, numerico);
    return numerico && valore != 0.0;
}

bool MisuraAmmessa(const QString& testo) {
    QString cifre = SenzaSpaziAttorno(testo);
    if (cifre.isEmpty())
        return false;
    while (cifre.size() > 1 && cifre.startsWith(u'0'))
        cifre.remove(0, 1);
    if (cifre.size() > 5)
        return false;
    for (const QChar c : cifre) {
        if (c < u'0' || c > u'9')
            return false;
    }
    return cifre.toUInt() <= 32767;
}
