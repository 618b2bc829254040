#include "codificacp1252.h"

namespace {

// Bytes 0x80 to 0x9F hold these characters; the five the code page leaves undefined map to the
// control characters of the same number, as the system maps them both ways.
constexpr char16_t Da80a9F[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                  0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                  0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                  0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char Byte(char16_t carattere) {
    if (carattere < 0x80 || (carattere >= 0xA0 && carattere <= 0xFF))
        return static_cast<char>(carattere);
    for (int i = 0; i < 32; ++i)
        if (Da80a9F[i] == carattere)
            return static_cast<char>(0x80 + i);
    return '?';
}

} // namespace

void AccodaCp1252(QStringView testo, QByteArray& destinazione) {
    for (qsizetype i = 0; i < testo.size(); ++i) {
        // A character beyond the 16-bit range is two units and one character: one "?".
        if (testo[i].isHighSurrogate() && i + 1 < testo.size() && testo[i + 1].isLowSurrogate())
            ++i;
        destinazione.append(Byte(testo[i].unicode()));
    }
}

QByteArray CodificaCp1252(QStringView testo) {
    QByteArray codificato;
    codificato.reserve(testo.size());
    AccodaCp1252(testo, codificato);
    return codificato;
}
