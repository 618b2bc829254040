#pragma once

#include <QString>

// Copies a file byte for byte, replacing the destination only once the whole copy is written: a
// failed copy leaves an existing destination as it was. Throws with the reason on failure.
void CopiaFile(const QString& sorgente, const QString& destinazione);
