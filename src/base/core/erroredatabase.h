#pragma once

#include <QString>
#include <stdexcept>

// A failure of the store, carrying the engine's own text. Operations that do not trap
// it let it travel to the event boundary, which shows it and keeps the program running.
class ErroreDatabase final : public std::runtime_error {
public:
    explicit ErroreDatabase(const QString& messaggio);
    QString messaggio() const { return m_messaggio; }

private:
    QString m_messaggio;
};
