#include "valorielenco.h"

#include "letturapreparata.h"

namespace {

// One text for every page, so the statement is prepared once; unused places hold 0, no record's number.
QString SqlPagina(const QString& campi) {
    QStringList posti;
    for (qsizetype i = 0; i < Pagina; ++i)
        posti.append(QStringLiteral("?") + QString::number(i + 1));
    return QStringLiteral("select numerorecord,id_campo,valore from valori where id_campo in (") + campi +
           QStringLiteral(") and numerorecord in (") + posti.join(QLatin1Char(',')) + QStringLiteral(")");
}

} // namespace

ValoriRecord LeggiValori(const QList<qint32>& campi, const QList<qint32>& numeri) {
    ValoriRecord valori;
    if (campi.isEmpty() || numeri.isEmpty())
        return valori;
    QStringList idCampi; // the store's own ids, not user text
    for (const qint32 id : campi)
        idCampi.append(QString::number(id));
    LetturaPreparata lettura(SqlPagina(idCampi.join(QLatin1Char(','))));
    for (qsizetype i = 0; i < Pagina; ++i)
        lettura.Lega(static_cast<int>(i + 1), i < numeri.size() ? numeri.at(i) : 0);
    while (lettura.Riga())
        valori[static_cast<qint32>(lettura.Intero(0))][static_cast<qint32>(lettura.Intero(1))] =
            lettura.Testo(2);
    return valori;
}
