#include "comandimodelli.h"

#include "archivio.h"
#include "caricamodello.h"
#include "dialogofile.h"
#include "finestre.h"
#include "frmmodelli.h"
#include "interazione.h"
#include "salvamodello.h"

#include <QDir>
#include <QListWidget>

void EsportaModello(QWidget* proprietario, qint32 idCollezione) {
    RichiediDatabase();
    // The dialog's own overwrite question is the only confirmation.
    const QString file =
        DialogoFile(proprietario, 0, QStringLiteral("Esporta Modello..."), QString(),
                    QStringLiteral("File di Modello") + QChar(u'\0') + QStringLiteral("*.wzd"), AppPath(),
                    QStringLiteral("wzd"));
    if (file.isEmpty())
        return;
    const QString esito = SalvaModello(idCollezione, file);
    if (esito.isEmpty())
        MostraStato(QStringLiteral("Modello salvato in ") + QDir::toNativeSeparators(file));
    else
        MsgBox(esito);
}

void NuovaCollezioneDaModello(QWidget* proprietario, QListWidget& collezioni) {
    RichiediDatabase();
    frmModelli& galleria = CaricaFrmModelli(proprietario);
    MostraModale(galleria);
    if (galleria.FileModelloDaImportare.isEmpty())
        return;
    if (const std::optional<VoceElenco> nuova = CaricaModello(galleria.FileModelloDaImportare)) {
        auto* voce = new QListWidgetItem(nuova->nome, &collezioni);
        voce->setData(Qt::UserRole, nuova->id);
    }
}
