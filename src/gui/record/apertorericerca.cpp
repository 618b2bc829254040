#include "apertorericerca.h"

namespace {

ApertoreRicerca& Apertore() {
    static ApertoreRicerca apertore = nullptr;
    return apertore;
}

} // namespace

void ImpostaApertoreRicerca(ApertoreRicerca apertore) {
    Apertore() = apertore;
}

void ApriRicercaSu(qint32 idCollezione) {
    if (Apertore())
        Apertore()(idCollezione);
}
