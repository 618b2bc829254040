#pragma once

#include <QStringList>

// Facts about the machine and the build that a figure depends on, one "name: value" per line.
QStringList FattiMacchina();

// The process's resident memory now, in KiB; 0 where the system does not say.
qint64 MemoriaResidenteKiB();
// Starts the peak of resident memory again from the present (Linux's clear_refs); answers the
// resident memory at that moment, in KiB.
qint64 AzzeraPiccoResidente();
// The highest resident memory since the last AzzeraPiccoResidente, in KiB; 0 where unknown.
qint64 PiccoResidenteKiB();
