#pragma once

#include <QString>

class QDialog;
class QLayout;
class QPushButton;

struct PulsantiDialogo {
    QPushButton* conferma;
    QPushButton* annulla;
};

// Lays a dialog out: its content above, the confirm button ("cmdSCEGLI", the default) and
// "Annulla" ("cmdANNULLA") at the bottom right.
PulsantiDialogo DisponiDialogo(QDialog& dialogo, QLayout* contenuto, const QString& testoConferma);
