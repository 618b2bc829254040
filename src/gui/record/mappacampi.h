#pragma once

#include <QString>
#include <QtGlobal>

// The field map of a collection in the per-user settings: which field each control key shows.
void CancellaMappaCampi(qint32 idCollezione);
void RegistraCampo(qint32 idCollezione, const QString& chiave, qint32 idCampo);
// The field id of a control key; 0 when the key is not in the map.
qint32 IdCampo(qint32 idCollezione, const QString& chiave);
