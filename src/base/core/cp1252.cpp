#include "cp1252.h"

#include <QStringDecoder>
#include <algorithm>
#include <array>
#include <optional>

namespace {

// The characters of bytes 0x80 to 0x9F. The five bytes the code page leaves undefined read as the
// control character of the same number, as the system's own conversion does, so every byte survives
// a reading and a writing.
constexpr std::array<char16_t, 32> Alti = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                           0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                           0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                           0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// The byte of a character, or -1 when the code page has none.
int Byte(QChar carattere) {
    const char16_t codice = carattere.unicode();
    if (codice < 0x80 || (codice >= 0xA0 && codice <= 0xFF))
        return codice;
    const auto trovato = std::find(Alti.cbegin(), Alti.cend(), codice);
    return trovato == Alti.cend() ? -1 : 0x80 + static_cast<int>(trovato - Alti.cbegin());
}

// The text the bytes read as in UTF-8, or nothing when they are not UTF-8 or hold ASCII alone. Only
// bytes that come back unchanged from the text they read as are taken: no error, no overlong form, no
// half-sequence at the end. A byte-order mark stays in the text, so that it is written back.
std::optional<QString> Utf8(const QByteArray& byte) {
    if (std::all_of(byte.cbegin(), byte.cend(), [](char b) { return static_cast<unsigned char>(b) < 0x80; }))
        return std::nullopt;
    QStringDecoder decodifica(QStringDecoder::Utf8,
                              QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    QString testo = decodifica(byte);
    if (decodifica.hasError() || testo.toUtf8() != byte)
        return std::nullopt;
    return testo;
}

} // namespace

bool Cp1252Contiene(const QString& testo) {
    return std::all_of(testo.cbegin(), testo.cend(), [](QChar c) { return Byte(c) >= 0; });
}

bool AccodaCp1252(QStringView testo, QByteArray& destinazione) {
    bool tutti = true;
    for (qsizetype i = 0; i < testo.size(); ++i) {
        const int b = Byte(testo.at(i));
        tutti = tutti && b >= 0;
        destinazione.append(b < 0 ? '?' : static_cast<char>(b));
        // A character beyond the first 65536 takes two units and gets one '?'.
        if (testo.at(i).isHighSurrogate() && i + 1 < testo.size() && testo.at(i + 1).isLowSurrogate())
            ++i;
    }
    return tutti;
}

QByteArray InCp1252(const QString& testo) {
    QByteArray byte;
    byte.reserve(testo.size());
    AccodaCp1252(testo, byte);
    return byte;
}

QString DaCp1252(QByteArrayView byte) {
    QString testo(byte.size(), Qt::Uninitialized);
    QChar* scritto = testo.data();
    for (const char c : byte) {
        const auto u = static_cast<unsigned char>(c);
        *scritto++ = QChar(u >= 0x80 && u <= 0x9F ? Alti.at(u - 0x80) : char16_t{u});
    }
    return testo;
}

bool LettoComeUtf8(const QByteArray& byte) {
    return Utf8(byte).has_value();
}

QString DaCp1252OUtf8(const QByteArray& byte) {
    if (std::optional<QString> testo = Utf8(byte))
        return *testo;
    return DaCp1252(byte);
}
