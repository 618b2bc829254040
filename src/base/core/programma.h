#pragma once

#include <QString>

// Facts about the program itself.
namespace Programma {
QString Titolo();
int VersioneMaggiore();
int VersioneMinore();
int Revisione();
// "M.m.r", the version numbers as plain decimals.
QString Versione();
// The key of the collection store, a constant of the program.
QString PasswordArchivio();
QString NomeArchivio();
// The lock that keeps a second instance from starting, in the user's runtime folder.
QString FileIstanza();
} // namespace Programma
