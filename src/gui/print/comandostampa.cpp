#include "comandostampa.h"

#include "casellafigura.h"
#include "frmpreview.h"
#include "interazione.h"
#include "stampaschede.h"

void ApriStampa(qint32 idCollezione, QWidget* proprietario) {
    if (idCollezione < 0) {
        MsgBox(QStringLiteral("Selezionare una Collezione dall'apposita Lista!"));
        return;
    }
    frmPreview finestra(proprietario);
    finestra.IdCollezione = idCollezione;
    StampaSchede(*finestra.Pic1, idCollezione, true, true);
    MostraModale(finestra);
}
