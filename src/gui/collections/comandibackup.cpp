#include "comandibackup.h"

#include "archivio.h"
#include "backup.h"
#include "dialogofile.h"
#include "finestre.h"
#include "frmrecord.h"
#include "interazione.h"

#include <QDir>

namespace {

Ripristinatore& Installato() {
    static Ripristinatore ripristinatore;
    return ripristinatore;
}

QString SceltaBackup(QWidget* proprietario, int modo) {
    return DialogoFile(proprietario, modo, QStringLiteral("File di Backup..."), QString(),
                       QStringLiteral("Files di Backup...\0*.dat\0Tutti i files\0*.*"), AppPath(),
                       QStringLiteral("dat"));
}

} // namespace

void Backup(QWidget* proprietario) {
    const QString destinazione = SceltaBackup(proprietario, 2);
    if (destinazione.isEmpty())
        return;
    CopiaBackup(Database(), destinazione);
    MostraStato(QStringLiteral("Backup salvato in ") + QDir::toNativeSeparators(destinazione));
}

void ImpostaRipristinatore(Ripristinatore ripristinatore) {
    Installato() = std::move(ripristinatore);
}

void Restore(QWidget* proprietario) {
    if (IstanzaRecord() &&
        MsgBox(QStringLiteral("La finestra INSERIMENTO RECORD deve essere chiusa prima di procedere con "
                              "l'operazione di RESTORE.\nSi desidera proseguire ugualmente chiudendo tale "
                              "finestra automaticamente?"),
               Pulsanti::SiNoAnnulla) != Risposta::Si)
        return;
    const QString backup = SceltaBackup(proprietario, 1);
    if (!backup.isEmpty() && Installato())
        Installato()(backup);
}
