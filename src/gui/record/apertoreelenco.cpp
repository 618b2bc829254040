#include "apertoreelenco.h"

namespace {

ApertoreElenco& Apertore() {
    static ApertoreElenco apertore = nullptr;
    return apertore;
}

} // namespace

void ImpostaApertoreElenco(ApertoreElenco apertore) {
    Apertore() = apertore;
}

void ApriElencoSu(qint32 idCollezione) {
    if (Apertore())
        Apertore()(idCollezione);
}
