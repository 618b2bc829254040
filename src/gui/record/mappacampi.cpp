#include "mappacampi.h"

#include "impostazioni.h"
#include "numeri.h"

#include <QHash>

namespace {

// The map is read for every control at every record shown; it changes only through the two
// writers below, so a copy in memory answers without going to the settings store each time.
struct CopiaMappa {
    qint64 generazione = -1;
    QHash<qint32, QHash<QString, qint32>> sezioni;
};

CopiaMappa& Copia() {
    static CopiaMappa copia;
    if (copia.generazione != GenerazioneImpostazioni()) {
        copia.sezioni.clear();
        copia.generazione = GenerazioneImpostazioni();
    }
    return copia;
}

QHash<QString, qint32> LeggiSezione(qint32 idCollezione) {
    const QString sezione = QString::number(idCollezione);
    QHash<QString, qint32> mappa;
    for (const QString& chiave : ChiaviSezione(sezione))
        mappa.insert(chiave, static_cast<qint32>(Val(GetSetting(sezione, chiave))));
    return mappa;
}

} // namespace

void CancellaMappaCampi(qint32 idCollezione) {
    DeleteSetting(QString::number(idCollezione));
    Copia().sezioni.insert(idCollezione, {});
}

void RegistraCampo(qint32 idCollezione, const QString& chiave, qint32 idCampo) {
    SaveSetting(QString::number(idCollezione), chiave, QString::number(idCampo));
    auto& sezioni = Copia().sezioni;
    const auto sezione = sezioni.find(idCollezione);
    if (sezione != sezioni.end())
        sezione->insert(chiave, idCampo);
}

qint32 IdCampo(qint32 idCollezione, const QString& chiave) {
    auto& sezioni = Copia().sezioni;
    auto sezione = sezioni.find(idCollezione);
    if (sezione == sezioni.end())
        sezione = sezioni.insert(idCollezione, LeggiSezione(idCollezione));
    return sezione->value(chiave, 0);
}
