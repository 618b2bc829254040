#include "backup.h"

#include "connessione.h"
#include "copiafile.h"
#include "fileinuso.h"

#include <QSaveFile>

void CopiaBackup(Connessione& archivio, const QString& destinazione) {
    const QString percorso = archivio.Percorso();
    VerificaFileLibero(destinazione, UsoFile::Scrittura);
    QSaveFile copia(destinazione);
    ApriDestinazione(copia);
    archivio.LeggiFile([&copia](const QByteArray& blocco) { ScriviBlocco(copia, blocco); });
    ConcludiDestinazione(copia);
}
