#pragma once

#include <QString>

// The POSIX record locks this process holds, as /proc/locks lists them, on the store and on its
// shared index (-shm). Closing any other descriptor of either file drops them all at once.
int BlocchiArchivio(const QString& archivio);
