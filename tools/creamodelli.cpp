// Writes the templates shipped in the modelli folder: each collection is made in a scratch store with
// the program's own routines and exported with its own template writer.
// Usage: creamodelli OUTPUT_FOLDER
#include "archivio.h"
#include "archiviotemporaneo.h"
#include "routinesql.h"
#include "salvamodello.h"

#include <QCoreApplication>
#include <QDir>
#include <cstdio>

namespace {

struct Campo {
    const char* nome;
    const char* tipo;
    int left, top, width, height;
    const char* etichetta;
    const char* tooltip;
    const char* special = "";
    const char* predefinito = "";
    const char* formula = "";
};

struct Modello {
    const char* file;
    const char* nome;
    const char* descrizione;
    QList<Campo> campi;
};

const QList<Modello> Modelli = {
    {"Film.wzd",
     "Film",
     "La videoteca di casa: titolo, regista, anno, genere e supporto di ogni film, il voto e a chi lo hai "
     "prestato.",
     {
         {"Titolo", "textbox", 20, 30, 300, 22, "Titolo", "Il titolo italiano del film"},
         {"Regista", "textbox", 340, 30, 200, 22, "Regista", "Nome e cognome del regista"},
         {"TitoloOriginale", "textbox", 20, 80, 300, 22, "Titolo originale",
          "Il titolo nella lingua originale"},
         {"Anno", "textbox", 340, 80, 80, 22, "Anno", "L'anno di uscita nelle sale"},
         {"Durata", "textbox", 440, 80, 100, 22, "Durata (min)", "La durata in minuti"},
         {"Genere", "combo", 20, 130, 200, 24, "Genere", "Il genere del film",
          "Animazione|Avventura|Azione|Commedia|Documentario|Drammatico|Fantascienza|Fantasy|Giallo|Horror|"
          "Musical|Romantico|Thriller|Western"},
         {"Supporto", "combo", 240, 130, 140, 24, "Supporto", "Su che cosa lo conservi",
          "DVD|Blu-ray|4K Ultra HD|VHS|Digitale", "DVD"},
         {"Visto", "checkbox", 400, 130, 140, 24, "Già visto", "Spunta se lo hai già visto"},
         {"Voto", "slider", 20, 180, 300, 30, "Voto (da 1 a 10)", "Quanto ti è piaciuto", "1|10"},
         {"PrestatoA", "textbox", 340, 180, 200, 22, "Prestato a", "A chi lo hai prestato, se è fuori casa"},
         {"Attori", "memo", 20, 240, 300, 90, "Attori principali", "Un attore per riga"},
         {"Locandina", "image", 340, 240, 200, 240, "Locandina", "La locandina o la copertina", "TRUE"},
         {"Trama", "memo", 20, 355, 300, 125, "Trama e note", "La trama in breve e le tue note"},
     }},
    {"Libri.wzd",
     "Libri",
     "La biblioteca di casa: romanzi, saggi e fumetti, con autore, editore, genere, formato, dove si trova e "
     "se lo hai già letto.",
     {
         {"Titolo", "textbox", 20, 30, 300, 22, "Titolo", "Il titolo completo del libro"},
         {"Autore", "textbox", 340, 30, 200, 22, "Autore", "Nome e cognome dell'autore"},
         {"Editore", "textbox", 20, 80, 300, 22, "Editore", "La casa editrice"},
         {"Anno", "textbox", 340, 80, 80, 22, "Anno", "L'anno di pubblicazione"},
         {"Pagine", "textbox", 440, 80, 100, 22, "Pagine", "Il numero di pagine"},
         {"Genere", "combo", 20, 130, 200, 24, "Genere", "Il genere del libro",
          "Romanzo|Giallo|Fantascienza|Fantasy|Romanzo storico|Saggio|Biografia|Poesia|Fumetto|Ragazzi|"
          "Cucina|Viaggi"},
         {"ISBN", "textbox", 240, 130, 160, 22, "ISBN", "Il codice ISBN, di 10 o 13 cifre"},
         {"Letto", "checkbox", 420, 130, 120, 24, "Già letto", "Spunta se lo hai già letto"},
         {"Formato", "list", 20, 180, 200, 90, "Formato", "Scegli il formato dell'edizione",
          "Copertina rigida|Brossura|Tascabile|E-book|Audiolibro"},
         {"Voto", "slider", 240, 180, 300, 30, "Voto (da 1 a 5)", "Quanto ti è piaciuto", "1|5"},
         {"Collocazione", "textbox", 240, 245, 300, 22, "Collocazione",
          "In quale stanza e su quale scaffale"},
         {"Trama", "memo", 20, 300, 300, 110, "Trama", "Di che cosa parla, in breve"},
         {"Copertina", "image", 340, 300, 200, 250, "Copertina", "La foto della copertina", "TRUE"},
         {"Note", "memo", 20, 440, 300, 110, "Note", "Dediche, prestiti, condizioni della copia"},
     }},
    {"Monete.wzd",
     "Monete",
     "La collezione numismatica: paese, valore, anno, metallo e misure di ogni moneta, il suo stato di "
     "conservazione, quante ne hai e quanto valgono.",
     {
         {"Paese", "textbox", 20, 30, 200, 22, "Paese di emissione", "Lo Stato che ha emesso la moneta"},
         {"Nominale", "textbox", 240, 30, 140, 22, "Valore nominale", "Il valore facciale, con la valuta"},
         {"Anno", "textbox", 400, 30, 140, 22, "Anno di conio", "L'anno impresso sulla moneta"},
         {"Metallo", "combo", 20, 80, 200, 24, "Metallo", "Il metallo o la lega",
          "Oro|Argento|Rame|Bronzo|Nichel|Acciaio|Bimetallica|Altro"},
         {"Diametro", "textbox", 240, 80, 140, 22, "Diametro (mm)", "Il diametro in millimetri"},
         {"Peso", "textbox", 400, 80, 140, 22, "Peso (g)", "Il peso in grammi"},
         {"Conservazione", "list", 20, 130, 200, 110, "Stato di conservazione", "Il grado di conservazione",
          "FDC - Fior di conio|SPL - Splendido|BB - Bellissimo|MB - Molto bello|B - Bello|D - Discreto"},
         {"Quantità", "textbox", 240, 130, 140, 22, "Quantità", "Quanti esemplari ne hai", "", "1"},
         {"Stima", "textbox", 400, 130, 140, 22, "Valore stimato (€)", "Il valore di un esemplare, in euro"},
         {"Rarità", "slider", 240, 180, 140, 30, "Rarità (da 1 a 5)", "Quanto è difficile da trovare", "1|5"},
         {"Totale", "textbox", 400, 180, 140, 22, "Valore totale (€)", "Quantità per valore stimato", "", "",
          "Quantità * Stima"},
         {"Commemorativa", "checkbox", 240, 230, 300, 24, "Moneta commemorativa",
          "Spunta se è stata coniata per una ricorrenza"},
         {"Dritto", "image", 20, 280, 160, 160, "Dritto", "La foto del dritto", "TRUE"},
         {"Rovescio", "image", 200, 280, 160, 160, "Rovescio", "La foto del rovescio", "TRUE"},
         {"Note", "memo", 380, 280, 160, 160, "Note", "Provenienza, prezzo pagato, particolarità"},
     }},
};

void CreaCampi(qint32 collezione, const QList<Campo>& campi) {
    Recordset rs = Database().ApriRecordset(QStringLiteral("select * from campi where id=0"));
    for (qsizetype i = 0; i < campi.size(); ++i) {
        const Campo& c = campi.at(i);
        rs.NuovoRecord();
        const QList<QPair<const char*, QVariant>> valori = {{"id_collezione", collezione},
                                                            {"nome", QString::fromUtf8(c.nome)},
                                                            {"default", QString::fromUtf8(c.predefinito)},
                                                            {"required", QStringLiteral("False")},
                                                            {"tipo", QString::fromUtf8(c.tipo)},
                                                            {"etichetta", QString::fromUtf8(c.etichetta)},
                                                            {"formula", QString::fromUtf8(c.formula)},
                                                            {"left", c.left},
                                                            {"top", c.top},
                                                            {"width", c.width},
                                                            {"height", c.height},
                                                            {"special", QString::fromUtf8(c.special)},
                                                            {"tooltip", QString::fromUtf8(c.tooltip)},
                                                            {"tabindex", static_cast<int>(i)}};
        for (const auto& [colonna, valore] : valori)
            rs.Imposta(QLatin1String(colonna), valore);
        rs.Salva();
    }
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication applicazione(argc, argv);
    if (argc != 2) {
        std::fputs("usage: creamodelli OUTPUT_FOLDER\n", stderr);
        return 2;
    }
    const QDir uscita(QString::fromLocal8Bit(argv[1]));
    ArchivioTemporaneo archivio;
    for (const Modello& modello : Modelli) {
        const qint32 id =
            CreaCollezione(QString::fromUtf8(modello.nome), QString::fromUtf8(modello.descrizione));
        CreaCampi(id, modello.campi);
        const QString esito = SalvaModello(id, uscita.filePath(QString::fromUtf8(modello.file)));
        if (!esito.isEmpty()) {
            std::fprintf(stderr, "%s: %s\n", modello.file, qPrintable(esito));
            return 1;
        }
    }
    return 0;
}
