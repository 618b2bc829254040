#include "campistampa.h"

#include "archivio.h"

QString CampoStampa::Etichetta() const {
    return etichetta.isEmpty() ? nome : etichetta;
}

bool CampoStampa::Immagine() const {
    return tipo.compare(QLatin1String("image"), Qt::CaseInsensitive) == 0;
}

QList<CampoStampa> CampiDelRecord(qint32 idCollezione, qint32 numero, bool conDimensioni) {
    const QString colonne = conDimensioni ? QStringLiteral("select campi.nome, campi.etichetta, campi.tipo, "
                                                           "campi.width, campi.height, valori.valore ")
                                          : QStringLiteral("select campi.nome, campi.etichetta, campi.tipo, "
                                                           "valori.valore ");
    const QString sql =
        colonne + QStringLiteral("from campi,valori ") +
        QStringLiteral("where valori.id_campo=campi.id and ") + QStringLiteral("valori.numerorecord=") +
        QString::number(numero) + QStringLiteral(" and ") +
        QStringLiteral("valori.id_campo in (select campi.id from campi where id_collezione=") +
        QString::number(idCollezione) + QStringLiteral(")") + QStringLiteral(" order by campi.nome");
    QList<CampoStampa> campi;
    for (Recordset rs = Database().ApriRecordset(sql); !rs.Fine(); rs.Successivo())
        campi.append({rs.Testo(QStringLiteral("nome")), rs.Testo(QStringLiteral("etichetta")),
                      rs.Testo(QStringLiteral("tipo")), rs.Testo(QStringLiteral("valore"))});
    return campi;
}
