#pragma once

#include <QString>

struct sqlite3;

// Text compares as the store compares names and values: without regard to case for every letter,
// not only ASCII, with accented letters sorting beside their base letter ("città" before
// "cittadino", "Èra" before "Fine") and still distinct from it ("citta" is not "città").
int ConfrontaTesti(QStringView a, QStringView b);
// Decomposed and case-folded: accents become marks after their base letter. Two texts are equal
// exactly when their folded forms are.
QString TestoPiegato(QStringView testo);
bool TestiUguali(QStringView a, QStringView b);

// SQL's LIKE with the same folding: "%" matches any run of characters, "_" one character, and the
// escape character, when given, makes the next one literal.
bool SomigliaA(QStringView testo, QStringView modello, char32_t escape = 0);

// Puts both in place of the engine's NOCASE collation and LIKE, which fold ASCII letters only.
void InstallaConfronti(sqlite3* db);
