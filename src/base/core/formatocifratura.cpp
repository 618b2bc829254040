#include "formatocifratura.h"

#include <cstdlib>
#include <sqlcipher/sqlite3.h>
#include <string>

int VersioneCifratura(sqlite3* db) {
    std::string versione;
    sqlite3_exec(
        db, "PRAGMA cipher_version",
        [](void* destinazione, int colonne, char** valori, char**) {
            if (colonne > 0 && valori[0])
                *static_cast<std::string*>(destinazione) = valori[0];
            return 0;
        },
        &versione, nullptr);
    return versione.empty() ? 0 : std::atoi(versione.c_str());
}

void FissaFormatoCompatibile(sqlite3* db) {
    // The 3.x series knows no such setting: its defaults are these.
    if (VersioneCifratura(db) >= 4)
        sqlite3_exec(db, "PRAGMA cipher_compatibility = 3", nullptr, nullptr, nullptr);
}
