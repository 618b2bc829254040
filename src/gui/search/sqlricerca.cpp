#include "sqlricerca.h"

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
    return QStringLiteral("select valore,numerorecord,data_ins,data_mod from VALORI where ") +
           QStringLiteral("id_campo=") + QString::number(idCampo) +
           (esatta ? QStringLiteral(" and valore='") + testo + QStringLiteral("'")
                   : QStringLiteral(" and valore like '%") + testo + QStringLiteral("%'"));
}
