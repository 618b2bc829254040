#pragma once

#include "delegatovalore.h"

class QString;
class QTreeWidget;
class QTreeWidgetItem;

// The value / property lists in which a field's properties are edited in place.

// Two columns, "Valore" (editable through fineModifica) and "Proprietà", in report view.
void PreparaElencoProprieta(QTreeWidget& elenco, DelegatoValore::FineModifica fineModifica);
// A row whose value the user may edit in place.
QTreeWidgetItem* AggiungiProprieta(QTreeWidget& elenco, const QString& valore, const QString& proprieta);
// Position, size and tab order: the properties whose values must be numbers (lower-case name).
bool ProprietaNumerica(const QString& proprieta);
