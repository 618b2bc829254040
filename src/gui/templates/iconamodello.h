#pragma once

#include <QIcon>

// The icon of a template in the gallery: a form sheet with its fields, and a star.
QIcon IconaModello();
// An empty icon of the same size, for a template without a name: its caption then sits at the height
// of the others.
QIcon IconaVuota();
