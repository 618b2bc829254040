#pragma once

#include <QString>

class Connessione;

// Copies the open store to a backup file, replacing one already there. The log is moved into the
// store's file first, so the copy is a whole database by itself, and two backups with no change in
// between are the same bytes. The bytes are read through the engine, which keeps its locks on the
// store. The files the program holds (see fileinuso.h) are refused as destinations.
void CopiaBackup(Connessione& archivio, const QString& destinazione);
