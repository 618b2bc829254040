#pragma once

#include <QDateTime>
#include <QString>
#include <functional>

// This restore's recovery copy beside the store: the store's name, ".prima-del-ripristino-", the
// date and minute, and "-2", "-3"... when a copy of the same minute is already there.
QString NomeCopiaRecupero(const QString& archivio, const QDateTime& quando);

// With the store closed: keeps it as a new recovery copy, removes the engine's files beside it and
// puts the backup's bytes in its place in one rename. `inUso` says the store was open until now,
// so its copy holds the user's data. Answers why it stopped while the store was still untouched,
// or the empty text; throws ErroreDatabase when the backup could not take the store's place.
QString SostituisciArchivio(const QString& archivio, const QString& backup, bool inUso);

// The recovery copy of the last store in use that a restore of this run replaced; empty when none.
QString UltimaCopiaInUso();

// The clock that dates the recovery copies: the system's unless another is set.
void ImpostaOrologioRipristino(std::function<QDateTime()> orologio);
