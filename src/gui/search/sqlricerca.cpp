#include "sqlricerca.h"

#include "chiavevalore.h"
#include "routinesql.h"

namespace {

// LIKE's own wildcards and the escape character match themselves; only "*", the wildcard a user
// types, stands for any run of characters.
QString ModelloContenuto(const QString& testo) {
    QString modello;
    modello.reserve(testo.size() + 2);
    for (const QChar c : testo) {
        if (c == QLatin1Char('%') || c == QLatin1Char('_') || c == QLatin1Char('\\'))
            modello.append(QLatin1Char('\\')).append(c);
        else if (c == QLatin1Char('*'))
            modello.append(QLatin1Char('%'));
        else
            modello.append(c);
    }
    return QLatin1Char('%') + modello + QLatin1Char('%');
}

// Lets the engine seek the keys of the values that may equal the text instead of reading every
// value of the field. The range is derived from the text and goes through Quote: it only narrows
// the rows; the equality that follows decides, and a quote still breaks it.
QString IntervalloDiChiavi(const QString& testo) {
    const auto intervallo = IntervalloChiavePer(testo);
    if (!intervallo)
        return {};
    const QString chiave = EspressioneChiaveValore();
    return QStringLiteral(" and ") + chiave + QStringLiteral(">='") + Quote(intervallo->da) +
           QStringLiteral("' and ") + chiave + QStringLiteral("<'") + Quote(intervallo->a) +
           QStringLiteral("'");
}

} // namespace

// The name is spliced as the list shows it, not through Quote, so a quote in it breaks the
// statement; a field no longer in the store finds no row.
QString SqlIdCampo(qint32 idCollezione, const QString& nome) {
    return QStringLiteral("select id from campi where id_collezione=") + QString::number(idCollezione) +
           QStringLiteral(" and nome='") + nome + QStringLiteral("'");
}

// The text is spliced as typed, untrimmed and not through Quote: a quote in it breaks the
// statement and the engine's error reaches the user. Case is ignored by the column's collation
// (equality) and by the connection's LIKE (containment).
QString SqlRicerca(qint32 idCampo, const QString& testo, bool esatta) {
    const QString testa = QStringLiteral("select valore,numerorecord,data_ins,data_mod from VALORI where ") +
                          QStringLiteral("id_campo=") + QString::number(idCampo);
    if (esatta)
        return testa + IntervalloDiChiavi(testo) + QStringLiteral(" and valore='") + testo +
               QStringLiteral("'");
    return testa + QStringLiteral(" and valore like '") + ModelloContenuto(testo) +
           QStringLiteral("' escape '\\'");
}
