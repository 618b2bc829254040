#pragma once

#include "connessione.h"

#include <QString>
#include <QStringList>

// The state every part of the program shares for the whole run.
const QString& AppPath();
Connessione& Database();
// The seven control-type words, indices 0 to 6.
const QStringList& ControlTypes();

// A folder name with one trailing separator.
QString ConSeparatoreFinale(const QString& cartella);

// Sets AppPath from the given folder, opens the store there and builds ControlTypes.
void ApriDatabase(const QString& cartella);
// Opens it again in the application folder (the program's own folder before any open).
void ApriDatabase();
void ChiudiDatabase();
// Fails as any statement would when the store is not open. For commands that ask the user something
// before touching the store: told first, nothing is typed in vain.
void RichiediDatabase();
