#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

// Windows-1252, the code page of the program's text files, and the rule by which the program reads
// such files back: bytes that are valid UTF-8 are UTF-8, anything else is Windows-1252.

// True when every character of the text has a Windows-1252 byte.
bool Cp1252Contiene(const QString& testo);
// The text in Windows-1252; each character without a byte becomes one '?'.
QByteArray InCp1252(const QString& testo);
// The same, appended to a buffer being filled; false when some character had no byte.
bool AccodaCp1252(QStringView testo, QByteArray& destinazione);
QString DaCp1252(QByteArrayView byte);

// True when the bytes are valid UTF-8 holding at least one character beyond ASCII: the case in which
// the two readings differ and UTF-8 is taken.
bool LettoComeUtf8(const QByteArray& byte);
QString DaCp1252OUtf8(const QByteArray& byte);
