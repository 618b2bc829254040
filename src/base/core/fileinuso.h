#pragma once

#include <QString>

// The files the running program holds: the store, the files the engine keeps beside it, and the
// single-instance lock. No command writes them, nor reads them through a descriptor of its own:
// closing that descriptor would release every lock the engine holds on the store.
enum class UsoFile { Lettura, Scrittura };

// Why the file cannot be read or written, in a sentence for the user; the empty text when it is
// none of those files.
QString RifiutoFileInUso(const QString& percorso, UsoFile uso);
// Throws ErroreDatabase with that sentence.
void VerificaFileLibero(const QString& percorso, UsoFile uso);

// The same file, by whatever path either is named: a link, "..", another hard link. A name with no
// file yet is the file it would create: its folder's real path and its own name.
bool StessoFile(const QString& primo, const QString& secondo);
