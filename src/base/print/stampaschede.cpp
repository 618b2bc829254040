#include "stampaschede.h"

#include "campistampa.h"
#include "posizionestampa.h"
#include "routinesql.h"
#include "superficie.h"

#include <QImage>
#include <QImageReader>
#include <stdexcept>

namespace {

constexpr double MargineCampi = 20;
constexpr int ColonnaValori = 30;

// Nothing guards a picture that cannot be read: the sheet stops and the reason is shown.
QImage CaricaFigura(const QString& percorso) {
    QImageReader lettore(percorso);
    const QImage figura = lettore.read();
    if (figura.isNull())
        throw std::runtime_error(QStringLiteral("Impossibile caricare l'immagine \"%1\": %2")
                                     .arg(percorso, lettore.errorString())
                                     .toLocal8Bit()
                                     .toStdString());
    return figura;
}

// The measured text has a space before "di" that the printed one lacks, so the heading ends one
// space short of the right edge.
void IntestaRecord(Superficie& superficie, qint32 numero, qint32 totale) {
    const QString i = QString::number(numero);
    const QString n = QString::number(totale);
    AllineaADestra(superficie, QStringLiteral("Record ") + i + QStringLiteral(" di ") + n);
    superficie.Stampa(QStringLiteral("Record ") + i + QStringLiteral("di ") + n);
    superficie.FineRiga();
    LineaOrizzontale(superficie, MargineCampi);
}

// The picture moves the print position down by its height in pixels, not in the surface's twips:
// the next line starts inside the picture's area.
void StampaFigura(Superficie& superficie, const QString& percorso) {
    const QImage figura = CaricaFigura(percorso);
    superficie.Dipingi(figura);
    superficie.CurrentY += figura.height();
    superficie.FineRiga();
}

void StampaCampo(Superficie& superficie, const CampoStampa& campo, bool immagini) {
    superficie.CurrentX = MargineCampi;
    superficie.Stampa(campo.Etichetta() + QStringLiteral(":"));
    superficie.Tab(ColonnaValori, ColonnaValori);
    if (campo.Immagine() && !campo.valore.isEmpty() && immagini) {
        StampaFigura(superficie, campo.valore);
        return;
    }
    superficie.Stampa(campo.valore);
    superficie.FineRiga();
}

} // namespace

qint32 StampaSchede(Superficie& superficie, qint32 idCollezione, bool immagini, bool numeriRecord,
                    qint32 primo) {
    const qint32 totale = ContaRecord(idCollezione);
    qint32 ultimo = 0;
    for (qint32 i = primo; i <= totale && !superficie.Piena(); ++i) {
        ultimo = i;
        const QList<CampoStampa> campi = CampiDelRecord(idCollezione, i, true);
        if (numeriRecord)
            IntestaRecord(superficie, i, totale);
        superficie.FineRiga();
        for (const CampoStampa& campo : campi)
            StampaCampo(superficie, campo, immagini);
        if (superficie.EStampante())
            superficie.NuovaPagina();
    }
    if (superficie.EStampante())
        superficie.FineLavoro();
    return ultimo;
}
