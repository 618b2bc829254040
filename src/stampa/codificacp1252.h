#pragma once

#include <QByteArray>
#include <QStringView>

// Text in Windows-1252, the 8-bit code page the program's files are written in. A character the
// code page cannot hold becomes one "?", as the system's own conversion writes it: the file stays
// readable and the place of the lost character shows.
QByteArray CodificaCp1252(QStringView testo);
// The same, appended to a buffer that is being filled.
void AccodaCp1252(QStringView testo, QByteArray& destinazione);
