#pragma once

#include "collezionebench.h"

#include <QList>

class FinestraControlli;
class QWidget;

// The controls of a built record window that show a field, found through the field map as the
// record window finds them, each with the index of its definition.
struct ControlloCampo {
    QWidget* controllo;
    int definizione;
};

QList<ControlloCampo> ControlliDelForm(const FinestraControlli& finestra, const CollezioneBench& collezione);
// Puts record n's values into the controls, the way a user would enter them.
void CompilaForm(const QList<ControlloCampo>& controlli, qint32 n);
