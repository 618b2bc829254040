#include "caricamodello.h"

#include "archivio.h"
#include "erroredatabase.h"
#include "fileprofilo.h"
#include "formatomodello.h"
#include "numeri.h"
#include "transazione.h"

#include <QFileInfo>
#include <limits>
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

// A number too large even for 32 bits is as much out of range as one too large for 16.
std::optional<qint32> InteroAmmesso(const QString& testo, qint32 minimo, qint32 massimo) {
    try {
        const qint32 numero = Intero(testo);
        if (numero >= minimo && numero <= massimo)
            return numero;
    } catch (const std::overflow_error&) {
    }
    return std::nullopt;
}

qint32 QuantiCampi(const QString& testo) {
    const std::optional<qint32> numero = InteroAmmesso(testo, -32768, 32767);
    if (!numero)
        Rifiuta(QStringLiteral("Il numero dei campi del Modello (") + testo +
                QStringLiteral(") è fuori dall'intervallo ammesso."));
    return *numero;
}

// The store's checks name the column and the rule; the key and its text are added where the number
// did not even reach the store.
QVariant ValoreCampo(const QString& chiave, const QString& testo) {
    if (!FormatoModello::ChiaveNumerica(chiave))
        return testo;
    const std::optional<qint32> numero =
        InteroAmmesso(testo, std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max());
    if (!numero)
        throw std::range_error(
            (chiave + QStringLiteral(" (") + testo + QStringLiteral(") è fuori dall'intervallo ammesso"))
                .toLocal8Bit()
                .toStdString());
    return *numero;
}

void CreaCampo(Recordset& campo, const FileProfilo& modello, qint32 idCollezione, qint32 i) {
    campo.NuovoRecord();
    campo.Imposta(QStringLiteral("id_collezione"), idCollezione);
    for (const QString& chiave : FormatoModello::ChiaviCampo())
        campo.Imposta(chiave,
                      ValoreCampo(chiave, modello.Leggi(FormatoModello::Campi, chiave + QString::number(i))));
    campo.Salva();
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

// A refused field names the template and the field, so the user knows what to correct in the file.
void CreaCampi(const QString& file, const FileProfilo& modello, qint32 idCollezione) {
    using namespace FormatoModello;
    const qint32 numero = QuantiCampi(modello.Leggi(Campi, Numero));
    Recordset campo = Database().ApriRecordset(QStringLiteral("select * from campi where id=0"));
    for (qint32 i = 1; i <= numero; ++i) {
        QString motivo;
        try {
            CreaCampo(campo, modello, idCollezione, i);
            continue;
        } catch (const ErroreDatabase& errore) {
            motivo = errore.messaggio();
        } catch (const std::range_error& errore) {
            motivo = QString::fromLocal8Bit(errore.what());
        }
        motivo.remove(QStringLiteral("CHECK constraint failed: "));
        Rifiuta(QStringLiteral("Il Modello \"") + QFileInfo(file).fileName() +
                QStringLiteral("\" non è valido: il campo ") + QString::number(i) + QStringLiteral(" (\"") +
                modello.Leggi(Campi, QStringLiteral("nome") + QString::number(i)) +
                QStringLiteral("\") ha un valore non ammesso: ") + motivo + QStringLiteral("."));
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
    CreaCampi(file, modello, id);
    transazione.Conferma();
    return VoceElenco{id, nome};
}
