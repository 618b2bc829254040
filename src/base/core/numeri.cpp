#include "numeri.h"

#include <QLocale>
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

} // namespace

bool IsNumeric(const QString& testo) {
    bool ok = false;
    CDbl(testo, &ok);
    return ok;
}

double CDbl(const QString& testo, bool* ok) {
    bool convertito = false;
    const double valore = QLocale().toDouble(testo, &convertito);
    // QLocale also reads "inf" and "nan", which are not numbers to the user.
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
