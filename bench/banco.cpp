#include "banco.h"

#include "apriricerca.h"
#include "archiviotemporaneo.h"
#include "costruzione.h"
#include "frmrecord.h"
#include "macchina.h"
#include "operazioni.h"
#include "pavimento.h"
#include "rapporto.h"
#include "routinesql.h"

#include <QTextStream>

namespace {

void Avanza(const QString& testo) {
    QTextStream err(stderr);
    err << testo << Qt::endl;
}

void MisuraOperazioni(Banco& banco, const Opzioni& opzioni, MisureDimensione& misure) {
    for (const Operazione& operazione : Operazioni(banco)) {
        misure.risultati << Misura(operazione, opzioni);
        Avanza(QStringLiteral("  %1: %2, floor %3")
                   .arg(operazione.nome, FormatoTempo(misure.risultati.last().figuraNs),
                        FormatoTempo(misure.risultati.last().pavimentoNs)));
        operazione.prima();
        misure.profili << Profila(operazione.nome, banco.record, operazione.figura);
        operazione.dopo();
    }
}

} // namespace

MisureDimensione MisuraDimensione(qint32 record, const Opzioni& opzioni) {
    ArchivioTemporaneo archivio;
    Avanza(QStringLiteral("%1 records: building the store in %2").arg(record).arg(archivio.Cartella()));
    MisureDimensione misure;
    misure.record = record;
    const CollezioneBench collezione = CreaCollezioneBench();
    frmRecord& finestra = ApriFinestraRecord(collezione);
    const QList<ControlloCampo> controlli = ControlliDelForm(finestra, collezione);
    misure.costruzioneNs = CostruisciRecord(finestra, controlli, collezione, record);
    Avanza(QStringLiteral("  built in %1").arg(FormatoTempo(misure.costruzioneNs)));
    Pavimento pavimento(collezione);
    ApriRicerca(collezione.id);
    Banco banco{finestra, *FinestraRicerca(), controlli, collezione, pavimento, record};
    MisuraOperazioni(banco, opzioni, misure);
    misure.residenteKiB = MemoriaResidenteKiB();
    misure.pianoMassimo = PianoQuery(SqlMassimoRecord(collezione.id), collezione.id);
    misure.pianoMassimoPavimento = PianoQuery(SqlMassimoPavimento(), collezione.id);
    return misure;
}
