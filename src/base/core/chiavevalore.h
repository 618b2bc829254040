#pragma once

#include <QString>
#include <optional>

// The short key by which the store finds a field's values equal to a text, under its case folding,
// without reading all of them. The key is made by the engine's own functions (so a shell that
// knows nothing of the program keeps the index that holds it valid): ASCII letters lowered, the
// four characters that fold to one ASCII character replaced by it, the first 40 characters kept.
// Every value equal to a text has a key in the text's range; the equality itself still decides.
QString EspressioneChiaveValore();

// The keys [da, a) that hold every value equal to `testo`; none when the text begins with a
// character that may stand for more than one key, and the range would be every key.
struct IntervalloChiave {
    QString da;
    QString a;
};
std::optional<IntervalloChiave> IntervalloChiavePer(const QString& testo);
