#pragma once

struct sqlite3;

// The cipher settings of every store the program writes: those of the engine's 3.x series, which
// both the 3.x and the 4.x engines read. A 4.x engine uses other defaults unless told, and a 3.x
// engine cannot read a file written with them. To be called right after the key, before any read.
void FissaFormatoCompatibile(sqlite3* db);

// The major version of the linked engine (3 for SQLCipher 3.x, 4 for 4.x), read from the connection.
int VersioneCifratura(sqlite3* db);
