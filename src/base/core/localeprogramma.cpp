#include "localeprogramma.h"

QLocale LocaleProgramma(const QLocale& sistema) {
    if (sistema.language() == QLocale::C)
        return QLocale(QLocale::Italian, QLocale::Italy);
    return sistema;
}

void ImpostaLocaleProgramma() {
    QLocale::setDefault(LocaleProgramma(QLocale::system()));
}
