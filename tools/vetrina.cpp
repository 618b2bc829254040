// Grabs the program's windows, on a demonstration collection, into PNG files for a person to look at.
// Usage: vetrina OUTPUT_FOLDER   (QT_QPA_PLATFORM=offscreen works)
#include "aprielenco.h"
#include "aprirecord.h"
#include "apriricerca.h"
#include "archivio.h"
#include "archiviotemporaneo.h"
#include "caricamodello.h"
#include "contenitoreanteprima.h"
#include "form1.h"
#include "formatomodello.h"
#include "frmabout.h"
#include "frmanteprima.h"
#include "frmelenco.h"
#include "frmfind.h"
#include "frmmain.h"
#include "frmmodelli.h"
#include "frmpreview.h"
#include "frmproprietacontrollo.h"
#include "frmrecord.h"
#include "frmsceglicampi.h"
#include "frmtipofiledaimportare.h"
#include "grigliaproprieta.h"
#include "iconaprogramma.h"
#include "listecontrolli.h"
#include "modelloelenco.h"
#include "routinesql.h"
#include "vistaelenco.h"

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QMdiArea>
#include <QRadioButton>
#include <cstdio>

namespace {

struct Campo {
    const char* nome;
    const char* tipo;
    int left, top, width, height;
    const char* etichetta;
    const char* special;
    const char* formula;
};

const Campo CampiDimostrazione[] = {
    {"Titolo", "textbox", 20, 40, 260, 22, "Titolo:", "", ""},
    {"Autore", "textbox", 300, 40, 220, 22, "Autore:", "", ""},
    {"Genere", "combo", 20, 100, 180, 24, "Genere:", "Rock|Jazz|Classica|Pop", ""},
    {"Formato", "list", 220, 100, 120, 70, "Formato:", "LP|CD|Cassetta", ""},
    {"Voto", "slider", 360, 100, 160, 30, "Voto:", "1|10", ""},
    {"Usato", "checkbox", 360, 145, 160, 22, "", "", ""},
    {"Prezzo", "textbox", 20, 160, 90, 22, "Prezzo:", "", ""},
    {"Totale", "textbox", 120, 160, 80, 22, "Con IVA:", "", "Prezzo * 122 / 100"},
    {"Note", "memo", 20, 220, 320, 90, "Note:", "", ""},
    {"Copertina", "image", 360, 220, 160, 90, "Copertina:", "TRUE", ""},
};

void Riempi(qint32 collezione) {
    for (const Campo& c : CampiDimostrazione) {
        Recordset rs = Database().ApriRecordset(QStringLiteral("select * from campi"));
        rs.NuovoRecord();
        const QList<QPair<const char*, QVariant>> valori = {{"id_collezione", collezione},
                                                            {"nome", QLatin1String(c.nome)},
                                                            {"tipo", QLatin1String(c.tipo)},
                                                            {"left", c.left},
                                                            {"top", c.top},
                                                            {"width", c.width},
                                                            {"height", c.height},
                                                            {"etichetta", QLatin1String(c.etichetta)},
                                                            {"special", QLatin1String(c.special)},
                                                            {"formula", QLatin1String(c.formula)},
                                                            {"tabindex", 0}};
        for (const auto& [colonna, valore] : valori)
            rs.Imposta(QLatin1String(colonna), valore);
        rs.Salva();
    }
}

// Records first to last of the demonstration discs.
void AggiungiDischi(qint32 collezione, int primo, int ultimo) {
    const char* const dischi[6][10] = {
        {"Notte di luna", "Quartetto Aurora", "1", "0", "9", "1", "18,50", "", "Prima stampa italiana.", ""},
        {"Strade bianche", "I Girasoli", "0", "1", "8", "0", "22", "", "", ""},
        {"Èra glaciale", "Coro Nevoso", "2", "1", "7", "0", "15", "", "", "/home/anna/copertine/era.jpg"},
        {"Aria di città", "I Girasoli", "3", "0", "6", "1", "12,90", "", "Con autografo.", ""},
        {"Blu cobalto", "Quartetto Aurora", "1", "2", "10", "0", "30", "", "", ""},
        {"Fine estate", "Marta Valli", "0", "0", "5", "1", "9,99", "", "", ""},
    };
    const QList<VoceElenco> campi = ElencoCampi(collezione);
    for (int r = primo - 1; r < ultimo; ++r)
        for (int i = 0; i < campi.size(); ++i)
            Database().Esegui(
                QStringLiteral("insert into valori (id_campo,valore,numerorecord,data_ins,data_mod) "
                               "values (%1,'%2',%3,'%4','%5')")
                    .arg(campi.at(i).id)
                    .arg(Quote(QString::fromUtf8(dischi[r][i])))
                    .arg(r + 1)
                    .arg(QLatin1String(r == 0 ? "2023-11-04" : "2024-02-18"), QLatin1String("2024-05-27")));
}

int Fallite = 0;

void Salva(QWidget& finestra, const QDir& cartella, const char* nome) {
    QApplication::processEvents();
    const QString percorso = cartella.filePath(QLatin1String(nome));
    const bool scritta = finestra.grab().save(percorso);
    Fallite += scritta ? 0 : 1;
    std::printf("%s %s\n", scritta ? "wrote" : "FAILED", qPrintable(percorso));
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2 || qstrcmp(argv[1], "--help") == 0) {
        std::fprintf(stderr, "usage: vetrina OUTPUT_FOLDER\n"
                             "Grabs every window the help guide shows into OUTPUT_FOLDER as PNG files;\n"
                             "the guide's own pictures are made with: vetrina guida/img\n"
                             "Set QT_SCALE_FACTOR=2 for pictures at double density.\n");
        return 2;
    }
    // Pictures need no screen: without a display the windows are drawn offscreen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && qEnvironmentVariableIsEmpty("DISPLAY") &&
        qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication applicazione(argc, argv);
    QApplication::setWindowIcon(IconaProgramma());
    // The demonstration values are written the Italian way.
    QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
    const QDir uscita(QString::fromLocal8Bit(argv[1]));
    if (!uscita.exists()) {
        std::fprintf(stderr, "vetrina: no folder %s\n", argv[1]);
        return 1;
    }
    const ArchivioTemporaneo archivio;
    const qint32 dischi = CreaCollezione(QStringLiteral("Dischi"), QStringLiteral("I miei vinili"));
    Riempi(dischi);
    AggiungiDischi(dischi, 1, 2);
    CreaCollezione(QStringLiteral("Francobolli"), QString());

    frmMAIN frame;
    Form1& form = *IstanzaForm1();
    CaricaCollezioniInLista(*form.List1);
    frame.show();
    form.List1->setCurrentRow(0);
    form.List2->setCurrentRow(2);
    Salva(frame, uscita, "collezioni.png");

    FrmScegliCampi scelta;
    scelta.show();
    scelta.Option4->click();
    Salva(scelta, uscita, "scegli-tipo.png");

    QStringList nomi;
    for (int i = 0; i < form.List2->count(); ++i)
        nomi << form.List2->item(i)->text();
    frmProprietaControllo proprieta(QStringLiteral("textbox"), nomi);
    proprieta.show();
    Salva(proprieta, uscita, "proprieta.png");

    // Where child windows open by themselves, then tiled as the guide shows them.
    InserisciRecord(*form.List1);
    Salva(frame, uscita, "record-apertura.png");
    frame.AreaFigli()->tileSubWindows();
    Salva(frame, uscita, "record.png");
    FinestraRecord().Toolbar1_ButtonClick(QStringLiteral("edit"));
    Salva(frame, uscita, "record-modifica.png");
    FinestraRecord().Toolbar1_ButtonClick(QStringLiteral("no"));

    form.mnuEseguiRicerca->trigger();
    FinestraRicerca()->Text1->setText(QStringLiteral("o"));
    FinestraRicerca()->cmdGO_Click();
    Salva(*FinestraRicerca(), uscita, "ricerca.png");
    Salva(frame, uscita, "ricerca-apertura.png");
    frame.AreaFigli()->tileSubWindows();
    Salva(frame, uscita, "ricerca-frame.png");

    // The layout designer with three controls selected, one of them the picture.
    ContenitoreAnteprima anteprima;
    anteprima.Costruisci(form.IdCollezioneCorrente());
    anteprima.show();
    frmAnteprima& disegno = anteprima.Anteprima();
    for (const char* chiave : {"Text1(1)", "List1(1)", "Image1(1)"})
        disegno.SelezionaControllo(*disegno.Controllo(QLatin1String(chiave)));
    Salva(anteprima, uscita, "anteprima.png");

    // The gallery on the shipped templates, one of them clicked, and the record window each one gives.
    QDir().mkpath(CartellaModelli());
    const QDir spediti(QStringLiteral(ORVIX_MODELLI_SPEDITI));
    for (const QString& file : spediti.entryList({QStringLiteral("*.wzd")}, QDir::Files))
        QFile::copy(spediti.filePath(file), CartellaModelli() + QDir::separator() + file);
    frmModelli& galleria = CaricaFrmModelli(&frame);
    galleria.show();
    Salva(galleria, uscita, "galleria-suggerimento.png");
    galleria.Lv1->setCurrentRow(2);
    Salva(galleria, uscita, "galleria.png");
    galleria.hide();
    for (int i = 0; i < galleria.Lv1->count(); ++i) {
        const std::optional<VoceElenco> creata =
            CaricaModello(galleria.Lv1->item(i)->data(Qt::UserRole).toString());
        ApriRecord(creata->id, 1);
        FinestraRecord().Toolbar1_ButtonClick(QStringLiteral("new"));
        Salva(FinestraRecord(), uscita,
              qPrintable(QStringLiteral("modello-") + creata->nome.toLower() + QStringLiteral(".png")));
        FinestraRecord().Toolbar1_ButtonClick(QStringLiteral("no"));
    }

    // The print preview of the records, one sheet per record and then as a table.
    frmPreview stampa(&frame);
    stampa.IdCollezione = form.IdCollezioneCorrente();
    stampa.show();
    stampa.Ridisegna();
    Salva(stampa, uscita, "stampa-schede.png");
    stampa.Tabulare->click();
    Salva(stampa, uscita, "stampa-tabella.png");
    stampa.hide();

    frmTipoFileDaImportare importa(&frame);
    importa.show();
    Salva(importa, uscita, "importa.png");
    importa.hide();

    frmAbout informazioni(&frame);
    informazioni.show();
    Salva(informazioni, uscita, "about.png");
    informazioni.hide();

    // The list of records, last: the other pictures show the first two discs only.
    AggiungiDischi(dischi, 3, 6);
    ApriRecord(dischi, 1);
    FinestraRecord().mnuElenco->trigger();
    frmElenco& elenco = *FinestraElenco(dischi);
    elenco.parentWidget()->resize(900, 300);
    elenco.Intestazione_Click(1);
    elenco.lvElenco->setCurrentIndex(elenco.Modello().index(2, 0));
    Salva(elenco, uscita, "elenco.png");
    return Fallite == 0 ? 0 : 1;
}
