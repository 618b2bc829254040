#pragma once

#include "banco.h"

#include <QTextStream>

// The whole result as Markdown: machine facts, how the stores were built, the table of figures
// and floors, the targets met or missed, and what the engine spent its time on.
void StampaRapporto(QTextStream& out, const QList<MisureDimensione>& misure);

// A duration with three significant digits and its unit.
QString FormatoTempo(qint64 ns);
