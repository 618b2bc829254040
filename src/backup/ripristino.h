#pragma once

#include <QDateTime>
#include <QString>
#include <stdexcept>

// The restore stopped before the store's file was touched: the store is as it was.
class RipristinoAnnullato final : public std::runtime_error {
public:
    explicit RipristinoAnnullato(const QString& motivo);
    QString motivo() const { return m_motivo; }

private:
    QString m_motivo;
};

// This restore's recovery copy beside the store: the store's name, ".prima-del-ripristino-", the
// date and minute, and "-2", "-3"... when a copy of the same minute is already there.
QString NomeCopiaRecupero(const QString& archivio, const QDateTime& quando);

// With the store closed: keeps it as a new recovery copy, removes the engine's files beside it,
// deletes it and puts the backup's bytes in its place. `inUso` says the store was open until now,
// so its copy holds the user's data. Throws RipristinoAnnullato while the store is still untouched,
// ErroreDatabase when the backup could not be put in the deleted store's place.
void SostituisciArchivio(const QString& archivio, const QString& backup, bool inUso);

// The recovery copy of the last store in use that a restore of this run replaced; empty when none.
QString UltimaCopiaInUso();
