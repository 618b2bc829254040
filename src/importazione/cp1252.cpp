#include "cp1252.h"

#include <array>

namespace {

// 0x80-0x9F, where the code page differs from Latin-1.
constexpr std::array<char16_t, 32> Speciali{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                            0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                            0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                            0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

} // namespace

QString DecodificaCp1252(QByteArrayView byte) {
    QString testo(byte.size(), Qt::Uninitialized);
    QChar* scritto = testo.data();
    for (const char c : byte) {
        const auto b = static_cast<unsigned char>(c);
        *scritto++ = QChar(b >= 0x80 && b < 0xA0 ? Speciali[b - 0x80] : char16_t{b});
    }
    return testo;
}
