#include "campiprova.h"

#include "archivio.h"
#include "routinesql.h"

#include <QStringList>

qint32 AggiungiCampo(qint32 idCollezione, const QVariantHash& colonne) {
    QVariantHash riga{{QStringLiteral("tipo"), QStringLiteral("textbox")},
                      {QStringLiteral("left"), 10},
                      {QStringLiteral("top"), 30},
                      {QStringLiteral("width"), 120},
                      {QStringLiteral("height"), 21},
                      {QStringLiteral("tabindex"), 0},
                      {QStringLiteral("required"), QStringLiteral("False")}};
    riga.insert(colonne);
    Recordset rs = Database().ApriRecordset(QStringLiteral("select * from campi where id=0"));
    rs.NuovoRecord();
    rs.Imposta(QStringLiteral("id_collezione"), idCollezione);
    for (auto colonna = riga.cbegin(); colonna != riga.cend(); ++colonna)
        rs.Imposta(colonna.key(), colonna.value());
    rs.Salva();
    rs.Chiudi();
    Recordset id = Database().ApriRecordset(QStringLiteral("select max(id) from campi"));
    return static_cast<qint32>(id.Campo(0).toLongLong());
}

void ScriviValore(qint32 idCampo, qint32 numeroRecord, const QString& valore) {
    Recordset rs = Database().ApriRecordset(QStringLiteral("select * from valori where id_campo=-1"));
    rs.NuovoRecord();
    rs.Imposta(QStringLiteral("id_campo"), idCampo);
    rs.Imposta(QStringLiteral("valore"), valore);
    rs.Imposta(QStringLiteral("data_ins"), DataOggi());
    rs.Imposta(QStringLiteral("data_mod"), DataOggi());
    rs.Imposta(QStringLiteral("numerorecord"), numeroRecord);
    rs.Salva();
}

QStringList ValoriDelCampo(qint32 idCampo) {
    QStringList valori;
    Recordset rs = Database().ApriRecordset(
        QStringLiteral("select numerorecord,valore from valori where id_campo=%1 order by numerorecord")
            .arg(idCampo));
    for (; !rs.Fine(); rs.Successivo())
        valori << rs.Campo(0).toString() + QLatin1Char('=') + rs.Campo(1).toString();
    return valori;
}

QStringList RigheSql(const QString& sql) {
    QStringList righe;
    for (Recordset rs = Database().ApriRecordset(sql); !rs.Fine(); rs.Successivo()) {
        QStringList celle;
        for (int i = 0; i < rs.NumeroColonne(); ++i)
            celle << rs.Campo(i).toString();
        righe << celle.join(QLatin1Char('|'));
    }
    return righe;
}

QStringList RecordCollezione(qint32 idCollezione) {
    return RigheSql(
        QStringLiteral("select group_concat(valore, '|') from (select v.numerorecord, v.valore from "
                       "valori v join campi c on c.id = v.id_campo where c.id_collezione = %1 order by "
                       "v.numerorecord, c.id) group by numerorecord order by numerorecord")
            .arg(idCollezione));
}
