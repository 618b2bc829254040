#include "areamdi.h"

AreaMdi::AreaMdi(const QSize& dimensione) {
    resize(dimensione);
    show();
    ImpostaOspiteFinestre(this);
}

AreaMdi::~AreaMdi() {
    ImpostaOspiteFinestre(nullptr);
}

void AreaMdi::MostraFiglia(QWidget* finestra) {
    if (!finestra->parentWidget())
        addSubWindow(finestra);
    finestra->show();
}
