#include "importaarchivio.h"

#include "archiviojet.h"
#include "avanzamento.h"
#include "confrontotesto.h"
#include "routinesql.h"
#include "scritturacollezione.h"

#include <mdbtools.h>

namespace {

QString Generi(const QString& tabella) {
    const QString nome = tabella.toLower();
    if (nome == QLatin1String("film"))
        return QStringLiteral("Thriller|Commedia|Sentimentale|Drammatico|Storico|Avventura|Sexy|Horror");
    if (nome == QLatin1String("canzoni"))
        return QStringLiteral("Pop|Rock|Dance|Classica|Blues|Rap|R&B|Altro");
    return QStringLiteral("Sparatutto|Simulazione|Arcade|Avventura|Strategico|Sport|Altro");
}

bool Testuale(int tipo) {
    return tipo == MDB_TEXT || tipo == MDB_DATETIME || tipo == MDB_MEMO;
}

bool Esiste(const QList<VoceElenco>& collezioni, const QString& nome) {
    for (const VoceElenco& voce : collezioni)
        if (TestiUguali(voce.nome, nome))
            return true;
    return false;
}

} // namespace

// The first rule that fits wins, in this order.
CampoImportato CampoDaColonna(const ColonnaJet& colonna, int k, const QString& tabella) {
    CampoImportato campo{colonna.nome,
                         colonna.nome,
                         QStringLiteral("textbox"),
                         QString(),
                         colonna.required ? QStringLiteral("true") : QStringLiteral("false"),
                         k};
    const QString nome = colonna.nome.toLower();
    if (nome == QLatin1String("immagine")) {
        campo.tipo = QStringLiteral("image");
        campo.special = QStringLiteral("true");
    } else if (colonna.tipo == MDB_BOOL) {
        campo.tipo = QStringLiteral("checkbox");
    } else if (nome == QLatin1String("giudizio")) {
        campo.tipo = QStringLiteral("slider");
        campo.special = QStringLiteral("1|10");
    } else if (nome == QLatin1String("genere")) {
        campo.tipo = QStringLiteral("list");
        campo.special = Generi(tabella);
    } else if (Testuale(colonna.tipo) && (nome == QLatin1String("note") || nome == QLatin1String("trama") ||
                                          nome == QLatin1String("riassunto"))) {
        campo.tipo = QStringLiteral("memo");
    }
    return campo;
}

QString NomeLibero(const QString& tabella) {
    const QList<VoceElenco> collezioni = ElencoCollezioni();
    int contatore = 0;
    while (Esiste(collezioni, contatore == 0 ? tabella : tabella + QString::number(contatore)))
        ++contatore;
    return contatore == 0 ? tabella : tabella + QString::number(contatore);
}

EsitoImportazione ImportaTabellaJet(ArchivioJet& archivio, const QString& tabella, Avanzamento& avanzamento,
                                    Importatore& importatore) {
    const std::unique_ptr<TabellaJet> sorgente = archivio.ApriTabella(tabella);
    const QString nome = NomeLibero(tabella);
    avanzamento.Stato(QStringLiteral("Sto Creando la collezione..."));
    const qint32 id = CreaCollezione(nome, tabella + QStringLiteral(" Importati da Tarvino"));
    if (id < 1) {
        avanzamento.Stato(QStringLiteral("Impossibile Creare la Collezione"));
        return EsitoImportazione::CollezioneNonCreata;
    }
    importatore.CollezioneCreata(id, nome);
    QList<CampoImportato> campi;
    for (int k = 0; k < sorgente->Colonne().size(); ++k)
        campi << CampoDaColonna(sorgente->Colonne().at(k), k, tabella);
    ScritturaCollezione scrittura(id, true, avanzamento);
    scrittura.AggiungiCampi(campi);
    QStringList valori;
    while (!avanzamento.Interrotta() && sorgente->ProssimaRiga(valori))
        scrittura.AggiungiRecord(valori);
    scrittura.Concludi();
    return EsitoImportazione::Completata;
}
