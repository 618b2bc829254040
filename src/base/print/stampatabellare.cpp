#include "stampatabellare.h"

#include "campistampa.h"
#include "posizionestampa.h"
#include "routinesql.h"
#include "superficie.h"

#include <algorithm>

namespace {

constexpr int LarghezzaColonne = 25;

// A value longer than its column is not cut: it pushes the next one to the following tab stop.
void StampaRiga(Superficie& superficie, const QStringList& testi) {
    for (qsizetype k = 0; k < testi.size(); ++k) {
        superficie.Stampa(testi.at(k));
        superficie.Tab(static_cast<int>(k + 1) * LarghezzaColonne, LarghezzaColonne);
    }
    superficie.FineRiga();
}

// Of an image field only the file's name is shown, whichever separator its path uses.
QString ValoreInTabella(const CampoStampa& campo) {
    if (!campo.Immagine())
        return campo.valore;
    const qsizetype barra =
        std::max(campo.valore.lastIndexOf(QLatin1Char('\\')), campo.valore.lastIndexOf(QLatin1Char('/')));
    return campo.valore.mid(barra + 1);
}

// The heading is made of record 1's fields: a field record 1 lacks has no column heading.
void Intestazione(Superficie& superficie, const QList<CampoStampa>& campi) {
    QStringList etichette;
    for (const CampoStampa& campo : campi)
        etichette << campo.Etichetta();
    StampaRiga(superficie, etichette);
    LineaOrizzontale(superficie, 0);
    superficie.FineRiga();
}

} // namespace

qint32 StampaTabellare(Superficie& superficie, qint32 idCollezione, qint32 primo) {
    const qint32 totale = ContaRecord(idCollezione);
    qint32 ultimo = 0;
    for (qint32 i = primo; i <= totale && !superficie.Piena(); ++i) {
        ultimo = i;
        const QList<CampoStampa> campi = CampiDelRecord(idCollezione, i, false);
        if (i == 1)
            Intestazione(superficie, campi);
        QStringList valori;
        for (const CampoStampa& campo : campi)
            valori << ValoreInTabella(campo);
        StampaRiga(superficie, valori);
    }
    if (superficie.EStampante())
        superficie.FineLavoro();
    return ultimo;
}
