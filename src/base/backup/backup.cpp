#include "backup.h"

#include "connessione.h"
#include "copiafile.h"
#include "fileinuso.h"

void CopiaBackup(Connessione& archivio, const QString& destinazione) {
    const QString percorso = archivio.Percorso();
    VerificaFileLibero(destinazione, UsoFile::Scrittura);
    archivio.CompletaFile();
    CopiaFile(percorso, destinazione);
}
