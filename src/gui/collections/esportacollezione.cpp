#include "esportacollezione.h"

#include "archivio.h"
#include "dialogofile.h"
#include "esportatesto.h"
#include "finestre.h"

#include <QDir>

void EsportaCollezione(QWidget* proprietario, qint32 idCollezione) {
    if (idCollezione < 0)
        return;
    RichiediDatabase();
    const QString file =
        DialogoFile(proprietario, 2, QStringLiteral("Esporta File..."), QString(),
                    QStringLiteral("Tutti i files\0*.*\0"), AppPath(), QStringLiteral("txt"));
    if (file.isEmpty())
        return;
    EsportaTesto(idCollezione, file);
    MostraStato(QStringLiteral("Collezione esportata in ") + QDir::toNativeSeparators(file));
}
