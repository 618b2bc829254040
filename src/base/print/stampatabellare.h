#pragma once

#include <QtGlobal>

class Superficie;

// One line per record, the k-th field's value at print column (k - 1) x 25, under a heading of
// record 1's labels. On a picture box the lines go from record `primo` on (the heading only with
// record 1), and those below its bottom are not drawn. Answers the last record begun.
qint32 StampaTabellare(Superficie& superficie, qint32 idCollezione, qint32 primo = 1);
