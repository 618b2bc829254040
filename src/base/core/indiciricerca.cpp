#include "indiciricerca.h"

#include "chiavevalore.h"
#include "connessione.h"

// Both order their entries by the engine's BINARY collation only: the program's own NOCASE would
// give an order that a shell without it takes for a damaged index.
void CompletaIndiciRicerca(Connessione& connessione) {
    connessione.Esegui(QStringLiteral("CREATE INDEX IF NOT EXISTS valori_ricerca ON valori (id_campo, "
                                      "numerorecord, valore COLLATE BINARY, data_ins COLLATE BINARY, "
                                      "data_mod COLLATE BINARY)"));
    connessione.Esegui(QStringLiteral("CREATE INDEX IF NOT EXISTS valori_chiave ON valori (id_campo, ") +
                       EspressioneChiaveValore() + QStringLiteral(")"));
}
