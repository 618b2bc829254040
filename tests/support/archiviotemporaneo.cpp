#include "archiviotemporaneo.h"

#include "archivio.h"
#include "impostazioni.h"
#include "programma.h"

#include <QFile>
#include <QLocale>
#include <stdexcept>

ArchivioTemporaneo::ArchivioTemporaneo() {
    if (!m_cartella.isValid())
        throw std::runtime_error("cannot make a temporary folder");
    CopiaVuoto(m_cartella.path());
    UsaFileImpostazioni(m_cartella.filePath(QStringLiteral("impostazioni.ini")));
    ApriDatabase(m_cartella.path());
}

ArchivioTemporaneo::~ArchivioTemporaneo() {
    ChiudiDatabase();
    UsaFileImpostazioni({});
}

QString ArchivioTemporaneo::PercorsoArchivio() const {
    return m_cartella.filePath(Programma::NomeArchivio());
}

void ArchivioTemporaneo::CopiaVuoto(const QString& cartella) {
    const QString destinazione = cartella + QLatin1Char('/') + Programma::NomeArchivio();
    if (!QFile::copy(QStringLiteral(ORVIX_ARCHIVIO_VUOTO), destinazione))
        throw std::runtime_error("cannot copy the empty store");
    QFile::setPermissions(destinazione, QFile::ReadOwner | QFile::WriteOwner);
}

void UsaLocaleItaliano() {
    QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
}
