#include "aprirecord.h"

#include "costruisciform.h"
#include "finestre.h"
#include "frmrecord.h"
#include "interazione.h"
#include "listecontrolli.h"
#include "navigazione.h"

#include <QListWidget>

void InserisciRecord(QListWidget& List1) {
    const QList<QListWidgetItem*> scelte = List1.selectedItems();
    if (scelte.isEmpty()) {
        MsgBox(QStringLiteral("Selezionare una Collezione dall'apposita Lista"));
        return;
    }
    ApriRecord(DatoElemento(List1, List1.row(scelte.first())), 1);
}

void ApriRecord(qint32 idCollezione, qint32 n) {
    frmRecord& finestra = FinestraRecord();
    CostruisciForm(finestra, idCollezione);
    finestra.RecordCorrente = n;
    finestra.CurrTabella = idCollezione;
    finestra.ImpostaStatoControlli();
    CaricaRecord(finestra, n, idCollezione);
    finestra.AdattaAlContenuto();
    MostraFiglia(&finestra);
    // A window already active is not activated again: the collection's look is applied here.
    finestra.Form_Activate();
}
