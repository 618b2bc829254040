#include "finestreripristino.h"

#include "archivio.h"
#include "avvio.h"
#include "erroredatabase.h"
#include "form1.h"
#include "frmmain.h"
#include "interazione.h"
#include "programma.h"
#include "ripristino.h"

namespace {

QString MessaggioNonRiuscito(const QString& errore, const QString& archivio) {
    const QString testo = QStringLiteral("Dopo il ripristino l'archivio non si apre:\n") + errore;
    const QString copia = UltimaCopiaInUso();
    if (copia.isEmpty())
        return testo;
    return testo + QStringLiteral("\n\nL'archivio com'era prima del ripristino è conservato nel file:\n") +
           copia +
           QStringLiteral("\n\nPer rimetterlo in uso scegliere di nuovo Restore dal menu Collezione e aprire "
                          "quel file (tipo \"Tutti i files\"), oppure, a programma chiuso, copiarlo al posto "
                          "di:\n") +
           archivio;
}

void Sostituisci(const QString& archivio, const QString& backup, bool inUso) {
    const QString annullato = SostituisciArchivio(archivio, backup, inUso);
    if (!annullato.isEmpty())
        MsgBox(QStringLiteral("Il ripristino è stato annullato e l'archivio non è stato modificato:\n") +
                   annullato,
               Pulsanti::Ok, Icona::Esclamativa);
}

} // namespace

void Ripristina(frmMAIN& frame, const QString& backup) {
    const QString cartella = AppPath();
    const QString archivio = cartella + Programma::NomeArchivio();
    const bool inUso = Database().Aperta();
    ChiudiDatabase();
    frame.ScaricaFinestre();
    try {
        Sostituisci(archivio, backup, inUso);
        ApriDatabase(cartella);
    } catch (const ErroreDatabase& errore) {
        MsgBox(MessaggioNonRiuscito(errore.messaggio(), archivio), Pulsanti::Ok, Icona::Critica);
        // Its Restore can still put a good file back.
        frame.MostraFiglia(&CaricaForm1());
        frame.show();
        return;
    }
    if (CaricaCollezioni(frame))
        IstanzaForm1()->mnuNewCollection_Click();
    frame.show();
}
