#include "salvamodello.h"

#include "archivio.h"
#include "fileinuso.h"
#include "fileprofilo.h"
#include "formatomodello.h"
#include "numeri.h"

namespace {

// The flag is written as a word, never as a digit; a NULL column as the empty text.
QString TestoColonna(const Recordset& campo, const QString& colonna) {
    const QVariant valore = campo.Campo(colonna);
    if (valore.isNull() || colonna != QLatin1String("required"))
        return valore.toString();
    bool ok = false;
    const bool vero = CBoolTesto(valore.toString(), &ok);
    if (!ok)
        return valore.toString();
    return vero ? QStringLiteral("True") : QStringLiteral("False");
}

QString Scritto(const FileProfilo& profilo, const QString& file, const QString& esito) {
    if (!profilo.Salva())
        return QStringLiteral("Impossibile scrivere il Modello nel file \"") + file + QStringLiteral("\".");
    return esito;
}

} // namespace

QString SalvaModello(qint32 idCollezione, const QString& file) {
    using namespace FormatoModello;
    // Checked before the file is read: a profile file is read whole before it is written.
    if (const QString rifiuto = RifiutoFileInUso(file, UsoFile::Scrittura); !rifiuto.isEmpty())
        return rifiuto;
    const QString id = QString::number(idCollezione);
    Recordset collezione =
        Database().ApriRecordset(QStringLiteral("select * from collezioni where id=") + id);
    if (collezione.Fine())
        return QStringLiteral("Tabella non trovata.");
    FileProfilo profilo(file);
    profilo.Scrivi(Tabella, QStringLiteral("nome"), collezione.Testo(QStringLiteral("nome")));
    profilo.Scrivi(Tabella, QStringLiteral("descrizione"), collezione.Testo(QStringLiteral("descrizione")));
    collezione.Chiudi();
    // No ordering: the fields come in the order they were made.
    Recordset campo =
        Database().ApriRecordset(QStringLiteral("select * from campi where id_collezione=") + id);
    // The file keeps its "tabella" section even so.
    if (campo.Fine())
        return Scritto(profilo, file, QStringLiteral("Campi non trovati."));
    int numero = 0;
    for (; !campo.Fine(); campo.Successivo()) {
        ++numero;
        for (const QString& chiave : ChiaviCampo())
            profilo.Scrivi(Campi, chiave + QString::number(numero), TestoColonna(campo, chiave));
    }
    profilo.Scrivi(Campi, Numero, QString::number(numero));
    return Scritto(profilo, file, QString());
}
