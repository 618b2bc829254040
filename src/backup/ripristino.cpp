#include "ripristino.h"

#include "copiafile.h"
#include "erroredatabase.h"
#include "filearchivio.h"

#include <QFile>
#include <QFileInfo>

namespace {

QString& CopiaInUso() {
    static QString copia;
    return copia;
}

// A log or journal with content holds changes that the store's file alone lacks: something still
// has the store open. Deleting the file now could lose them.
void VerificaChiuso(const QString& archivio) {
    for (const QString& accessorio :
         QStringList{archivio + QStringLiteral("-wal"), archivio + QStringLiteral("-journal")})
        if (QFileInfo(accessorio).size() > 0)
            throw RipristinoAnnullato(
                QStringLiteral("il file ") + accessorio +
                QStringLiteral(
                    " contiene modifiche non ancora scritte nell'archivio: forse un altro programma "
                    "lo sta usando. Chiudere ogni altro programma che usa l'archivio e riprovare."));
}

QString ConservaArchivio(const QString& archivio) {
    if (!QFile::exists(archivio))
        return {};
    const QString copia = NomeCopiaRecupero(archivio, QDateTime::currentDateTime());
    try {
        CopiaFile(archivio, copia);
    } catch (const ErroreDatabase& errore) {
        throw RipristinoAnnullato(errore.messaggio());
    }
    return copia;
}

void Rimuovi(const QString& percorso, const QString& provvisorio) {
    if (!QFile::exists(percorso) || QFile::remove(percorso))
        return;
    QFile::remove(provvisorio);
    throw RipristinoAnnullato(QStringLiteral("impossibile eliminare il file ") + percorso);
}

} // namespace

RipristinoAnnullato::RipristinoAnnullato(const QString& motivo)
    : std::runtime_error(motivo.toStdString())
    , m_motivo(motivo) {}

QString NomeCopiaRecupero(const QString& archivio, const QDateTime& quando) {
    const QString base = archivio + QStringLiteral(".prima-del-ripristino-") +
                         quando.toString(QStringLiteral("yyyyMMdd-HHmm"));
    QString nome = base;
    for (int n = 2; QFileInfo::exists(nome); ++n)
        nome = base + QLatin1Char('-') + QString::number(n);
    return nome;
}

void SostituisciArchivio(const QString& archivio, const QString& backup, bool inUso) {
    VerificaChiuso(archivio);
    const QString copia = ConservaArchivio(archivio);
    if (inUso && !copia.isEmpty())
        CopiaInUso() = copia;
    // The backup is read before anything is deleted: an unreadable one, or a full disk, stops here.
    const QString provvisorio = archivio + QStringLiteral(".ripristino-in-corso");
    try {
        CopiaFile(backup, provvisorio);
    } catch (const ErroreDatabase& errore) {
        throw RipristinoAnnullato(errore.messaggio());
    }
    // A log or index left by the old store must never be read as the restored one's.
    for (const QString& accessorio : FileAccessori(archivio))
        Rimuovi(accessorio, provvisorio);
    Rimuovi(archivio, provvisorio);
    if (!QFile::rename(provvisorio, archivio))
        throw ErroreDatabase(QStringLiteral("impossibile mettere il backup al posto dell'archivio: ") +
                             archivio);
}

QString UltimaCopiaInUso() {
    return CopiaInUso();
}
