#pragma once

#include "finestre.h"

#include <QMdiArea>

// The frame's part, shown at the given size: child windows go into this MDI area, for as long as it lives.
class AreaMdi final : public QMdiArea, public OspiteFinestre {
    Q_OBJECT

public:
    explicit AreaMdi(const QSize& dimensione);
    ~AreaMdi() override;
    void MostraFiglia(QWidget* finestra) override;
    void MostraStato(const QString&) override {}
};
