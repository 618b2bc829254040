#include "misura.h"

#include "cronometro.h"
#include "macchina.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <algorithm>

namespace {

qint64 UnaVolta(const Operazione& operazione, const std::function<void()>& lato, qint64* piccoKiB = nullptr) {
    operazione.prima();
    const qint64 primaKiB = AzzeraPiccoResidente();
    const qint64 ns = Cronometra(lato);
    if (piccoKiB)
        *piccoKiB = std::max(*piccoKiB, PiccoResidenteKiB() - primaKiB);
    operazione.dopo();
    // Repaints and other posted work of the window run here, outside the timed call.
    QCoreApplication::processEvents();
    return ns;
}

} // namespace

Risultato Misura(const Operazione& operazione, const Opzioni& opzioni) {
    UnaVolta(operazione, operazione.figura);
    UnaVolta(operazione, operazione.pavimento);
    const int massimo = operazione.ripetizioniMassime > 0
                            ? std::min(operazione.ripetizioniMassime, opzioni.massimoRipetizioni)
                            : opzioni.massimoRipetizioni;
    const int minimo = std::min(massimo, opzioni.minimoRipetizioni);
    QList<qint64> figura, pavimento;
    qint64 piccoKiB = 0;
    QElapsedTimer trascorso;
    trascorso.start();
    while (figura.size() < massimo &&
           (figura.size() < minimo || trascorso.nsecsElapsed() < opzioni.budgetNs)) {
        figura << UnaVolta(operazione, operazione.figura, &piccoKiB);
        pavimento << UnaVolta(operazione, operazione.pavimento);
    }
    return {operazione.nome, Mediana(figura),  Mediana(pavimento),   static_cast<int>(figura.size()),
            piccoKiB,        operazione.scala, operazione.perRecord, operazione.obiettivo};
}
