#pragma once

#include "disposizionedialogo.h"

// The import dialogs' layout: the content above, "OK" (the default, `OKButton`) and "Annulla"
// (`CancelButton`) at the bottom right.
PulsantiDialogo DisponiDialogoImporta(QDialog& dialogo, QLayout* contenuto);
