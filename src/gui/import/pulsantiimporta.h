#pragma once

#include "disposizionedialogo.h"

#include <QList>
#include <functional>

class QRadioButton;
class QWidget;

// Lays an import dialog out: a group of choices headed `gruppo`, an optional note below it, then
// "OK" (the default, `OKButton`, which runs `conferma`) and "Annulla" (`CancelButton`, which
// cancels) at the bottom right, the whole `larghezza` pixels wide.
PulsantiDialogo DisponiDialogoImporta(QDialog& dialogo, const QString& gruppo, const QList<QWidget*>& scelte,
                                      QWidget* nota, const std::function<void()>& conferma, int larghezza);

// A radio button with the object name the program gives it.
QRadioButton* Opzione(const char* nome, const QString& testo);
