#include "programma.h"

#include <QDir>
#include <QStandardPaths>

namespace Programma {

QString Titolo() {
    return QStringLiteral("Orvix");
}
int VersioneMaggiore() {
    return ORVIX_VERSION_MAJOR;
}
int VersioneMinore() {
    return ORVIX_VERSION_MINOR;
}
int Revisione() {
    return ORVIX_VERSION_REVISION;
}

QString Versione() {
    return QStringLiteral("%1.%2.%3").arg(VersioneMaggiore()).arg(VersioneMinore()).arg(Revisione());
}

QString PasswordArchivio() {
    return QStringLiteral("KQVeRT42");
}
QString NomeArchivio() {
    return QStringLiteral("personalizza.orx");
}

QString FileIstanza() {
    QString cartella = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (cartella.isEmpty())
        cartella = QDir::tempPath();
    return cartella + QStringLiteral("/orvix.lock");
}

} // namespace Programma
