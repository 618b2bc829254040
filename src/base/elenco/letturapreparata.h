#pragma once

#include <QByteArray>
#include <QString>

struct sqlite3_stmt;

// A read-only statement on the program's one connection, with bound values: the list reads
// thousands of rows per step and the user's text never becomes SQL. A statement that could
// write is refused.
class LetturaPreparata final {
public:
    explicit LetturaPreparata(const QString& sql);
    ~LetturaPreparata();
    LetturaPreparata(const LetturaPreparata&) = delete;
    LetturaPreparata& operator=(const LetturaPreparata&) = delete;

    LetturaPreparata& Lega(int posizione, qint64 valore);
    LetturaPreparata& Lega(int posizione, const QString& testo);
    // True on a row; false once done. A failure throws the engine's message.
    bool Riga();
    qint64 Intero(int colonna) const;
    QString Testo(int colonna) const;

private:
    sqlite3_stmt* m_stmt;
};
