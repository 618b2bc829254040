#pragma once

#include <QIcon>

// The icon of a template in the gallery: a form sheet with its fields, and a star.
QIcon IconaModello();
