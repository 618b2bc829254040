#pragma once

class Connessione;

// Adds to a store made before them the two indexes a search reads: a field's values with their
// record numbers and dates in record order, and a field's value keys. Stores that have them are
// left alone.
void CompletaIndiciRicerca(Connessione& connessione);
