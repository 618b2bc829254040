#include "iconepernome.h"

#include <QApplication>
#include <QStyle>

QIcon IconePerNome::icon(IconType tipo) const {
    QStyle* stile = QApplication::style();
    switch (tipo) {
    case Computer:
        return stile->standardIcon(QStyle::SP_ComputerIcon);
    case Desktop:
        return stile->standardIcon(QStyle::SP_DesktopIcon);
    case Trashcan:
        return stile->standardIcon(QStyle::SP_TrashIcon);
    case Network:
        return stile->standardIcon(QStyle::SP_DriveNetIcon);
    case Drive:
        return stile->standardIcon(QStyle::SP_DriveHDIcon);
    case Folder:
        return stile->standardIcon(QStyle::SP_DirIcon);
    case File:
        break;
    }
    return stile->standardIcon(QStyle::SP_FileIcon);
}

QIcon IconePerNome::icon(const QFileInfo& file) const {
    if (file.isRoot())
        return icon(Drive);
    if (file.isDir())
        return icon(Folder);
    const QMimeType tipo = TipoDelNome(file);
    if (tipo.isDefault())
        return icon(File);
    return QIcon::fromTheme(tipo.iconName(), QIcon::fromTheme(tipo.genericIconName(), icon(File)));
}

QString IconePerNome::type(const QFileInfo& file) const {
    if (file.isRoot())
        return QStringLiteral("Unità");
    if (file.isDir())
        return QStringLiteral("Cartella");
    const QMimeType tipo = TipoDelNome(file);
    if (!tipo.isDefault())
        return tipo.comment();
    const QString estensione = file.suffix();
    return estensione.isEmpty() ? QStringLiteral("File") : QStringLiteral("File ") + estensione.toUpper();
}

QMimeType IconePerNome::TipoDelNome(const QFileInfo& file) const {
    return m_tipi.mimeTypeForFile(file.fileName(), QMimeDatabase::MatchExtension);
}
