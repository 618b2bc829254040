// Makes the empty, keyed collection store that ships beside the program.
// Usage: creaarchivio SCHEMA.sql OUTPUT.orx
#include "confrontotesto.h"
#include "formatocifratura.h"
#include "programma.h"

#include <QFile>
#include <cstdio>
#include <sqlcipher/sqlite3.h>

namespace {

int Fallisci(sqlite3* db, const char* cosa) {
    std::fprintf(stderr, "creaarchivio: %s: %s\n", cosa, db ? sqlite3_errmsg(db) : "");
    sqlite3_close(db);
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: creaarchivio SCHEMA.sql OUTPUT.orx\n");
        return 2;
    }
    QFile schema(QString::fromLocal8Bit(argv[1]));
    if (!schema.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "creaarchivio: cannot read %s\n", argv[1]);
        return 1;
    }
    const QByteArray sql = schema.readAll();
    QFile::remove(QString::fromLocal8Bit(argv[2]));

    sqlite3* db = nullptr;
    if (sqlite3_open_v2(argv[2], &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) != SQLITE_OK)
        return Fallisci(db, "open");
    // The store's NOCASE is the program's own, so the file is made under the collation it is used with.
    InstallaConfronti(db);
    const QByteArray chiave = Programma::PasswordArchivio().toUtf8();
    if (sqlite3_key(db, chiave.constData(), static_cast<int>(chiave.size())) != SQLITE_OK)
        return Fallisci(db, "key");
    FissaFormatoCompatibile(db);
    if (sqlite3_exec(db, sql.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        return Fallisci(db, "schema");
    sqlite3_close(db);
    return 0;
}
