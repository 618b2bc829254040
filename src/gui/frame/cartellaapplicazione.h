#pragma once

#include <QString>

// Where the shipped files are: beside the program in a build tree or a portable copy, or in
// <prefix>/share/orvix when the program is installed as <prefix>/bin/orvix.
QString CartellaFornita(const QString& cartellaProgramma);

// The application folder, where the store and the templates live. An installed program cannot
// write beside itself, so its folder is the user's data folder, seeded with the shipped empty
// store and templates the first time only: a store lost later must fail the start, not be
// silently replaced by an empty one. Throws when the seeding fails.
QString CartellaApplicazione(const QString& cartellaProgramma);
