#pragma once

#include <QLocale>

// The number and date formats the program uses: the user's own, or Italian where the system has
// none to offer (the C and POSIX locales of servers and containers), since the interface is Italian
// and formulas read numbers such as "12,50".
QLocale LocaleProgramma(const QLocale& sistema);
// Makes that the default of the whole program; called once at start-up.
void ImpostaLocaleProgramma();
