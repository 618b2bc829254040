#include "intestazionejet.h"

#include "cp1252.h"

#include <QByteArray>
#include <QtEndian>
#include <array>
#include <cstring>

namespace {

constexpr qsizetype InizioCifrato = 0x18;
constexpr qsizetype CampoPassword = 0x42;
constexpr qsizetype DataCreazione = 0x72;
constexpr qsizetype MinimoIntestazione = 0x98;

VersioneJet Versione(QByteArrayView pagina) {
    if (pagina.size() < MinimoIntestazione || !pagina.startsWith(QByteArrayView("\x00\x01\x00\x00", 4)))
        return VersioneJet::NonJet;
    const QByteArrayView firma = pagina.sliced(4, 16);
    if (firma == QByteArrayView("Standard ACE DB\0", 16))
        return VersioneJet::Ace;
    if (firma != QByteArrayView("Standard Jet DB\0", 16))
        return VersioneJet::NonJet;
    switch (pagina.at(0x14)) {
    case 0:
        return VersioneJet::Jet3;
    case 1:
        return VersioneJet::Jet4;
    default:
        return VersioneJet::Ace;
    }
}

// Jet 4 also masks the field with the integer part of the creation date, a double after the RC4 step.
void TogliMascheraData(const QByteArray& chiaro, QByteArray& campo) {
    double data = 0;
    std::memcpy(&data, chiaro.constData() + DataCreazione, sizeof data);
    data = qFromLittleEndian(data);
    std::array<char, 4> maschera{};
    qToLittleEndian(static_cast<qint32>(data), maschera.data());
    for (qsizetype i = 0; i < campo.size(); ++i)
        campo[i] = static_cast<char>(campo.at(i) ^ maschera.at(static_cast<std::size_t>(i % 4)));
}

QString Testo(VersioneJet versione, const QByteArray& campo) {
    if (versione == VersioneJet::Jet3)
        return DaCp1252(campo.left(campo.indexOf('\0') < 0 ? campo.size() : campo.indexOf('\0')));
    QString testo =
        QString::fromUtf16(reinterpret_cast<const char16_t*>(campo.constData()), campo.size() / 2);
    const qsizetype fine = testo.indexOf(QChar(0));
    return fine < 0 ? testo : testo.left(fine);
}

} // namespace

void Rc4(QByteArrayView chiave, char* dati, qsizetype lunghezza) {
    std::array<unsigned char, 256> s{};
    for (std::size_t i = 0; i < s.size(); ++i)
        s[i] = static_cast<unsigned char>(i);
    std::size_t j = 0;
    for (std::size_t i = 0; i < s.size(); ++i) {
        j = (j + s[i] + static_cast<unsigned char>(chiave.at(static_cast<qsizetype>(i) % chiave.size()))) %
            256;
        std::swap(s[i], s[j]);
    }
    std::size_t a = 0;
    std::size_t b = 0;
    for (qsizetype k = 0; k < lunghezza; ++k) {
        a = (a + 1) % 256;
        b = (b + s[a]) % 256;
        std::swap(s[a], s[b]);
        dati[k] = static_cast<char>(dati[k] ^ s[(s[a] + s[b]) % 256]);
    }
}

IntestazioneJet LeggiIntestazioneJet(QByteArrayView pagina) {
    IntestazioneJet intestazione;
    intestazione.versione = Versione(pagina);
    if (intestazione.versione == VersioneJet::NonJet || intestazione.versione == VersioneJet::Ace)
        return intestazione;
    const bool jet3 = intestazione.versione == VersioneJet::Jet3;
    QByteArray chiaro = pagina.first(MinimoIntestazione).toByteArray();
    Rc4(QByteArrayView("\xC7\xDA\x39\x6B", 4), chiaro.data() + InizioCifrato, jet3 ? 126 : 128);
    QByteArray campo = chiaro.mid(CampoPassword, jet3 ? 20 : 40);
    if (!jet3)
        TogliMascheraData(chiaro, campo);
    intestazione.password = Testo(intestazione.versione, campo);
    return intestazione;
}

bool PasswordAccettata(const IntestazioneJet& intestazione, const QString& digitata) {
    return intestazione.password.isEmpty() || intestazione.password == digitata;
}
