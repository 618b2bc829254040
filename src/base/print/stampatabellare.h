#pragma once

#include <QtGlobal>

class Superficie;

// One line per record, the k-th field's value at print column (k - 1) x 25, under a heading of
// record 1's labels. On a picture box the lines below its bottom are not drawn.
void StampaTabellare(Superficie& superficie, qint32 idCollezione);
