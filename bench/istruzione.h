#pragma once

#include <QByteArray>
#include <QString>

struct sqlite3;
struct sqlite3_stmt;

// A raw prepared statement on the program's own connection, for floors and diagnostics:
// held for the whole measurement and given back to the connection's cache at the end.
class Istruzione final {
public:
    explicit Istruzione(const QString& sql);
    ~Istruzione();
    Istruzione(const Istruzione&) = delete;
    Istruzione& operator=(const Istruzione&) = delete;

    Istruzione& Lega(int posizione, qint64 valore);
    Istruzione& Lega(int posizione, const QByteArray& testo);
    // True on a row; false once done. A failure throws the engine's message.
    bool Riga();
    // Steps to the end and makes the statement ready for the next use.
    void Esegui();
    void Azzera();

    qint64 Intero(int colonna) const;
    // Bytes of a column read as text; reading is what makes the engine produce the value.
    int LunghezzaTesto(int colonna) const;
    QString Testo(int colonna) const;
    // The column's text as the store holds it, UTF-8, valid until the next step.
    QByteArrayView Byte(int colonna) const;
    sqlite3* Connessione() const;

private:
    sqlite3_stmt* m_stmt;
};
