#include "blocchiarchivio.h"

#include <QCoreApplication>
#include <QFile>
#include <QSet>
#include <QStringList>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace {

// "maj:min:inode" as /proc/locks writes it: the device numbers in hexadecimal.
QString Identita(const QString& percorso) {
    struct stat dati {};
    if (::stat(QFile::encodeName(percorso).constData(), &dati) != 0)
        return {};
    return QStringLiteral("%1:%2:%3")
        .arg(major(dati.st_dev), 2, 16, QLatin1Char('0'))
        .arg(minor(dati.st_dev), 2, 16, QLatin1Char('0'))
        .arg(dati.st_ino);
}

} // namespace

int BlocchiArchivio(const QString& archivio) {
    QSet<QString> file{Identita(archivio), Identita(archivio + QStringLiteral("-shm"))};
    file.remove(QString());
    // /proc files have no size: read line by line through the one descriptor this opens.
    QFile blocchi(QStringLiteral("/proc/locks"));
    if (!blocchi.open(QIODevice::ReadOnly | QIODevice::Text))
        return -1;
    const QString processo = QString::number(QCoreApplication::applicationPid());
    int conteggio = 0;
    // "1: POSIX  ADVISORY  READ 4242 08:01:123456 128 128"
    for (const QString& riga : QString::fromLatin1(blocchi.readAll()).split(QLatin1Char('\n'))) {
        const QStringList campi = riga.simplified().split(QLatin1Char(' '));
        if (campi.size() >= 6 && campi.at(1) == QLatin1String("POSIX") && campi.at(4) == processo &&
            file.contains(campi.at(5)))
            ++conteggio;
    }
    return conteggio;
}
