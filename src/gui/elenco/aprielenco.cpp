#include "aprielenco.h"

#include "aprirecord.h"
#include "finestre.h"
#include "frmelenco.h"
#include "frmrecord.h"
#include "interazione.h"
#include "navigazione.h"
#include "vistaelenco.h"

#include <QList>
#include <QPointer>

namespace {

QList<QPointer<frmElenco>>& Aperte() {
    static QList<QPointer<frmElenco>> aperte;
    return aperte;
}

} // namespace

frmElenco* FinestraElenco(qint32 idCollezione) {
    for (const QPointer<frmElenco>& finestra : std::as_const(Aperte()))
        if (finestra && finestra->IdCollezione() == idCollezione)
            return finestra.data();
    return nullptr;
}

void ApriElenco(qint32 idCollezione) {
    frmElenco* finestra = FinestraElenco(idCollezione);
    if (!finestra) {
        Aperte().removeAll(nullptr);
        finestra = new frmElenco(idCollezione);
        Aperte().append(finestra);
    }
    MostraFiglia(finestra);
    finestra->lvElenco->setFocus();
}

// Showing another record would throw away what the user is typing.
void ApriRecordDaElenco(qint32 idCollezione, qint32 n) {
    frmRecord* record = IstanzaRecord();
    if (record && (record->NuovoRecord || record->ModificaRecord)) {
        MsgBox(QStringLiteral("La finestra del record è in fase di inserimento o di modifica: confermare o "
                              "annullare prima di aprire un altro record."),
               Pulsanti::Ok, Icona::Esclamativa);
        return;
    }
    if (!record || record->CurrTabella != idCollezione) {
        ApriRecord(idCollezione, n);
        return;
    }
    record->RecordCorrente = n;
    CaricaRecord(*record, n, idCollezione);
    MostraFiglia(record);
}
