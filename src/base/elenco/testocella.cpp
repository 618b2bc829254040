#include "testocella.h"

#include "colonneelenco.h"
#include "numeri.h"

#include <limits>

int PosizioneMemorizzata(const QString& valore) {
    constexpr double minimo = std::numeric_limits<int>::min();
    constexpr double massimo = std::numeric_limits<int>::max();
    return CLng(qBound(minimo, Val(valore), massimo));
}

QString TestoCella(const ColonnaElenco& colonna, const QString& valore) {
    if (colonna.tipo == QLatin1String("checkbox"))
        return PosizioneMemorizzata(valore) != 0 ? QStringLiteral("\u2713") : QString();
    if (colonna.tipo == QLatin1String("combo") || colonna.tipo == QLatin1String("list"))
        return colonna.voci.value(PosizioneMemorizzata(valore));
    if (colonna.tipo == QLatin1String("image")) {
        // Paths may come from another system: either separator ends the folder part.
        const qsizetype barra =
            qMax(valore.lastIndexOf(QLatin1Char('/')), valore.lastIndexOf(QLatin1Char('\\')));
        return valore.mid(barra + 1);
    }
    if (colonna.tipo == QLatin1String("memo")) {
        QString riga = valore;
        return riga.replace(QLatin1String("\r\n"), QLatin1String(" "))
            .replace(QLatin1Char('\n'), QLatin1Char(' '));
    }
    return valore;
}
