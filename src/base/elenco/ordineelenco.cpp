#include "ordineelenco.h"

#include "letturapreparata.h"
#include "numeri.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace {

// Each record's value as a number, empty values first; nothing as soon as one value is not a number.
std::optional<QList<qint32>> OrdineNumerico(qint32 idCampo) {
    LetturaPreparata valori(QStringLiteral("select numerorecord,valore from valori where id_campo=?1"));
    valori.Lega(1, idCampo);
    std::vector<std::pair<double, qint32>> numeri;
    QList<qint32> vuoti;
    while (valori.Riga()) {
        const auto numero = static_cast<qint32>(valori.Intero(0));
        const QString testo = valori.Testo(1);
        if (testo.trimmed().isEmpty()) {
            vuoti.append(numero);
            continue;
        }
        bool ok = false;
        const double valore = IsNumeric(testo) ? CDbl(testo, &ok) : 0.0;
        if (!ok)
            return std::nullopt;
        numeri.emplace_back(valore, numero);
    }
    std::sort(numeri.begin(), numeri.end());
    std::sort(vuoti.begin(), vuoti.end());
    QList<qint32> ordine = vuoti;
    ordine.reserve(vuoti.size() + static_cast<qsizetype>(numeri.size()));
    for (const auto& [valore, numero] : numeri)
        ordine.append(numero);
    return ordine;
}

// The connection's NOCASE is the program's own text comparison.
QList<qint32> OrdineTestuale(qint32 idCampo) {
    LetturaPreparata valori(QStringLiteral(
        "select numerorecord from valori where id_campo=?1 order by valore collate nocase,numerorecord"));
    valori.Lega(1, idCampo);
    QList<qint32> ordine;
    while (valori.Riga())
        ordine.append(static_cast<qint32>(valori.Intero(0)));
    return ordine;
}

void AggiungiMancanti(QList<qint32>& ordine, qint32 totale) {
    std::vector<bool> presente(static_cast<std::size_t>(totale) + 1, false);
    QList<qint32> validi;
    validi.reserve(ordine.size());
    for (const qint32 numero : std::as_const(ordine)) {
        if (numero < 1 || numero > totale || presente[static_cast<std::size_t>(numero)])
            continue;
        presente[static_cast<std::size_t>(numero)] = true;
        validi.append(numero);
    }
    for (qint32 numero = 1; numero <= totale; ++numero)
        if (!presente[static_cast<std::size_t>(numero)])
            validi.append(numero);
    ordine = std::move(validi);
}

} // namespace

QList<qint32> OrdinaPerCampo(qint32 idCampo, qint32 totale, bool discendente) {
    std::optional<QList<qint32>> numerico = OrdineNumerico(idCampo);
    QList<qint32> ordine = numerico ? std::move(*numerico) : OrdineTestuale(idCampo);
    AggiungiMancanti(ordine, totale);
    if (discendente)
        std::reverse(ordine.begin(), ordine.end());
    return ordine;
}
