#include "posizionestampa.h"

#include "superficie.h"

#include <QPointF>

void LineaOrizzontale(Superficie& superficie, double x) {
    const double y = superficie.CurrentY;
    superficie.Linea(QPointF(x, y), QPointF(superficie.ScaleWidth(), y));
}

void AllineaADestra(Superficie& superficie, const QString& testo) {
    superficie.CurrentX = superficie.ScaleWidth() - superficie.LarghezzaTesto(testo);
}
