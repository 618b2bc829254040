#pragma once

class Connessione;

// Statements run between construction and Conferma() are stored together or not at all: leaving
// the scope without confirming (an error thrown on the way) rolls them back. Built on savepoints,
// so one may stand inside another.
class Transazione final {
public:
    explicit Transazione(Connessione& connessione);
    ~Transazione();
    Transazione(const Transazione&) = delete;
    Transazione& operator=(const Transazione&) = delete;

    void Conferma();

private:
    Connessione& m_connessione;
    bool m_aperta = true;
};
