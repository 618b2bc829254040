#pragma once

#include <QAbstractFileIconProvider>
#include <QMimeDatabase>

// Icons and type names for a file dialog, decided by the name alone. The usual provider opens each
// file it lists to guess its type from the content; closing that descriptor on the open store would
// release every lock the engine holds on it.
class IconePerNome final : public QAbstractFileIconProvider {
public:
    QIcon icon(IconType tipo) const override;
    QIcon icon(const QFileInfo& file) const override;
    QString type(const QFileInfo& file) const override;

private:
    // By the file name's extension only; the default type when it has none that is known.
    QMimeType TipoDelNome(const QFileInfo& file) const;

    QMimeDatabase m_tipi;
};
