#pragma once

#include <QString>
#include <QStringList>

// The per-user settings store of the program: sections of keys with text values.
void SaveSetting(const QString& sezione, const QString& chiave, const QString& valore);
QString GetSetting(const QString& sezione, const QString& chiave, const QString& predefinito = {});
void DeleteSetting(const QString& sezione);
QStringList ChiaviSezione(const QString& sezione);
// Points the store at a file of its own (tests, portable use); an empty path restores the user's store.
void UsaFileImpostazioni(const QString& percorso);
// Changes whenever the store is pointed elsewhere, so that copies kept in memory know to let go.
qint64 GenerazioneImpostazioni();
