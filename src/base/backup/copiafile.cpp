#include "copiafile.h"

#include "erroredatabase.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

namespace {

constexpr qint64 Blocco = 1 << 20;

[[noreturn]] void Fallita(const QString& percorso, const QString& motivo) {
    throw ErroreDatabase(QStringLiteral("Copia non riuscita: ") + percorso + QStringLiteral(": ") + motivo);
}

} // namespace

void ApriDestinazione(QSaveFile& copia) {
    if (copia.open(QIODevice::WriteOnly))
        return;
    const QFileInfo cartella(QFileInfo(copia.fileName()).absolutePath());
    if (!cartella.isDir() || !cartella.isWritable())
        throw ErroreDatabase(QStringLiteral("Non è possibile scrivere nella cartella ") +
                             QDir::toNativeSeparators(cartella.filePath()) +
                             (cartella.isDir() ? QStringLiteral(": manca il permesso di scrittura.")
                                               : QStringLiteral(": la cartella non esiste.")));
    Fallita(copia.fileName(), copia.errorString());
}

void ScriviBlocco(QSaveFile& copia, const QByteArray& dati) {
    if (copia.write(dati) != dati.size())
        Fallita(copia.fileName(), copia.errorString());
}

void ConcludiDestinazione(QSaveFile& copia) {
    if (!copia.commit())
        Fallita(copia.fileName(), copia.errorString());
}

void CopiaFile(const QString& sorgente, const QString& destinazione) {
    QFile origine(sorgente);
    if (!origine.open(QIODevice::ReadOnly))
        Fallita(sorgente, origine.errorString());
    QSaveFile copia(destinazione);
    ApriDestinazione(copia);
    while (!origine.atEnd()) {
        const QByteArray dati = origine.read(Blocco);
        if (dati.isEmpty() && origine.error() != QFileDevice::NoError)
            Fallita(sorgente, origine.errorString());
        ScriviBlocco(copia, dati);
    }
    ConcludiDestinazione(copia);
}
