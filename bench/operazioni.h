#pragma once

#include "compilaform.h"
#include "misura.h"

class frmFind;
class frmRecord;
class Pavimento;

// What the operations act on: a store of `record` records shown in a built record window.
struct Banco {
    frmRecord& finestra;
    frmFind& ricerca;
    QList<ControlloCampo> controlli;
    CollezioneBench collezione;
    Pavimento& pavimento;
    qint32 record;
    // The last record handed out by RecordNonCaricato.
    qint32 ultimoNonCaricato = 0;
};

// A record number whose statements the connection has not cached yet, as when a user browses:
// a new one at each call, three apart so that it and the one after it are both fresh.
qint32 RecordNonCaricato(Banco& banco);

// The measured operations, each beside its floor, in the order the table lists them.
QList<Operazione> Operazioni(Banco& banco);
