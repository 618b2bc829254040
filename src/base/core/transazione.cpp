#include "transazione.h"

#include "connessione.h"
#include "erroredatabase.h"

Transazione::Transazione(Connessione& connessione)
    : m_connessione(connessione) {
    m_connessione.Esegui(QStringLiteral("savepoint orvix"));
}

Transazione::~Transazione() {
    if (!m_aperta)
        return;
    try {
        m_connessione.Esegui(QStringLiteral("rollback to orvix"));
        m_connessione.Esegui(QStringLiteral("release orvix"));
    } catch (const ErroreDatabase&) {
        // The engine may already have rolled back on the failure that brought us here.
    }
}

void Transazione::Conferma() {
    m_connessione.Esegui(QStringLiteral("release orvix"));
    m_aperta = false;
}
