#include "archiviobench.h"

#include "archivio.h"
#include "impostazioni.h"
#include "programma.h"

#include <QDir>
#include <QFile>
#include <stdexcept>

ArchivioBench::ArchivioBench()
    : m_cartella(QDir::tempPath() + QStringLiteral("/orvix_bench-XXXXXX")) {
    if (!m_cartella.isValid())
        throw std::runtime_error("cannot make a temporary folder");
    const QString archivio = m_cartella.filePath(Programma::NomeArchivio());
    if (!QFile::copy(QStringLiteral(ORVIX_ARCHIVIO_VUOTO), archivio))
        throw std::runtime_error("cannot copy the empty store " ORVIX_ARCHIVIO_VUOTO);
    QFile::setPermissions(archivio, QFile::ReadOwner | QFile::WriteOwner);
    UsaFileImpostazioni(m_cartella.filePath(QStringLiteral("impostazioni.ini")));
    ApriDatabase(m_cartella.path());
}

ArchivioBench::~ArchivioBench() {
    ChiudiDatabase();
    UsaFileImpostazioni({});
}
