#pragma once

#include <QStringList>

// Facts about the machine and the build that a figure depends on, one "name: value" per line.
QStringList FattiMacchina();

// The process's resident memory now, in KiB; 0 where the system does not say.
qint64 MemoriaResidenteKiB();
