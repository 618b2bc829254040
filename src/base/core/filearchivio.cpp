#include "filearchivio.h"

QStringList FileDellArchivio(const QString& archivio) {
    return QStringList{archivio} + FileAccessori(archivio);
}

QStringList FileAccessori(const QString& archivio) {
    return {archivio + QStringLiteral("-wal"), archivio + QStringLiteral("-shm"),
            archivio + QStringLiteral("-journal")};
}
