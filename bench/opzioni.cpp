#include "opzioni.h"

#include <algorithm>
#include <stdexcept>

namespace {

QList<qint32> LeggiDimensioni(const QString& testo) {
    QList<qint32> dimensioni;
    for (const QString& parte : testo.split(QLatin1Char(','))) {
        bool ok = false;
        const qint32 n = parte.trimmed().toInt(&ok);
        if (!ok || n < 10)
            throw std::invalid_argument("--sizes wants record counts of at least 10, separated by commas");
        dimensioni << n;
    }
    std::sort(dimensioni.begin(), dimensioni.end());
    return dimensioni;
}

void Rapide(Opzioni& opzioni) {
    opzioni.dimensioni = {50, 500};
    opzioni.minimoRipetizioni = 3;
    opzioni.massimoRipetizioni = 5;
    opzioni.budgetNs = 200'000'000;
}

} // namespace

Opzioni LeggiOpzioni(const QStringList& argomenti) {
    Opzioni opzioni;
    QList<qint32> scelte;
    for (qsizetype i = 1; i < argomenti.size(); ++i) {
        const QString& argomento = argomenti.at(i);
        if (argomento == QLatin1String("--quick"))
            Rapide(opzioni);
        else if (argomento == QLatin1String("--help"))
            opzioni.aiuto = true;
        else if (argomento == QLatin1String("--sizes") && i + 1 < argomenti.size())
            scelte = LeggiDimensioni(argomenti.at(++i));
        else if (argomento.startsWith(QLatin1String("--sizes=")))
            scelte = LeggiDimensioni(argomento.mid(8));
        else
            throw std::invalid_argument("unknown argument: " + argomento.toStdString());
    }
    if (!scelte.isEmpty())
        opzioni.dimensioni = scelte;
    return opzioni;
}

QString Uso() {
    return QStringLiteral("usage: orvix_bench [--sizes N,M,...] [--quick] [--help]\n"
                          "  --sizes  record counts of the stores to measure (default 1000,100000)\n"
                          "  --quick  small stores and few repetitions, for a smoke run\n");
}
