#include "costruzione.h"

#include "archivio.h"
#include "costruisciform.h"
#include "cronometro.h"
#include "frmrecord.h"
#include "navigazione.h"
#include "routinesql.h"

#include <stdexcept>

namespace {

void PerSalvaNuovoRecord(frmRecord& finestra, const QList<ControlloCampo>& controlli, qint32 idCollezione,
                         qint32 fino) {
    for (qint32 n = 1; n <= fino; ++n) {
        CompilaForm(controlli, n);
        if (!SalvaNuovoRecord(finestra, idCollezione))
            throw std::runtime_error("SalvaNuovoRecord refused a record while building the store");
    }
}

qint64 Conta(const QString& sql) {
    Recordset rs = Database().ApriRecordset(sql);
    return rs.Campo(0).toLongLong();
}

void Verifica(const CollezioneBench& collezione, qint32 n) {
    const qint64 righe = Conta(QStringLiteral("select count(*) from valori"));
    if (ContaRecord(collezione.id) != n || righe != qint64{n} * collezione.idCampi.size())
        throw std::runtime_error("the built store does not hold one row per field for each record");
}

} // namespace

frmRecord& ApriFinestraRecord(const CollezioneBench& collezione) {
    CostruisciForm(FinestraRecord(), collezione.id);
    frmRecord& finestra = FinestraRecord();
    finestra.CurrTabella = collezione.id;
    finestra.RecordCorrente = 1;
    CaricaRecord(finestra, 1, collezione.id);
    finestra.show();
    return finestra;
}

qint64 CostruisciRecord(frmRecord& finestra, const QList<ControlloCampo>& controlli,
                        const CollezioneBench& collezione, qint32 n) {
    const qint64 ns = Cronometra([&] {
        Database().Esegui(QStringLiteral("begin"));
        PerSalvaNuovoRecord(finestra, controlli, collezione.id, n);
        Database().Esegui(QStringLiteral("commit"));
        // The measurements start from a store whose journal holds nothing left over from the build.
        Database().Esegui(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
    });
    Verifica(collezione, n);
    return ns;
}
