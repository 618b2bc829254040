#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

// Where a new child window of `dimensione` goes inside `area`: the first place, top-left first,
// then beside or below a window already there, where it lies wholly inside the area and over no
// other window; when there is none, a step down and right of the last one, still inside the area.
QPoint PosizioneLibera(const QRect& area, const QList<QRect>& occupati, const QSize& dimensione);
