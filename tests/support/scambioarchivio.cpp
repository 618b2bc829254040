// The other side of the test that moves stores between engine series: opens a store with this
// build's engine, prints the engine's version and the store's collections, one a line, and adds a
// collection named after the engine. With "nuovo" it first makes the store from this build's empty one.
// Usage: scambioarchivio [nuovo] FOLDER
#include "archiviotemporaneo.h"

#include "archivio.h"
#include "erroredatabase.h"
#include "routinesql.h"

#include <QCoreApplication>
#include <cstdio>

int main(int argc, char** argv) {
    QCoreApplication applicazione(argc, argv);
    const QStringList argomenti = applicazione.arguments().mid(1);
    if (argomenti.isEmpty() || argomenti.size() > 2) {
        std::fprintf(stderr, "usage: scambioarchivio [nuovo] FOLDER\n");
        return 2;
    }
    try {
        if (argomenti.size() == 2)
            ArchivioTemporaneo::CopiaVuoto(argomenti.at(1));
        ApriDatabase(argomenti.last());
        const QString versione =
            Database().ApriRecordset(QStringLiteral("PRAGMA cipher_version")).Campo(0).toString();
        std::printf("%s\n", qPrintable(versione));
        for (const VoceElenco& collezione : ElencoCollezioni())
            std::printf("%s\n", qPrintable(collezione.nome));
        CreaCollezione(QStringLiteral("motore ") + versione, QString());
        ChiudiDatabase();
    } catch (const ErroreDatabase& errore) {
        std::fprintf(stderr, "scambioarchivio: %s\n", qPrintable(errore.messaggio()));
        return 1;
    } catch (const std::exception& errore) {
        std::fprintf(stderr, "scambioarchivio: %s\n", errore.what());
        return 1;
    }
    return 0;
}
