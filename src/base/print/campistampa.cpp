#include "campistampa.h"

#include "archivio.h"
#include "testorecord.h"

QString CampoStampa::Etichetta() const {
    return etichetta.isEmpty() ? nome : etichetta;
}

bool CampoStampa::Immagine() const {
    return tipo.compare(QLatin1String("image"), Qt::CaseInsensitive) == 0;
}

QList<CampoStampa> CampiDelRecord(qint32 idCollezione, qint32 numero, bool conDimensioni) {
    QList<CampoStampa> campi;
    for (Recordset rs = Database().ApriRecordset(SqlCampiRecord(idCollezione, numero, conDimensioni));
         !rs.Fine(); rs.Successivo())
        campi.append({rs.Testo(QStringLiteral("nome")), rs.Testo(QStringLiteral("etichetta")),
                      rs.Testo(QStringLiteral("tipo")), rs.Testo(QStringLiteral("valore"))});
    return campi;
}
