#pragma once

#include <QString>
#include <QTemporaryDir>

// A copy of the shipped empty store in a temporary folder, opened as the program's store,
// with the per-user settings redirected into the same folder.
class ArchivioTemporaneo final {
public:
    ArchivioTemporaneo();
    ~ArchivioTemporaneo();
    ArchivioTemporaneo(const ArchivioTemporaneo&) = delete;
    ArchivioTemporaneo& operator=(const ArchivioTemporaneo&) = delete;

    QString Cartella() const { return m_cartella.path(); }
    QString PercorsoArchivio() const;
    // Copies the empty store into a folder without opening it.
    static void CopiaVuoto(const QString& cartella);

private:
    QTemporaryDir m_cartella;
};

// The Italian locale the program's number examples are written for.
void UsaLocaleItaliano();
