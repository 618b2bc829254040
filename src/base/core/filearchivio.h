#pragma once

#include <QStringList>

// The store's file followed by the files the engine keeps beside it while the store is open
// (write-ahead log, shared index, rollback journal).
QStringList FileDellArchivio(const QString& archivio);
// Only the files beside it.
QStringList FileAccessori(const QString& archivio);
