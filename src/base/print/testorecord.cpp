#include "testorecord.h"

#include "archivio.h"
#include "erroredatabase.h"

#include <QStringList>

QString SqlCampiRecord(qint32 idCollezione, qint32 numeroRecord, bool conDimensioni) {
    return QStringLiteral("select campi.nome, campi.etichetta, campi.tipo, ") +
           (conDimensioni ? QStringLiteral("campi.width, campi.height, ") : QString()) +
           QStringLiteral(
               "valori.valore from campi,valori where valori.id_campo=campi.id and valori.numerorecord=") +
           QString::number(numeroRecord) +
           QStringLiteral(" and valori.id_campo in (select campi.id from campi where id_collezione=") +
           QString::number(idCollezione) + QStringLiteral(") order by campi.nome");
}

QString TestoRecord(qint32 idCollezione, qint32 numeroRecord) {
    QStringList nomi;
    QStringList valori;
    try {
        Recordset righe = Database().ApriRecordset(SqlCampiRecord(idCollezione, numeroRecord));
        for (; !righe.Fine(); righe.Successivo()) {
            nomi << righe.Testo(QStringLiteral("nome"));
            valori << righe.Testo(QStringLiteral("valore"));
        }
    } catch (const ErroreDatabase&) {
        return {};
    }
    if (nomi.isEmpty())
        return {};
    return nomi.join(QLatin1Char('\t')) + QLatin1String("\r\n") + valori.join(QLatin1Char('\t'));
}
