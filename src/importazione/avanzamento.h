#pragma once

#include <QString>

// Where an import reports its progress: the status line texts, one after the other.
class Avanzamento {
public:
    virtual ~Avanzamento() = default;
    virtual void Stato(const QString& testo) = 0;
};
