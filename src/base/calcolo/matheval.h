#pragma once

#include <QString>

// Evaluates the arithmetic of calculated fields once the field names have been replaced by
// their values. The rules are the program's historical ones and saved formulas depend on
// them: one pass per operator in the order ^ / \ * - +, each pass applying its operator
// leftmost first, so "/" binds tighter than "*" and "-" tighter than "+". Every intermediate
// result is written back into the text in the user's number format and read again.
class MathEval final {
public:
    // True, with the value in risultato, when the expression is valid and computable;
    // false (risultato 0) on any syntax or arithmetic failure.
    bool Valuta(QString espressione, double& risultato) const;

private:
    enum class Direzione { Sinistra, Destra };

    // A number inside the expression: its value and the characters [inizio, fine) it spans.
    struct Operando {
        double valore = 0.0;
        qsizetype inizio = 0;
        qsizetype fine = 0;
    };

    bool NormalizzaEspressione(QString& espressione) const;
    bool ValutaEspressione(QString espressione, double& risultato) const;
    bool RisolviParentesi(QString& espressione) const;
    bool ApplicaOperatore(QString& espressione, QChar operatore) const;
    void SostituisciOperazione(QString& espressione, qsizetype inizio, qsizetype fine, double valore) const;
    bool LeggiNumero(const QString& espressione, qsizetype posizione, Direzione direzione,
                     Operando& numero) const;
};
