#include "importatesto.h"

#include "avanzamento.h"
#include "filetesto.h"
#include "routinesql.h"
#include "scritturacollezione.h"

namespace {

QList<CampoImportato> CampiDiTesto(const QStringList& nomi) {
    QList<CampoImportato> campi;
    for (int k = 0; k < nomi.size(); ++k)
        campi.append(
            {nomi.at(k), nomi.at(k), QStringLiteral("textbox"), QString(), QStringLiteral("false"), k});
    return campi;
}

} // namespace

EsitoImportazione ImportaFileTesto(const QString& file, const QString& separatore, const QString& nome,
                                   const QString& descrizione, Avanzamento& avanzamento,
                                   Importatore& importatore) {
    avanzamento.Stato(QStringLiteral("Sto Creando la collezione..."));
    const qint32 id = CreaCollezione(nome, descrizione);
    if (id < 1) {
        avanzamento.Stato(QStringLiteral("Impossibile Creare la Collezione"));
        return EsitoImportazione::CollezioneNonCreata;
    }
    importatore.CollezioneCreata(id, nome);
    FileTesto testo(file);
    const QStringList nomi = testo.ProssimaRiga().split(separatore);
    if (nomi.size() < 2)
        return EsitoImportazione::FormatoNonValido;
    ScritturaCollezione scrittura(id, false, avanzamento);
    scrittura.AggiungiCampi(CampiDiTesto(nomi));
    while (!testo.Fine() && !avanzamento.Interrotta()) {
        const QStringList pezzi = testo.ProssimaRiga().split(separatore);
        if (pezzi.size() >= nomi.size())
            scrittura.AggiungiRecord(pezzi);
    }
    scrittura.Concludi();
    return EsitoImportazione::Completata;
}
