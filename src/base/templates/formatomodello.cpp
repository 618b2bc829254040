#include "formatomodello.h"

#include "archivio.h"

#include <QFileInfo>

namespace FormatoModello {

const QStringList& ChiaviCampo() {
    static const QStringList chiavi{
        QStringLiteral("nome"),    QStringLiteral("default"),   QStringLiteral("required"),
        QStringLiteral("tipo"),    QStringLiteral("etichetta"), QStringLiteral("formula"),
        QStringLiteral("left"),    QStringLiteral("top"),       QStringLiteral("width"),
        QStringLiteral("height"),  QStringLiteral("special"),   QStringLiteral("tooltip"),
        QStringLiteral("tabindex")};
    return chiavi;
}

bool ChiaveNumerica(const QString& chiave) {
    static const QStringList numeriche{QStringLiteral("required"), QStringLiteral("left"),
                                       QStringLiteral("top"),      QStringLiteral("width"),
                                       QStringLiteral("height"),   QStringLiteral("tabindex")};
    return numeriche.contains(chiave);
}

} // namespace FormatoModello

QString CartellaModelli() {
    return AppPath() + QStringLiteral("modelli");
}

QString DestinazioneModello(const QString& nomeFile) {
    // The program's own form of the folder, with a forward slash: the same folder on every platform.
    const QString cartella = AppPath() + QStringLiteral("modelli/");
    QString destinazione = cartella + nomeFile;
    for (int k = 1; k <= 1000 && QFileInfo::exists(destinazione); ++k)
        destinazione = cartella + QString::number(k) + nomeFile;
    return destinazione;
}
