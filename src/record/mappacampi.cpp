#include "mappacampi.h"

#include "impostazioni.h"
#include "numeri.h"

void CancellaMappaCampi(qint32 idCollezione) {
    DeleteSetting(QString::number(idCollezione));
}

void RegistraCampo(qint32 idCollezione, const QString& chiave, qint32 idCampo) {
    SaveSetting(QString::number(idCollezione), chiave, QString::number(idCampo));
}

qint32 IdCampo(qint32 idCollezione, const QString& chiave) {
    return static_cast<qint32>(Val(GetSetting(QString::number(idCollezione), chiave)));
}
