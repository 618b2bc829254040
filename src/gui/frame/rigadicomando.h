#pragma once

#include <optional>

// What the program answers before it needs a window: --help and --version, and the lack of a
// display. Gives the exit code when the program is to end here.
std::optional<int> RispostaSenzaFinestre(int argc, char** argv);

// From here on a display that cannot be reached ends the program with one clear line instead of
// Qt's abort; `FineSenzaSchermo` goes back to Qt's own handling once the application exists.
void InizioSenzaSchermo();
void FineSenzaSchermo();
