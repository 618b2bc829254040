#pragma once

#include <QString>
#include <QtGlobal>

// Conversions between numbers and text in the user's number format (the default QLocale),
// with the semantics users of the classic BASIC functions of the same names expect.

// True when the text is a number written in the user's format: blanks around it, an optional
// sign, digits with the locale's decimal and group separators, an optional exponent.
bool IsNumeric(const QString& testo);

// The number written in the user's format; 0 and *ok = false when the text is not one.
double CDbl(const QString& testo, bool* ok = nullptr);

// The longest number at the start of the text, written with '.' as decimal point whatever
// the locale; 0 when the text does not start with a number.
double Val(const QString& testo);

// Rounds half to even to a 32-bit integer; throws std::overflow_error outside that range.
qint32 CLng(double v);

// The number in the user's format without group separators and with up to 15 significant
// digits; exponent form for very large or very small values.
QString NumeroInTesto(double v);

// "True" / "False" in any case, or a number (non-zero is true); otherwise *ok = false.
bool CBoolTesto(const QString& testo, bool* ok = nullptr);

// A position, size or tab order as the store keeps them: a whole number from 0 to 32767, spaces
// around it allowed (no other blank); no sign, separator or decimals.
bool MisuraAmmessa(const QString& testo);
