#pragma once

#include <QIcon>

class QStyle;

// Toolbar icons that no style offers, drawn over the style's own page icon.
QIcon IconaNuovo(const QStyle& stile);
QIcon IconaModifica(const QStyle& stile);
