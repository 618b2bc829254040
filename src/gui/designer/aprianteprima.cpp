#include "aprianteprima.h"

#include "contenitoreanteprima.h"
#include "interazione.h"

void ApriAnteprima(qint32 idCollezione, QWidget* padre) {
    if (idCollezione < 0) {
        MsgBox(QStringLiteral("Selezionare una Collezione dall'apposita Lista"));
        return;
    }
    ContenitoreAnteprima finestra(padre);
    finestra.Costruisci(idCollezione);
    MostraModale(finestra);
}
