#include "cartellaapplicazione.h"

#include "erroredatabase.h"
#include "programma.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

QString Installata(const QString& cartellaProgramma) {
    return QDir(cartellaProgramma).absoluteFilePath(QStringLiteral("../share/orvix"));
}

bool Installato(const QString& cartellaProgramma) {
    return QFileInfo::exists(Installata(cartellaProgramma) + QLatin1Char('/') + Programma::NomeArchivio());
}

void Copia(const QString& da, const QString& a) {
    if (!QFile::copy(da, a))
        throw ErroreDatabase(QStringLiteral("impossibile copiare ") + da + QStringLiteral(" in ") + a);
    QFile::setPermissions(a, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
}

// Everything shipped is copied but the program's own guide, which stays where it was installed.
void Semina(const QString& fornita, const QString& destinazione) {
    QDir().mkpath(destinazione + QStringLiteral("/modelli"));
    Copia(fornita + QLatin1Char('/') + Programma::NomeArchivio(),
          destinazione + QLatin1Char('/') + Programma::NomeArchivio());
    QDirIterator modelli(fornita + QStringLiteral("/modelli"), {QStringLiteral("*.wzd")}, QDir::Files);
    while (modelli.hasNext()) {
        modelli.next();
        Copia(modelli.filePath(), destinazione + QStringLiteral("/modelli/") + modelli.fileName());
    }
}

} // namespace

QString CartellaFornita(const QString& cartellaProgramma) {
    return Installato(cartellaProgramma) ? QDir::cleanPath(Installata(cartellaProgramma)) : cartellaProgramma;
}

QString CartellaApplicazione(const QString& cartellaProgramma) {
    if (!Installato(cartellaProgramma))
        return cartellaProgramma;
    const QString dati =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/orvix");
    if (!QFileInfo::exists(dati)) {
        // Seeded aside and renamed at the end, so an interrupted first start is simply redone.
        const QString nuova = dati + QStringLiteral(".nuova");
        QDir(nuova).removeRecursively();
        Semina(CartellaFornita(cartellaProgramma), nuova);
        if (!QDir().rename(nuova, dati))
            throw ErroreDatabase(QStringLiteral("impossibile creare ") + dati);
    }
    return dati;
}
