#include "posizionefigli.h"

#include <algorithm>

namespace {

bool Libera(const QRect& area, const QList<QRect>& occupati, const QRect& candidato) {
    if (!area.contains(candidato))
        return false;
    return std::none_of(occupati.begin(), occupati.end(),
                        [&](const QRect& altro) { return altro.intersects(candidato); });
}

QPoint DentroArea(const QRect& area, const QSize& dimensione, QPoint punto) {
    punto.setX(
        std::clamp(punto.x(), area.left(), std::max(area.left(), area.right() + 1 - dimensione.width())));
    punto.setY(
        std::clamp(punto.y(), area.top(), std::max(area.top(), area.bottom() + 1 - dimensione.height())));
    return punto;
}

} // namespace

QPoint PosizioneLibera(const QRect& area, const QList<QRect>& occupati, const QSize& dimensione) {
    QList<QPoint> candidati{area.topLeft()};
    for (const QRect& altro : occupati)
        candidati << QPoint(altro.right() + 1, altro.top()) << QPoint(altro.left(), altro.bottom() + 1);
    for (const QPoint& punto : std::as_const(candidati))
        if (Libera(area, occupati, QRect(punto, dimensione)))
            return punto;
    const QPoint passo(24, 24);
    const QPoint ultimo = occupati.isEmpty() ? area.topLeft() : occupati.last().topLeft() + passo;
    return DentroArea(area, dimensione, ultimo);
}
