#include "routinesql.h"

#include "archivio.h"

#include <QDate>

QString Quote(const QString& testo) {
    if (testo.isEmpty())
        return testo;
    return QString(testo).replace(QLatin1Char('\''), QLatin1String("''"));
}

namespace {

QList<VoceElenco> Elenco(const QString& sql) {
    QList<VoceElenco> voci;
    for (Recordset rs = Database().ApriRecordset(sql); !rs.Fine(); rs.Successivo())
        voci.append({static_cast<qint32>(rs.Campo(0).toLongLong()), rs.Campo(1).toString()});
    return voci;
}

} // namespace

QList<VoceElenco> ElencoCollezioni() {
    return Elenco(QStringLiteral("select id,nome from collezioni"));
}

QList<VoceElenco> ElencoCampi(qint32 idCollezione) {
    return Elenco(QStringLiteral("select id,nome from campi where id_collezione=") +
                  QString::number(idCollezione));
}

qint32 CreaCollezione(const QString& nome, const QString& descrizione) {
    Recordset rs = Database().ApriRecordset(QStringLiteral("select * from collezioni where nome='") + nome +
                                            QStringLiteral("'"));
    if (!rs.Fine())
        return -1;
    rs.NuovoRecord();
    rs.Imposta(QStringLiteral("nome"), nome);
    rs.Imposta(QStringLiteral("descrizione"), descrizione);
    rs.Imposta(QStringLiteral("data_creazione"), QDate::currentDate());
    rs.Salva();
    rs.Chiudi();
    Recordset nuovo = Database().ApriRecordset(QStringLiteral("select id from collezioni where nome='") +
                                               nome + QStringLiteral("'"));
    return static_cast<qint32>(nuovo.Campo(QStringLiteral("id")).toLongLong());
}

QString SqlMassimoRecord(qint32 idCollezione) {
    // The largest of the per-field maxima: the same number as the maximum over all the collection's
    // values, but found with one index seek per field instead of a walk over every value.
    return QStringLiteral(
               "select max((select max(numerorecord) from valori where id_campo=campi.id)) from campi "
               "where id_collezione=") +
           QString::number(idCollezione);
}

qint32 ContaRecord(qint32 idCollezione) {
    Recordset rs = Database().ApriRecordset(SqlMassimoRecord(idCollezione));
    return rs.Fine() ? 0 : static_cast<qint32>(rs.Campo(0).toLongLong());
}

QString DataOggi() {
    return QDate::currentDate().toString(Qt::ISODate);
}
