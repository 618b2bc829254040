#include "matheval.h"

#include "numeri.h"

#include <QLocale>
#include <cmath>
#include <optional>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView kOperatori = u"^/\\*-+";

// A number that cannot be read back: the whole evaluation fails.
class ErroreConversione final : public std::runtime_error {
public:
    ErroreConversione()
        : std::runtime_error("MathEval: numero non convertibile") {}
};

bool isCarattereNumero(QChar c) {
    return (c >= u'0' && c <= u'9') || c == u',' || c == u'.';
}

bool isOperatore(QChar c) {
    return kOperatori.contains(c);
}

bool isSpazioRimosso(QChar c) {
    return c == u'\b' || c == u'\t' || c == u'\n' || c == u'\r' || c == u' ';
}

bool rifiuta(QString& espressione) {
    espressione.clear();
    return false;
}

qint64 divisioneIntera(double dividendo, double divisore) {
    const qint64 d = CLng(divisore);
    if (d == 0)
        throw std::domain_error("MathEval: divisione intera per zero");
    // qint64 so that the one quotient outside 32 bits (min / -1) cannot overflow.
    return qint64{CLng(dividendo)} / d;
}

std::optional<double> calcola(QChar operatore, double a, double b) {
    double valore = 0.0;
    switch (operatore.unicode()) {
    case u'*':
        valore = a * b;
        break;
    case u'+':
        valore = a + b;
        break;
    case u'-':
        valore = a - b;
        break;
    case u'/':
        valore = a / b;
        break;
    case u'\\':
        valore = static_cast<double>(divisioneIntera(a, b));
        break;
    case u'^':
        valore = std::pow(a, b);
        break;
    default:
        return std::nullopt;
    }
    if (!std::isfinite(valore))
        return std::nullopt;
    return valore;
}

// The same 15 significant digits NumeroInTesto gives, with the decimal point moved by the
// exponent: an exponent's "E-05" would otherwise be read back as a subtraction.
QString testoSenzaEsponente(double valore) {
    const QString scientifico = QString::number(std::abs(valore), 'e', 14);
    const qsizetype e = scientifico.indexOf(u'e');
    QString cifre = scientifico.left(e).remove(u'.');
    while (cifre.size() > 1 && cifre.endsWith(u'0'))
        cifre.chop(1);
    const qsizetype interi = scientifico.mid(e + 1).toInt() + 1;
    const QString decimale = QLocale().decimalPoint();
    QString testo;
    if (interi <= 0)
        testo = u"0"_s + decimale + QString(-interi, u'0') + cifre;
    else if (interi >= cifre.size())
        testo = cifre + QString(interi - cifre.size(), u'0');
    else
        testo = cifre.left(interi) + decimale + cifre.mid(interi);
    if (valore < 0)
        testo.prepend(u'-');
    return testo;
}

QString testoRisultato(double valore) {
    const QString testo = NumeroInTesto(valore);
    if (testo.contains(QLocale().exponential(), Qt::CaseInsensitive))
        return testoSenzaEsponente(valore);
    return testo;
}

// The left operand ends just before the operator; a '-' in front is its sign unless a number
// precedes it, in which case it is a subtraction.
std::optional<std::pair<qsizetype, qsizetype>> estensioneSinistra(const QString& espressione,
                                                                  qsizetype posizione) {
    qsizetype inizio = posizione;
    while (inizio > 0 && isCarattereNumero(espressione[inizio - 1]))
        --inizio;
    if (inizio == posizione)
        return std::nullopt;
    if (inizio > 0 && espressione[inizio - 1] == u'-' &&
        (inizio == 1 || !isCarattereNumero(espressione[inizio - 2])))
        --inizio;
    return std::pair{inizio, posizione};
}

std::optional<std::pair<qsizetype, qsizetype>> estensioneDestra(const QString& espressione,
                                                                qsizetype posizione) {
    const qsizetype inizio = posizione + 1;
    qsizetype fine = inizio;
    if (fine < espressione.size() && espressione[fine] == u'-')
        ++fine;
    const qsizetype primaCifra = fine;
    while (fine < espressione.size() && isCarattereNumero(espressione[fine]))
        ++fine;
    if (fine == primaCifra)
        return std::nullopt;
    return std::pair{inizio, fine};
}

} // namespace

bool MathEval::Valuta(QString espressione, double& risultato) const {
    risultato = 0.0;
    try {
        if (!NormalizzaEspressione(espressione))
            return false;
        return ValutaEspressione(espressione, risultato);
    } catch (const std::exception&) {
        risultato = 0.0;
        return false;
    }
}

bool MathEval::NormalizzaEspressione(QString& espressione) const {
    espressione = espressione.trimmed();
    int livello = 0;
    qsizetype i = 0;
    while (i < espressione.size()) {
        const QChar c = espressione[i];
        if (isSpazioRimosso(c)) {
            espressione.remove(i, 1);
            continue;
        }
        if (c == u'(') {
            ++livello;
        } else if (c == u')') {
            if (--livello < 0)
                return rifiuta(espressione);
        } else if (!isCarattereNumero(c) && !isOperatore(c)) {
            return rifiuta(espressione);
        }
        ++i;
    }
    return livello == 0 || rifiuta(espressione);
}

bool MathEval::ValutaEspressione(QString espressione, double& risultato) const {
    risultato = 0.0;
    if (!RisolviParentesi(espressione))
        return false;
    for (const QChar operatore : kOperatori) {
        if (!ApplicaOperatore(espressione, operatore))
            return false;
    }
    bool ok = false;
    const double valore = CDbl(espressione, &ok);
    if (!ok)
        return false;
    risultato = valore;
    return true;
}

// Innermost text first: each parenthesised part is replaced by its value as text.
bool MathEval::RisolviParentesi(QString& espressione) const {
    qsizetype apertura = espressione.indexOf(u'(');
    while (apertura >= 0) {
        int livello = 1;
        qsizetype i = apertura + 1;
        for (; i < espressione.size() && livello > 0; ++i) {
            if (espressione[i] == u'(')
                ++livello;
            else if (espressione[i] == u')')
                --livello;
        }
        if (livello != 0)
            return false;
        double interno = 0.0;
        if (!ValutaEspressione(espressione.mid(apertura + 1, i - apertura - 2), interno))
            return false;
        SostituisciOperazione(espressione, apertura, i, interno);
        apertura = espressione.indexOf(u'(');
    }
    return true;
}

bool MathEval::ApplicaOperatore(QString& espressione, QChar operatore) const {
    // Every substitution uses up one operator that was already there (a negative result
    // brings a sign, never an operator), so this bounds the loop even on odd input.
    qsizetype sostituzioniPossibili = espressione.count(operatore);
    qsizetype posizione = espressione.indexOf(operatore);
    while (posizione >= 0) {
        Operando sinistro;
        Operando destro;
        if (!LeggiNumero(espressione, posizione, Direzione::Sinistra, sinistro)) {
            if (operatore != u'-')
                return false;
            posizione = espressione.indexOf(operatore, posizione + 1); // a sign, not a subtraction
            continue;
        }
        if (!LeggiNumero(espressione, posizione, Direzione::Destra, destro))
            return false;
        if (sostituzioniPossibili-- == 0)
            return false;
        if (!isOperatore(operatore))
            return rifiuta(espressione);
        const std::optional<double> valore = calcola(operatore, sinistro.valore, destro.valore);
        if (!valore)
            return false;
        SostituisciOperazione(espressione, sinistro.inizio, destro.fine, *valore);
        posizione = espressione.indexOf(operatore);
    }
    return true;
}

void MathEval::SostituisciOperazione(QString& espressione, qsizetype inizio, qsizetype fine,
                                     double valore) const {
    espressione.replace(inizio, fine - inizio, testoRisultato(valore));
}

bool MathEval::LeggiNumero(const QString& espressione, qsizetype posizione, Direzione direzione,
                           Operando& numero) const {
    const auto estensione = direzione == Direzione::Sinistra ? estensioneSinistra(espressione, posizione)
                                                             : estensioneDestra(espressione, posizione);
    if (!estensione)
        return false;
    const auto [inizio, fine] = *estensione;
    bool ok = false;
    numero.valore = CDbl(espressione.mid(inizio, fine - inizio), &ok);
    if (!ok)
        throw ErroreConversione();
    numero.inizio = inizio;
    numero.fine = fine;
    return true;
}
