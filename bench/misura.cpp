#include "misura.h"

#include "cronometro.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <algorithm>

namespace {

qint64 UnaVolta(const Operazione& operazione, const std::function<void()>& lato) {
    operazione.prima();
    const qint64 ns = Cronometra(lato);
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
    QElapsedTimer trascorso;
    trascorso.start();
    while (figura.size() < massimo &&
           (figura.size() < minimo || trascorso.nsecsElapsed() < opzioni.budgetNs)) {
        figura << UnaVolta(operazione, operazione.figura);
        pavimento << UnaVolta(operazione, operazione.pavimento);
    }
    return {operazione.nome,  Mediana(figura),      Mediana(pavimento),  static_cast<int>(figura.size()),
            operazione.scala, operazione.perRecord, operazione.obiettivo};
}
