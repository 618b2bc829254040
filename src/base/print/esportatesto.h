#pragma once

#include <QString>

// Writes every record of the collection into a new text file in Windows-1252 (in UTF-8 with a
// byte-order mark when a value holds a character Windows-1252 lacks): a line of the
// field names of record 1, then one line of values per record number from 1 to the last, fields
// in name order, separated by TAB, lines ended by CR LF, values as stored (nothing quoted). An
// empty collection gives an empty file. A file that cannot be written throws a message saying
// which and why; what was written so far stays. A file the program holds is refused before anything.
void EsportaTesto(qint32 idCollezione, const QString& file);
