#include "navigazione.h"

#include "archivio.h"
#include "erroredatabase.h"
#include "finestracontrolli.h"
#include "interazione.h"
#include "mappacampi.h"
#include "numeri.h"
#include "routinesql.h"
#include "transazione.h"

namespace {

// Defaults first: a required field with a default never fails.
bool CampoAccettabile(QWidget& casella, qint32 idCampo) {
    const Recordset campo = Database().ApriRecordset(
        QStringLiteral("select required,\"default\",nome from campi where id=") + QString::number(idCampo));
    if (campo.Fine())
        return true;
    const QString predefinito = campo.Testo(QStringLiteral("default"));
    if (TestoCasella(casella).isEmpty() && !predefinito.isEmpty())
        ImpostaTestoCasella(casella, predefinito);
    if (!TestoCasella(casella).isEmpty() || !CBoolTesto(campo.Testo(QStringLiteral("required"))))
        return true;
    MsgBox(QStringLiteral("Valore del campo ") + campo.Testo(QStringLiteral("nome")) +
               QStringLiteral(" non specificato!"),
           Pulsanti::Ok, Icona::Critica, QStringLiteral("Errore..."));
    casella.setFocus();
    return false;
}

void ScriviValore(const QWidget& controllo, qint32 idCampo, qint32 n) {
    Recordset riga = Database().ApriRecordset(
        QStringLiteral("select valore,data_mod from valori where id_campo=") + QString::number(idCampo) +
        QStringLiteral(" and numerorecord=") + QString::number(n));
    if (riga.Fine())
        return;
    riga.Modifica();
    riga.Imposta(QStringLiteral("valore"), ValoreControllo(controllo));
    riga.Imposta(QStringLiteral("data_mod"), DataOggi());
    riga.Salva();
}

bool ModificaFallita(const QString& descrizione) {
    MsgBox(QStringLiteral("Errore in fase di modifica Record\n") + descrizione);
    return false;
}

} // namespace

bool ControllaRecord(FinestraControlli& finestra, qint32 idCollezione) {
    for (QWidget* controllo : finestra.ControlliCampo()) {
        if (!CasellaDiTesto(*controllo))
            continue;
        const qint32 idCampo = IdCampo(idCollezione, ChiaveControllo(*controllo));
        if (idCampo > 0 && !CampoAccettabile(*controllo, idCampo))
            return false;
    }
    return true;
}

bool SalvaNuovoRecord(FinestraControlli& finestra, qint32 idCollezione) {
    const qint32 numero = ContaRecord(idCollezione) + 1;
    const QString oggi = DataOggi();
    // A record is stored whole or not at all, and with one sync instead of one per field.
    Transazione transazione(Database());
    Recordset valori = Database().ApriRecordset(QStringLiteral("select * from valori"));
    for (const QWidget* controllo : finestra.ControlliCampo()) {
        const qint32 idCampo = IdCampo(idCollezione, ChiaveControllo(*controllo));
        if (idCampo <= 0)
            continue;
        valori.NuovoRecord();
        valori.Imposta(QStringLiteral("id_campo"), idCampo);
        valori.Imposta(QStringLiteral("valore"), ValoreControllo(*controllo));
        valori.Imposta(QStringLiteral("data_ins"), oggi);
        valori.Imposta(QStringLiteral("data_mod"), oggi);
        valori.Imposta(QStringLiteral("NumeroRecord"), numero);
        valori.Salva();
    }
    valori.Chiudi();
    transazione.Conferma();
    return true;
}

bool SalvaRecord(FinestraControlli& finestra, qint32 idCollezione, qint32 n) {
    // A record deleted while shown has no row left to write: say so, instead of writing nothing.
    if (n < 1 || n > ContaRecord(idCollezione)) {
        MsgBox(QStringLiteral("Il record ") + QString::number(n) +
                   QStringLiteral(" non esiste più: le modifiche non sono state salvate."),
               Pulsanti::Ok, Icona::Esclamativa);
        return false;
    }
    try {
        Transazione transazione(Database());
        for (const QWidget* controllo : finestra.ControlliCampo()) {
            const qint32 idCampo = IdCampo(idCollezione, ChiaveControllo(*controllo));
            if (idCampo > 0)
                ScriviValore(*controllo, idCampo, n);
        }
        transazione.Conferma();
    } catch (const ErroreDatabase& errore) {
        return ModificaFallita(errore.messaggio());
    } catch (const std::exception& errore) {
        return ModificaFallita(QString::fromLocal8Bit(errore.what()));
    }
    return true;
}
