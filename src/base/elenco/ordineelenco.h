#pragma once

#include <QList>
#include <QtGlobal>

// The record numbers of a collection of `totale` records ordered by one field's values. Values
// that are all numbers in the user's format (empty ones aside, which go first) order as numbers;
// otherwise as the store compares text. Equal values keep record-number order; descending is the
// exact reverse. Records without a value for the field end the ascending order.
QList<qint32> OrdinaPerCampo(qint32 idCampo, qint32 totale, bool discendente);
