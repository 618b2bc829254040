#include "impostazioni.h"

#include "programma.h"

#include <QSettings>
#include <memory>

namespace {

QString& FileScelto() {
    static QString percorso;
    return percorso;
}

std::unique_ptr<QSettings>& Istanza() {
    static std::unique_ptr<QSettings> impostazioni;
    return impostazioni;
}

QSettings& Impostazioni() {
    auto& istanza = Istanza();
    if (!istanza) {
        istanza = FileScelto().isEmpty()
                      ? std::make_unique<QSettings>(Programma::Titolo(), Programma::Titolo())
                      : std::make_unique<QSettings>(FileScelto(), QSettings::IniFormat);
    }
    return *istanza;
}

qint64& Generazione() {
    static qint64 generazione = 0;
    return generazione;
}

QString Chiave(const QString& sezione, const QString& chiave) {
    return sezione + QLatin1Char('/') + chiave;
}

} // namespace

void SaveSetting(const QString& sezione, const QString& chiave, const QString& valore) {
    Impostazioni().setValue(Chiave(sezione, chiave), valore);
}

QString GetSetting(const QString& sezione, const QString& chiave, const QString& predefinito) {
    return Impostazioni().value(Chiave(sezione, chiave), predefinito).toString();
}

void DeleteSetting(const QString& sezione) {
    Impostazioni().remove(sezione);
}

QStringList ChiaviSezione(const QString& sezione) {
    QSettings& impostazioni = Impostazioni();
    impostazioni.beginGroup(sezione);
    const QStringList chiavi = impostazioni.childKeys();
    impostazioni.endGroup();
    return chiavi;
}

qint64 GenerazioneImpostazioni() {
    return Generazione();
}

void UsaFileImpostazioni(const QString& percorso) {
    ++Generazione();
    Istanza().reset();
    FileScelto() = percorso;
}
