#include "opzioniaspetto.h"

#include "impostazioni.h"

namespace {

constexpr qint64 ColoreMassimo = 0xFFFFFF;

} // namespace

QString SezioneOpzioni(qint32 idCollezione) {
    return QStringLiteral("opzioni") + QString::number(idCollezione);
}

qint32 NumeroColore(const QColor& colore) {
    const QColor rgb = colore.toRgb();
    return rgb.red() + 256 * rgb.green() + 65536 * rgb.blue();
}

std::optional<QColor> LeggiColore(qint32 idCollezione, const QString& chiave) {
    bool numero = false;
    const qint64 valore =
        GetSetting(SezioneOpzioni(idCollezione), chiave, QStringLiteral("-1")).trimmed().toLongLong(&numero);
    if (!numero || valore < 0 || valore > ColoreMassimo)
        return std::nullopt;
    return QColor(static_cast<int>(valore & 0xFF), static_cast<int>((valore >> 8) & 0xFF),
                  static_cast<int>((valore >> 16) & 0xFF));
}

void ScriviColore(qint32 idCollezione, const QString& chiave, const QColor& colore) {
    SaveSetting(SezioneOpzioni(idCollezione), chiave, QString::number(NumeroColore(colore)));
}

QString LeggiImmagineSfondo(qint32 idCollezione) {
    return GetSetting(SezioneOpzioni(idCollezione), OpzioniAspetto::ImmagineSfondo);
}

void ScriviImmagineSfondo(qint32 idCollezione, const QString& percorso) {
    SaveSetting(SezioneOpzioni(idCollezione), OpzioniAspetto::ImmagineSfondo, percorso);
}
