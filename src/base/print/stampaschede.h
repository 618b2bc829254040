#pragma once

#include <QtGlobal>

class Superficie;

// One record per page: each field's label and value, the picture of image fields when `immagini`
// is set, and a heading that numbers the record when `numeriRecord` is set. On a picture box the
// records follow one another from record `primo` on, and the ones below its bottom are not drawn.
// Answers the last record begun.
qint32 StampaSchede(Superficie& superficie, qint32 idCollezione, bool immagini, bool numeriRecord,
                    qint32 primo = 1);
