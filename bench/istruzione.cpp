#include "istruzione.h"

#include "archivio.h"

#include <sqlcipher/sqlite3.h>

Istruzione::Istruzione(const QString& sql)
    : m_stmt(Database().Prepara(sql)) {}

Istruzione::~Istruzione() {
    Database().Restituisci(m_stmt);
}

Istruzione& Istruzione::Lega(int posizione, qint64 valore) {
    sqlite3_bind_int64(m_stmt, posizione, valore);
    return *this;
}

Istruzione& Istruzione::Lega(int posizione, const QByteArray& testo) {
    sqlite3_bind_text(m_stmt, posizione, testo.constData(), static_cast<int>(testo.size()), SQLITE_TRANSIENT);
    return *this;
}

bool Istruzione::Riga() {
    const int esito = sqlite3_step(m_stmt);
    if (esito == SQLITE_ROW)
        return true;
    if (esito != SQLITE_DONE) {
        sqlite3_reset(m_stmt);
        Database().Fallisci();
    }
    return false;
}

void Istruzione::Esegui() {
    while (Riga()) {
    }
    Azzera();
}

void Istruzione::Azzera() {
    sqlite3_reset(m_stmt);
}

qint64 Istruzione::Intero(int colonna) const {
    return sqlite3_column_int64(m_stmt, colonna);
}

int Istruzione::LunghezzaTesto(int colonna) const {
    sqlite3_column_text(m_stmt, colonna);
    return sqlite3_column_bytes(m_stmt, colonna);
}

QString Istruzione::Testo(int colonna) const {
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(m_stmt, colonna)),
                             sqlite3_column_bytes(m_stmt, colonna));
}

QByteArrayView Istruzione::Byte(int colonna) const {
    const auto* testo = reinterpret_cast<const char*>(sqlite3_column_text(m_stmt, colonna));
    return QByteArrayView(testo, sqlite3_column_bytes(m_stmt, colonna));
}

sqlite3* Istruzione::Connessione() const {
    return sqlite3_db_handle(m_stmt);
}
