#pragma once

class QString;
class Superficie;

// A rule from x to the right edge, at the print position's height.
void LineaOrizzontale(Superficie& superficie, double x);
// Moves the print position so that the text, printed next, ends at the right edge.
void AllineaADestra(Superficie& superficie, const QString& testo);
