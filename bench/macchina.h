#pragma once

#include <QStringList>

// Facts about the machine and the build that a figure depends on, one "name: value" per line.
QStringList FattiMacchina();
