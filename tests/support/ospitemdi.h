#pragma once

#include "finestre.h"

class QMdiArea;

// The frame's part: child windows go into an MDI area, for as long as this lives.
class OspiteMdi final : public OspiteFinestre {
public:
    explicit OspiteMdi(QMdiArea& area);
    ~OspiteMdi() override;
    void MostraFiglia(QWidget* finestra) override;
    void MostraStato(const QString&) override {}

private:
    QMdiArea& m_area;
};
