#pragma once

#include <QString>

class QSaveFile;

// Copies a file byte for byte, replacing the destination only once the whole copy is written: a
// failed copy leaves an existing destination as it was. Throws with the reason on failure.
void CopiaFile(const QString& sorgente, const QString& destinazione);

// The steps of a copy into a QSaveFile, for data that comes from elsewhere than a file. Opening says
// in words when the destination's folder is missing or cannot be written, naming it.
void ApriDestinazione(QSaveFile& copia);
void ScriviBlocco(QSaveFile& copia, const QByteArray& dati);
void ConcludiDestinazione(QSaveFile& copia);
