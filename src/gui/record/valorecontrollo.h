#pragma once

#include <QString>

class QWidget;

// A field control's value by its kind: text boxes hold text, a check box 0 or 1, a slider its
// position, a list or combo box the position of the chosen item, an image its picture's path.

// The value as the field stores it.
QString ValoreControllo(const QWidget& controllo);
// Shows a stored value. A combo box is left as it is; an image shows its picture only when the file exists.
void ImpostaValoreControllo(QWidget& controllo, const QString& testo);
// Empties the control for a new record; an image keeps its path.
void SvuotaControllo(QWidget& controllo);
// Browsing locks text boxes (their text can still be selected) and disables the other kinds.
void AbilitaControllo(QWidget& controllo, bool modificabile);

// Single-line and multi-line text boxes.
bool CasellaDiTesto(const QWidget& controllo);
QString TestoCasella(const QWidget& casella);
void ImpostaTestoCasella(QWidget& casella, const QString& testo);
