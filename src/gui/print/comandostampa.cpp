#include "comandostampa.h"

#include "frmpreview.h"
#include "interazione.h"

void ApriStampa(qint32 idCollezione, QWidget* proprietario) {
    if (idCollezione < 0) {
        MsgBox(QStringLiteral("Selezionare una Collezione dall'apposita Lista!"));
        return;
    }
    frmPreview finestra(proprietario);
    finestra.IdCollezione = idCollezione;
    finestra.Ridisegna(); // both boxes start checked: the sheets with pictures and numbers
    MostraModale(finestra);
}
