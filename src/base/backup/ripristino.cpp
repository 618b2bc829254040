#include "ripristino.h"

#include "copiafile.h"
#include "erroredatabase.h"
#include "filearchivio.h"

#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdio>
#include <cstring>

namespace {

QString& CopiaInUso() {
    static QString copia;
    return copia;
}

std::function<QDateTime()>& Orologio() {
    static std::function<QDateTime()> orologio = [] { return QDateTime::currentDateTime(); };
    return orologio;
}

// A log or journal with content holds changes that the store's file alone lacks: something still
// has the store open. Deleting the file now could lose them.
void VerificaChiuso(const QString& archivio) {
    for (const QString& accessorio :
         QStringList{archivio + QStringLiteral("-wal"), archivio + QStringLiteral("-journal")})
        if (QFileInfo(accessorio).size() > 0)
            throw ErroreDatabase(
                QStringLiteral("il file ") + accessorio +
                QStringLiteral(
                    " contiene modifiche non ancora scritte nell'archivio: forse un altro programma "
                    "lo sta usando. Chiudere ogni altro programma che usa l'archivio e riprovare."));
}

void ConservaArchivio(const QString& archivio, bool inUso) {
    if (!QFile::exists(archivio))
        return;
    const QString copia = NomeCopiaRecupero(archivio, Orologio()());
    CopiaFile(archivio, copia);
    if (inUso)
        CopiaInUso() = copia;
}

void Rimuovi(const QString& percorso) {
    if (QFile::exists(percorso) && !QFile::remove(percorso))
        throw ErroreDatabase(QStringLiteral("impossibile eliminare il file ") + percorso);
}

// Everything before the store is replaced; the backup is read first, so an unreadable one, or a
// full disk, stops the restore here.
void PreparaSostituzione(const QString& archivio, const QString& backup, bool inUso,
                         const QString& provvisorio) {
    VerificaChiuso(archivio);
    ConservaArchivio(archivio, inUso);
    CopiaFile(backup, provvisorio);
    // A log or index left by the old store must never be read as the restored one's.
    for (const QString& accessorio : FileAccessori(archivio))
        Rimuovi(accessorio);
}

} // namespace

QString NomeCopiaRecupero(const QString& archivio, const QDateTime& quando) {
    const QString base = archivio + QStringLiteral(".prima-del-ripristino-") +
                         quando.toString(QStringLiteral("yyyyMMdd-HHmm"));
    QString nome = base;
    for (int n = 2; QFileInfo::exists(nome); ++n)
        nome = base + QLatin1Char('-') + QString::number(n);
    return nome;
}

QString SostituisciArchivio(const QString& archivio, const QString& backup, bool inUso) {
    const QString provvisorio = archivio + QStringLiteral(".ripristino-in-corso");
    try {
        PreparaSostituzione(archivio, backup, inUso, provvisorio);
    } catch (const ErroreDatabase& errore) {
        QFile::remove(provvisorio);
        return errore.messaggio();
    }
    // One rename that overwrites: at every instant the store's name holds a whole store, the old
    // one or the backup, whenever the program is stopped.
    if (std::rename(QFile::encodeName(provvisorio).constData(), QFile::encodeName(archivio).constData()) != 0)
        throw ErroreDatabase(QStringLiteral("impossibile mettere il backup al posto dell'archivio: ") +
                             archivio + QStringLiteral(": ") + QString::fromLocal8Bit(std::strerror(errno)));
    return {};
}

void ImpostaOrologioRipristino(std::function<QDateTime()> orologio) {
    Orologio() = std::move(orologio);
}

QString UltimaCopiaInUso() {
    return CopiaInUso();
}
