#include "ospitemdi.h"

#include <QMdiArea>

OspiteMdi::OspiteMdi(QMdiArea& area)
    : m_area(area) {
    ImpostaOspiteFinestre(this);
}

OspiteMdi::~OspiteMdi() {
    ImpostaOspiteFinestre(nullptr);
}

void OspiteMdi::MostraFiglia(QWidget* finestra) {
    if (!finestra->parentWidget())
        m_area.addSubWindow(finestra);
    finestra->show();
}
