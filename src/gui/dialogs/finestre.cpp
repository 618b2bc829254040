#include "finestre.h"

#include <QWidget>

namespace {

OspiteFinestre*& Ospite() {
    static OspiteFinestre* ospite = nullptr;
    return ospite;
}

} // namespace

void ImpostaOspiteFinestre(OspiteFinestre* ospite) {
    Ospite() = ospite;
}

void MostraFiglia(QWidget* finestra) {
    if (Ospite()) {
        Ospite()->MostraFiglia(finestra);
        return;
    }
    finestra->show();
    finestra->raise();
}

void MostraStato(const QString& testo) {
    if (Ospite())
        Ospite()->MostraStato(testo);
}
