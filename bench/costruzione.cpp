#include "costruzione.h"

#include "archivio.h"
#include "costruisciform.h"
#include "cronometro.h"
#include "frmrecord.h"
#include "navigazione.h"
#include "routinesql.h"

#include <QDate>
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

// The rows SalvaNuovoRecord writes, without its record-count query, whose cost grows with the store.
void PerRecordset(const CollezioneBench& collezione, qint32 da, qint32 fino) {
    const QDate oggi = QDate::currentDate();
    Recordset rs = Database().ApriRecordset(QStringLiteral("select * from valori"));
    for (qint32 n = da; n <= fino; ++n) {
        for (int i = 0; i < collezione.idCampi.size(); ++i) {
            rs.NuovoRecord();
            rs.Imposta(QStringLiteral("id_campo"), collezione.idCampi.at(i));
            rs.Imposta(QStringLiteral("valore"), DefinizioniCampi().at(i).valore(n));
            rs.Imposta(QStringLiteral("data_ins"), oggi);
            rs.Imposta(QStringLiteral("data_mod"), oggi);
            rs.Imposta(QStringLiteral("NumeroRecord"), n);
            rs.Salva();
        }
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

Costruzione CostruisciRecord(frmRecord& finestra, const QList<ControlloCampo>& controlli,
                             const CollezioneBench& collezione, qint32 n) {
    Costruzione costruzione;
    costruzione.daSalvaNuovoRecord = std::min(n, LimiteSalvaNuovoRecord);
    costruzione.ns = Cronometra([&] {
        Database().Esegui(QStringLiteral("begin"));
        PerSalvaNuovoRecord(finestra, controlli, collezione.id, costruzione.daSalvaNuovoRecord);
        PerRecordset(collezione, costruzione.daSalvaNuovoRecord + 1, n);
        Database().Esegui(QStringLiteral("commit"));
        // The measurements start from a store whose journal holds nothing left over from the build.
        Database().Esegui(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
    });
    Verifica(collezione, n);
    return costruzione;
}
