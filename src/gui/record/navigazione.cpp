#include "navigazione.h"

#include "archivio.h"
#include "finestracontrolli.h"
#include "formule.h"
#include "mappacampi.h"
#include "transazione.h"

#include <QHash>
#include <QStringList>

namespace {

QString CampiDellaCollezione(qint32 idCollezione) {
    return QStringLiteral(" and id_campo in (select id from campi where id_collezione=") +
           QString::number(idCollezione) + QStringLiteral(")");
}

struct CampoMostrato {
    QWidget* controllo;
    qint32 idCampo;
};

QList<CampoMostrato> CampiMostrati(FinestraControlli& finestra, qint32 idCollezione) {
    QList<CampoMostrato> campi;
    for (QWidget* controllo : finestra.ControlliCampo()) {
        const qint32 idCampo = IdCampo(idCollezione, ChiaveControllo(*controllo));
        if (idCampo > 0)
            campi.append({controllo, idCampo});
    }
    return campi;
}

QString ElencoId(const QList<CampoMostrato>& campi) {
    QStringList id;
    for (const CampoMostrato& campo : campi)
        id << QString::number(campo.idCampo);
    return id.join(QLatin1Char(','));
}

// The first row of each field, as a look-up of that field alone would find it: one statement for
// the whole record rather than one per field.
QHash<qint32, QString> PrimaRigaPerCampo(const QString& sql) {
    QHash<qint32, QString> righe;
    for (Recordset rs = Database().ApriRecordset(sql); !rs.Fine(); rs.Successivo()) {
        const auto id = static_cast<qint32>(rs.Campo(0).toLongLong());
        if (!righe.contains(id))
            righe.insert(id, rs.Campo(1).toString());
    }
    return righe;
}

} // namespace

void CaricaRecord(FinestraControlli& finestra, qint32 n, qint32 idCollezione) {
    SvuotaTabellaFormule();
    const QList<CampoMostrato> campi = CampiMostrati(finestra, idCollezione);
    if (!campi.isEmpty()) {
        const QString elenco = ElencoId(campi);
        const auto formule = PrimaRigaPerCampo(QStringLiteral("select id,formula from campi where id in (") +
                                               elenco + QLatin1Char(')'));
        const auto valori = PrimaRigaPerCampo(
            QStringLiteral("select id_campo,valore from valori where numerorecord=") + QString::number(n) +
            QStringLiteral(" and id_campo in (") + elenco + QLatin1Char(')'));
        for (const CampoMostrato& campo : campi) {
            const QString formula = formule.value(campo.idCampo);
            if (!formula.isEmpty())
                AggiungiFormula(ChiaveControllo(*campo.controllo), formula, campo.idCampo);
            // A field with no row for this record keeps what it showed.
            const auto valore = valori.constFind(campo.idCampo);
            if (valore != valori.cend())
                ImpostaValoreControllo(*campo.controllo, valore.value());
        }
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
    // Both or neither: a delete without its renumbering would leave a gap in the numbers.
    Transazione transazione(Database());
    Database().Esegui(QStringLiteral("delete from valori where numerorecord=") + QString::number(n) +
                      CampiDellaCollezione(idCollezione));
    Database().Esegui(QStringLiteral("update valori set numerorecord=numerorecord-1 where numerorecord>") +
                      QString::number(n) + CampiDellaCollezione(idCollezione));
    transazione.Conferma();
}
