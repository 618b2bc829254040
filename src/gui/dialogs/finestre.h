#pragma once

#include <QList>

class QString;

class QWidget;

// Where child windows live: the main frame installs itself; without it they are top-level windows.
class OspiteFinestre {
public:
    virtual ~OspiteFinestre() = default;
    virtual void MostraFiglia(QWidget* finestra) = 0;
    virtual void MostraStato(const QString& testo) = 0;
};

void ImpostaOspiteFinestre(OspiteFinestre* ospite);
void MostraFiglia(QWidget* finestra);
// One line of progress on the frame's status bar; nowhere when there is no frame.
void MostraStato(const QString& testo);

class QMenu;

// A child window whose menus take the place of the frame's own while it is active.
class FinestraConMenu {
public:
    virtual ~FinestraConMenu() = default;
    virtual QList<QMenu*> MenuFinestra() const = 0;
};
