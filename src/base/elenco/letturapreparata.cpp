#include "letturapreparata.h"

#include "archivio.h"
#include "erroredatabase.h"

#include <sqlcipher/sqlite3.h>

LetturaPreparata::LetturaPreparata(const QString& sql)
    : m_stmt(Database().Prepara(sql)) {
    if (!sqlite3_stmt_readonly(m_stmt)) {
        Database().Restituisci(m_stmt);
        throw ErroreDatabase(QStringLiteral("Istruzione non in sola lettura: ") + sql);
    }
}

LetturaPreparata::~LetturaPreparata() {
    Database().Restituisci(m_stmt);
}

LetturaPreparata& LetturaPreparata::Lega(int posizione, qint64 valore) {
    sqlite3_bind_int64(m_stmt, posizione, valore);
    return *this;
}

LetturaPreparata& LetturaPreparata::Lega(int posizione, const QString& testo) {
    const QByteArray utf8 = testo.toUtf8();
    sqlite3_bind_text(m_stmt, posizione, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
    return *this;
}

bool LetturaPreparata::Riga() {
    const int esito = sqlite3_step(m_stmt);
    if (esito == SQLITE_ROW)
        return true;
    if (esito != SQLITE_DONE) {
        sqlite3_reset(m_stmt);
        Database().Fallisci();
    }
    return false;
}

qint64 LetturaPreparata::Intero(int colonna) const {
    return sqlite3_column_int64(m_stmt, colonna);
}

QString LetturaPreparata::Testo(int colonna) const {
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(m_stmt, colonna)),
                             sqlite3_column_bytes(m_stmt, colonna));
}
