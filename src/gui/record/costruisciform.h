#pragma once

#include <QtGlobal>

class FinestraControlli;
class QString;
class QWidget;
class Recordset;

// Builds the window afresh for a collection: one control per field row, in the store's order,
// each with its label and its entry in the field map.
void CostruisciForm(FinestraControlli& target, qint32 idCollezione);
// Creates and places the control of the current row of a result set over campi.
QWidget* CreaControllo(FinestraControlli& target, const Recordset& riga);
// Adds the "|"-separated items of the text to a list or combo box; empty pieces become empty items.
void RiempiLista(const QString& testo, QWidget& listaOCombo);
