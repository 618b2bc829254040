#include "caricamodello.h"

#include "archivio.h"
#include "fileprofilo.h"
#include "formatomodello.h"
#include "numeri.h"
#include "transazione.h"

#include <stdexcept>

namespace {

[[noreturn]] void Rifiuta(const QString& motivo) {
    throw std::runtime_error(motivo.toLocal8Bit().toStdString());
}

// The leading number of the text, rounded half to even to a whole number: 12,5 reads 12, 12.5 reads
// 12, True reads 0. The store's typed columns then take it or refuse it whole.
qint32 Intero(const QString& testo) {
    return CLng(Val(testo));
}

qint32 QuantiCampi(const QString& testo) {
    const qint32 numero = Intero(testo);
    if (numero < -32768 || numero > 32767)
        Rifiuta(QStringLiteral("Il numero dei campi del Modello (") + testo +
                QStringLiteral(") è fuori dall'intervallo ammesso."));
    return numero;
}

bool Esiste(const QString& nome) {
    // Spliced as written, quotes not doubled, as the collection-creation routine does with the same name.
    return !Database()
                .ApriRecordset(QStringLiteral("select id from collezioni where nome='") + nome +
                               QStringLiteral("'"))
                .Fine();
}

QString NomeUnico(const QString& nome) {
    Recordset conta = Database().ApriRecordset(QStringLiteral("select count(*) from collezioni"));
    const qint64 collezioni = conta.Campo(0).toLongLong();
    conta.Chiudi();
    qint64 numero = 0;
    while (Esiste(numero == 0 ? nome : nome + QString::number(numero))) {
        // More matches than collections: the name's quotes turned the search into another condition.
        if (++numero > collezioni)
            Rifiuta(QStringLiteral("Il nome della collezione del Modello non è valido: ") + nome);
    }
    return numero == 0 ? nome : nome + QString::number(numero);
}

void CreaCampi(const FileProfilo& modello, qint32 idCollezione) {
    using namespace FormatoModello;
    const qint32 numero = QuantiCampi(modello.Leggi(Campi, Numero));
    Recordset campo = Database().ApriRecordset(QStringLiteral("select * from campi where id=0"));
    for (qint32 i = 1; i <= numero; ++i) {
        campo.NuovoRecord();
        campo.Imposta(QStringLiteral("id_collezione"), idCollezione);
        for (const QString& chiave : ChiaviCampo()) {
            const QString testo = modello.Leggi(Campi, chiave + QString::number(i));
            campo.Imposta(chiave, ChiaveNumerica(chiave) ? QVariant(Intero(testo)) : QVariant(testo));
        }
        campo.Salva();
    }
    campo.Chiudi();
}

} // namespace

std::optional<VoceElenco> CaricaModello(const QString& file) {
    using namespace FormatoModello;
    const FileProfilo modello(file);
    Transazione transazione(Database());
    const QString nome = NomeUnico(modello.Leggi(Tabella, QStringLiteral("nome")));
    const qint32 id = CreaCollezione(nome, modello.Leggi(Tabella, QStringLiteral("descrizione")));
    if (id < 1)
        return std::nullopt;
    CreaCampi(modello, id);
    transazione.Conferma();
    return VoceElenco{id, nome};
}
