#include "backup.h"

#include "connessione.h"
#include "copiafile.h"
#include "erroredatabase.h"
#include "filearchivio.h"

#include <QSaveFile>

void CopiaBackup(Connessione& archivio, const QString& destinazione) {
    const QString percorso = archivio.Percorso();
    for (const QString& proprio : FileDellArchivio(percorso))
        if (StessoFile(destinazione, proprio))
            throw ErroreDatabase(QStringLiteral("Il backup non può essere scritto sull'archivio stesso: ") +
                                 destinazione);
    QSaveFile copia(destinazione);
    ApriDestinazione(copia);
    archivio.LeggiFile([&copia](const QByteArray& blocco) { ScriviBlocco(copia, blocco); });
    ConcludiDestinazione(copia);
}
