#include "chiavevalore.h"

#include "confrontotesto.h"

namespace {

constexpr int LunghezzaChiave = 40;

} // namespace

// ſ, the Greek question mark, the Greek varia and the Kelvin sign: the only characters whose folded
// form is plain ASCII; every other one folds to non-ASCII text, or to one ASCII letter followed by
// accents.
QString EspressioneChiaveValore() {
    return QStringLiteral("substr(replace(replace(replace(replace(lower(valore), char(383), 's'), "
                          "char(894), ';'), char(8175), '`'), char(8490), 'k'), 1, %1)")
        .arg(LunghezzaChiave);
}

// A value's key follows its folded text up to the first non-ASCII character of that text, less the
// ASCII letter before it, which the value may hold as one accented character.
std::optional<IntervalloChiave> IntervalloChiavePer(const QString& testo) {
    const QString piegato = TestoPiegato(testo);
    qsizetype ascii = 0;
    while (ascii < piegato.size() && piegato.at(ascii).unicode() < 0x80)
        ++ascii;
    if (ascii < piegato.size())
        --ascii;
    const QString prefisso = piegato.left(std::min<qsizetype>(ascii, LunghezzaChiave));
    if (prefisso.isEmpty())
        return std::nullopt;
    QString dopo = prefisso;
    dopo.back() = QChar(dopo.back().unicode() + 1);
    return IntervalloChiave{prefisso, dopo};
}
