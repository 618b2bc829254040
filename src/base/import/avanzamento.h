#pragma once

#include <QString>

// Where an import reports its progress (the status line texts, one after the other) and learns
// that the user asked it to stop.
class Avanzamento {
public:
    virtual ~Avanzamento() = default;
    virtual void Stato(const QString& testo) = 0;
    virtual bool Interrotta() const { return false; }
};

// The last status text of an import the user stopped: the records before the stop stay.
QString TestoInterruzione(qint32 record);
