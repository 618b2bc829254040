#include "formasql.h"

namespace {

bool ParteDiNome(QChar c) {
    return c.isLetterOrNumber() || c == QLatin1Char('_') || c == QLatin1Char('.');
}

bool Confronto(QChar c) {
    return c == QLatin1Char('=') || c == QLatin1Char('<') || c == QLatin1Char('>');
}

// Index just past a quoted name, a string literal or a comment starting at i; i when none starts there.
qsizetype SaltaCitazione(const QString& sql, qsizetype i) {
    const QChar c = sql.at(i);
    const auto fino = [&](QLatin1String chiusura, qsizetype da) {
        const qsizetype fine = sql.indexOf(chiusura, da);
        return fine < 0 ? sql.size() : fine + chiusura.size();
    };
    if (c == QLatin1Char('\'') || c == QLatin1Char('"') || c == QLatin1Char('`')) {
        const QChar chiusura = c;
        qsizetype j = i + 1;
        while (j < sql.size()) {
            if (sql.at(j) == chiusura) {
                if (j + 1 < sql.size() && sql.at(j + 1) == chiusura) {
                    j += 2;
                    continue;
                }
                return j + 1;
            }
            ++j;
        }
        return sql.size();
    }
    if (c == QLatin1Char('['))
        return fino(QLatin1String("]"), i + 1);
    if (sql.mid(i, 2) == QLatin1String("--"))
        return fino(QLatin1String("\n"), i + 2);
    if (sql.mid(i, 2) == QLatin1String("/*"))
        return fino(QLatin1String("*/"), i + 2);
    return i;
}

bool HaSegnaposto(QChar c) {
    return c == QLatin1Char('?') || c == QLatin1Char(':') || c == QLatin1Char('@') || c == QLatin1Char('$');
}

} // namespace

FormaSql Parametrizza(const QString& sql) {
    FormaSql forma;
    forma.testo.reserve(sql.size());
    qsizetype i = 0;
    while (i < sql.size()) {
        const qsizetype dopo = SaltaCitazione(sql, i);
        if (dopo != i) {
            forma.testo += QStringView(sql).mid(i, dopo - i);
            i = dopo;
            continue;
        }
        const QChar c = sql.at(i);
        if (HaSegnaposto(c))
            return {sql, {}}; // the text binds values of its own: leave it as it is
        forma.testo += c;
        ++i;
        if (!Confronto(c) || (i < sql.size() && Confronto(sql.at(i))))
            continue;
        qsizetype inizio = i;
        while (inizio < sql.size() && sql.at(inizio) == QLatin1Char(' '))
            ++inizio;
        qsizetype fine = inizio;
        if (fine < sql.size() && sql.at(fine) == QLatin1Char('-'))
            ++fine;
        const qsizetype cifre = fine;
        while (fine < sql.size() && sql.at(fine).isDigit())
            ++fine;
        if (fine == cifre || (fine < sql.size() && ParteDiNome(sql.at(fine))))
            continue;
        bool ok = false;
        const qint64 valore = QStringView(sql).mid(inizio, fine - inizio).toLongLong(&ok);
        if (!ok)
            continue;
        forma.testo += QLatin1Char('?');
        forma.valori << valore;
        i = fine;
    }
    return forma;
}
