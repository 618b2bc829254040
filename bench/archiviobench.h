#pragma once

#include <QString>
#include <QTemporaryDir>

// A copy of the shipped empty store in a temporary folder, opened as the program's store,
// with the per-user settings kept in a file of the same folder.
class ArchivioBench final {
public:
    ArchivioBench();
    ~ArchivioBench();
    ArchivioBench(const ArchivioBench&) = delete;
    ArchivioBench& operator=(const ArchivioBench&) = delete;

    QString Cartella() const { return m_cartella.path(); }

private:
    QTemporaryDir m_cartella;
};
