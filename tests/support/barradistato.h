#pragma once

#include "finestre.h"

#include <QStringList>

// The frame's status bar, as far as the commands can tell: what they showed on it, in order.
struct BarraDiStato final : OspiteFinestre {
    BarraDiStato() { ImpostaOspiteFinestre(this); }
    ~BarraDiStato() override { ImpostaOspiteFinestre(nullptr); }
    BarraDiStato(const BarraDiStato&) = delete;
    BarraDiStato& operator=(const BarraDiStato&) = delete;
    void MostraFiglia(QWidget*) override {}
    void MostraStato(const QString& testo) override { testi << testo; }
    QStringList testi;
};
