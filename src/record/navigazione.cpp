#include "navigazione.h"

#include "archivio.h"
#include "finestracontrolli.h"
#include "formule.h"
#include "mappacampi.h"

#include <vector>

namespace {

QString CampiDellaCollezione(qint32 idCollezione) {
    return QStringLiteral(" and id_campo in (select id from campi where id_collezione=") +
           QString::number(idCollezione) + QStringLiteral(")");
}

void RegistraFormula(const QWidget& controllo, qint32 idCampo) {
    const Recordset campo = Database().ApriRecordset(QStringLiteral("select formula from campi where id=") +
                                                     QString::number(idCampo));
    const QString formula = campo.Fine() ? QString() : campo.Testo(QStringLiteral("formula"));
    if (!formula.isEmpty())
        AggiungiFormula(ChiaveControllo(controllo), formula, idCampo);
}

Recordset MostraValore(QWidget& controllo, qint32 idCampo, qint32 n) {
    Recordset valore = Database().ApriRecordset(QStringLiteral("select * from valori where id_campo=") +
                                                QString::number(idCampo) +
                                                QStringLiteral(" and numerorecord=") + QString::number(n));
    if (!valore.Fine())
        ImpostaValoreControllo(controllo, valore.Testo(QStringLiteral("valore")));
    return valore;
}

} // namespace

// The record's rows stay open until the load ends, so that the whole load is one read of the
// store instead of one per statement.
void CaricaRecord(FinestraControlli& finestra, qint32 n, qint32 idCollezione) {
    SvuotaTabellaFormule();
    std::vector<Recordset> righe;
    for (QWidget* controllo : finestra.ControlliCampo()) {
        const qint32 idCampo = IdCampo(idCollezione, ChiaveControllo(*controllo));
        if (idCampo <= 0)
            continue;
        RegistraFormula(*controllo, idCampo);
        righe.push_back(MostraValore(*controllo, idCampo, n));
    }
    if (n <= 0)
        return;
    CalcolaFormule(finestra, idCollezione, n);
    finestra.setWindowTitle(QStringLiteral("Record N. ") + QString::number(n));
}

void PulisciControlli(FinestraControlli& finestra) {
    for (QWidget* controllo : finestra.ControlliCampo())
        SvuotaControllo(*controllo);
}

void EliminaRecord(qint32 idCollezione, qint32 n) {
    Database().Esegui(QStringLiteral("delete from valori where numerorecord=") + QString::number(n) +
                      CampiDellaCollezione(idCollezione));
    Database().Esegui(QStringLiteral("update valori set numerorecord=numerorecord-1 where numerorecord>") +
                      QString::number(n) + CampiDellaCollezione(idCollezione));
}
