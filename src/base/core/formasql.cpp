#include "formasql.h"

namespace {

bool ParteDiNome(QChar c) {
    return c.isLetterOrNumber() || c == QLatin1Char('_') || c == QLatin1Char('.');
}

bool Confronto(QChar c) {
    return c == QLatin1Char('=') || c == QLatin1Char('<') || c == QLatin1Char('>');
}

bool Segnaposto(QChar c) {
    return c == QLatin1Char('?') || c == QLatin1Char(':') || c == QLatin1Char('@') || c == QLatin1Char('$');
}

bool IniziaCon(QStringView sql, qsizetype i, char primo, char secondo) {
    return i + 1 < sql.size() && sql[i] == QLatin1Char(primo) && sql[i + 1] == QLatin1Char(secondo);
}

qsizetype Dopo(QStringView sql, QStringView chiusura, qsizetype da) {
    const qsizetype fine = sql.indexOf(chiusura, da);
    return fine < 0 ? sql.size() : fine + chiusura.size();
}

// Index just past a quoted name, a string literal or a comment starting at i; i when none starts there.
qsizetype SaltaCitazione(QStringView sql, qsizetype i) {
    const QChar c = sql[i];
    if (c == QLatin1Char('\'') || c == QLatin1Char('"') || c == QLatin1Char('`')) {
        qsizetype j = i + 1;
        while (j < sql.size()) {
            if (sql[j] != c)
                ++j;
            else if (j + 1 < sql.size() && sql[j + 1] == c)
                j += 2;
            else
                return j + 1;
        }
        return sql.size();
    }
    if (c == QLatin1Char('['))
        return Dopo(sql, u"]", i + 1);
    if (IniziaCon(sql, i, '-', '-'))
        return Dopo(sql, u"\n", i + 2);
    if (IniziaCon(sql, i, '/', '*'))
        return Dopo(sql, u"*/", i + 2);
    return i;
}

// End of an integer constant starting at i (spaces and one sign allowed before it); i when there is none.
qsizetype FineNumero(QStringView sql, qsizetype i) {
    qsizetype fine = i;
    while (fine < sql.size() && sql[fine] == QLatin1Char(' '))
        ++fine;
    if (fine < sql.size() && sql[fine] == QLatin1Char('-'))
        ++fine;
    const qsizetype cifre = fine;
    while (fine < sql.size() && sql[fine].isDigit())
        ++fine;
    if (fine == cifre || (fine < sql.size() && ParteDiNome(sql[fine])))
        return i;
    return fine;
}

} // namespace

FormaSql Parametrizza(const QString& testo) {
    const QStringView sql(testo);
    FormaSql forma;
    forma.testo.reserve(sql.size());
    qsizetype copiato = 0; // sql[copiato, i) is still to be copied into the shape
    qsizetype i = 0;
    while (i < sql.size()) {
        const qsizetype dopo = SaltaCitazione(sql, i);
        if (dopo != i) {
            i = dopo;
            continue;
        }
        const QChar c = sql[i++];
        if (Segnaposto(c))
            return {testo, {}}; // the text binds values of its own: leave it as it is
        if (!Confronto(c) || (i < sql.size() && Confronto(sql[i])))
            continue;
        const qsizetype fine = FineNumero(sql, i);
        bool ok = false;
        const qint64 valore = fine == i ? 0 : sql.mid(i, fine - i).trimmed().toLongLong(&ok);
        if (!ok)
            continue;
        forma.testo += sql.mid(copiato, i - copiato);
        forma.testo += QLatin1Char('?');
        forma.valori << valore;
        copiato = i = fine;
    }
    forma.testo += sql.mid(copiato);
    return forma;
}
