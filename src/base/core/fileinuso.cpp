#include "fileinuso.h"

#include "archivio.h"
#include "erroredatabase.h"
#include "filearchivio.h"
#include "programma.h"

#include <QDir>
#include <QFileInfo>
#include <filesystem>
#include <system_error>

namespace {

// The name a file would be created under: a link that leads nowhere yet still names it.
QString PercorsoReale(const QString& percorso) {
    QFileInfo file(percorso);
    for (int salti = 0; file.isSymLink() && !file.exists() && salti < 40; ++salti)
        file.setFile(file.symLinkTarget());
    if (file.exists())
        return file.canonicalFilePath();
    const QString cartella = QFileInfo(file.absolutePath()).canonicalFilePath();
    return QDir(cartella.isEmpty() ? file.absolutePath() : cartella).filePath(file.fileName());
}

// The store as the program names it and as the engine does (they differ only through a link).
QStringList Archivi() {
    QStringList archivi;
    if (!AppPath().isEmpty())
        archivi << AppPath() + Programma::NomeArchivio();
    if (Database().Aperta())
        archivi << Database().Percorso();
    return archivi;
}

QString Motivo(const QString& percorso) {
    for (const QString& archivio : Archivi()) {
        if (StessoFile(percorso, archivio))
            return QStringLiteral("è l'archivio delle collezioni in uso.");
        for (const QString& accessorio : FileAccessori(archivio))
            if (StessoFile(percorso, accessorio))
                return QStringLiteral("è un file dell'archivio delle collezioni in uso.");
    }
    if (StessoFile(percorso, Programma::FileIstanza()))
        return QStringLiteral("è il file che impedisce di avviare il programma due volte.");
    return {};
}

} // namespace

QString RifiutoFileInUso(const QString& percorso, UsoFile uso) {
    const QString motivo = percorso.isEmpty() ? QString() : Motivo(percorso);
    if (motivo.isEmpty())
        return {};
    const QString azione = uso == UsoFile::Lettura ? QStringLiteral("Non è possibile leggere ")
                                                   : QStringLiteral("Non è possibile scrivere su ");
    return azione + QDir::toNativeSeparators(percorso) + QStringLiteral(": ") + motivo;
}

void VerificaFileLibero(const QString& percorso, UsoFile uso) {
    const QString rifiuto = RifiutoFileInUso(percorso, uso);
    if (!rifiuto.isEmpty())
        throw ErroreDatabase(rifiuto);
}

bool StessoFile(const QString& primo, const QString& secondo) {
    std::error_code errore;
    if (std::filesystem::equivalent(QFileInfo(primo).filesystemAbsoluteFilePath(),
                                    QFileInfo(secondo).filesystemAbsoluteFilePath(), errore))
        return true;
    return PercorsoReale(primo) == PercorsoReale(secondo);
}
