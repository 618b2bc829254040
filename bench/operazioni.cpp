#include "operazioni.h"

#include "archivio.h"
#include "archiviojet.h"
#include "archiviojetprova.h"
#include "avanzamento.h"
#include "casellafigura.h"
#include "colonneelenco.h"
#include "comandicampi.h"
#include "comandostampa.h"
#include "costruisciform.h"
#include "esportatesto.h"
#include "form1.h"
#include "frmanteprima.h"
#include "frmelenco.h"
#include "frmfind.h"
#include "frmpreview.h"
#include "frmrecord.h"
#include "importaarchivio.h"
#include "importatesto.h"
#include "listecontrolli.h"
#include "mappacampi.h"
#include "modelloelenco.h"
#include "navigazione.h"
#include "pavimento.h"
#include "rispostasi.h"
#include "risultatiricerca.h"
#include "routinesql.h"
#include "vistaelenco.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QTemporaryDir>
#include <cmath>
#include <functional>
#include <memory>
#include <stdexcept>

namespace {

void Richiedi(bool condizione, const char* cosa) {
    if (!condizione)
        throw std::runtime_error(std::string("the bench saw a wrong result: ") + cosa);
}

qint32 Mezzo(const Banco& b) {
    return (b.record + 1) / 2;
}

void CaricaPavimento(Banco& b, qint32 n) {
    Richiedi(b.pavimento.Carica(n) == b.collezione.idCampi.size(), "the floor did not read a whole record");
}

Operazione Inserimento(Banco& b) {
    return {QStringLiteral("insert a record (SalvaNuovoRecord)"),
            [&b] { Richiedi(SalvaNuovoRecord(b.finestra, b.collezione.id), "SalvaNuovoRecord failed"); },
            [&b] { b.pavimento.Inserisci(b.pavimento.Massimo() + 1); },
            [&b] {
                CompilaForm(b.controlli, b.record + 1);
                b.pavimento.PreparaValori(b.record + 1);
            },
            [&b] {
                Richiedi(b.pavimento.Massimo() == b.record + 1, "an insert did not add one record");
                b.pavimento.TogliOltre(b.record);
            }};
}

Operazione Caricamento(Banco& b, const QString& quale, qint32 n) {
    Operazione o{QStringLiteral("load the %1 record (CaricaRecord)").arg(quale),
                 [&b, n] { CaricaRecord(b.finestra, n, b.collezione.id); },
                 [&b, n] { CaricaPavimento(b, n); }};
    o.scala = 1.5;
    return o;
}

// A record the window has not shown; with the page cache emptied first, as on a store just opened,
// nothing of the file is decrypted in memory yet.
Operazione Sfoglia(Banco& b, const QString& nome, bool cacheVuota) {
    auto n = std::make_shared<qint32>();
    Operazione o{nome, [&b, n] { CaricaRecord(b.finestra, *n, b.collezione.id); },
                 [&b, n] { CaricaPavimento(b, *n); },
                 [&b, n, cacheVuota] {
                     *n = RecordNonCaricato(b);
                     if (cacheVuota)
                         b.pavimento.SvuotaCache();
                 }};
    o.scala = 1.5;
    return o;
}

Operazione Successivo(Banco& b) {
    auto da = std::make_shared<qint32>();
    return {QStringLiteral("\"next\" to a record not loaded before"),
            [&b, da] {
                b.finestra.Toolbar1_ButtonClick(QStringLiteral("next"));
                Richiedi(b.finestra.RecordCorrente == *da + 1, "\"next\" did not move on by one");
            },
            [&b, da] {
                Richiedi(b.pavimento.Massimo() > *da, "the floor found no next record");
                CaricaPavimento(b, *da + 1);
            },
            [&b, da] {
                *da = RecordNonCaricato(b);
                b.finestra.RecordCorrente = *da;
            }};
}

Operazione Ultimo(Banco& b) {
    return {QStringLiteral("\"last\""),
            [&b] {
                b.finestra.Toolbar1_ButtonClick(QStringLiteral("last"));
                Richiedi(b.finestra.RecordCorrente == b.record, "\"last\" did not reach the last record");
            },
            [&b] { CaricaPavimento(b, b.pavimento.Massimo()); }};
}

Operazione Eliminazione(Banco& b) {
    return {QStringLiteral("\"del\" the middle record, renumbering"),
            [&b] { b.finestra.Toolbar1_ButtonClick(QStringLiteral("del")); },
            [&b] {
                b.pavimento.Elimina(Mezzo(b));
                CaricaPavimento(b, Mezzo(b));
            },
            [&b] { b.finestra.RecordCorrente = Mezzo(b); },
            [&b] {
                Richiedi(b.pavimento.Massimo() == b.record - 1, "a delete did not remove one record");
                b.pavimento.PreparaValori(b.record);
                b.pavimento.Inserisci(b.record);
            }};
}

Operazione Conteggio(Banco& b) {
    return {QStringLiteral("record count (ContaRecord)"),
            [&b] { Richiedi(ContaRecord(b.collezione.id) == b.record, "ContaRecord miscounted"); },
            [&b] { Richiedi(b.pavimento.Massimo() == b.record, "the floor miscounted"); }};
}

// "VAI" on the titles; the figure includes the list being laid out and drawn, the freeze a person sees.
Operazione Ricerca(Banco& b, const QString& nome, const QString& testo, bool esatta, double obiettivo) {
    const QString campo = DefinizioniCampi().at(0).nome;
    auto righe = std::make_shared<int>(-1);
    Operazione o{nome,
                 [&b, righe] {
                     b.ricerca.cmdGO_Click();
                     QCoreApplication::processEvents();
                     Richiedi(*righe < 0 || b.ricerca.Risultati().rowCount() == *righe,
                              "the search window listed another number of hits than the floor read");
                 },
                 [&b, righe, campo, testo, esatta] {
                     *righe = b.pavimento.Cerca(campo, testo, esatta);
                     Richiedi(*righe > 0, "the floor's search found nothing");
                 },
                 [&b, campo, testo, esatta] {
                     b.ricerca.Combo1->setCurrentText(campo);
                     b.ricerca.Text1->setText(testo);
                     b.ricerca.Esatta->setChecked(esatta);
                 }};
    o.obiettivo = obiettivo;
    return o;
}

// The list of records, about this many rows high: one screen.
constexpr int RigheSchermo = 30;

std::unique_ptr<frmElenco> NuovoElenco(const Banco& b) {
    auto elenco = std::make_unique<frmElenco>(b.collezione.id);
    elenco->setAttribute(Qt::WA_DeleteOnClose, false);
    const QHeaderView* intestazione = elenco->lvElenco->header();
    elenco->resize(900, intestazione->sizeHint().height() +
                            (RigheSchermo + 3) * elenco->lvElenco->fontMetrics().height() +
                            elenco->txtFiltro->sizeHint().height() + elenco->lblStato->sizeHint().height() +
                            24);
    elenco->show();
    return elenco;
}

// Drawn at once, so that the rows on screen are read from the store now.
void Disegna(frmElenco& elenco) {
    elenco.lvElenco->viewport()->update();
    QCoreApplication::processEvents();
}

Operazione AperturaElenco(Banco& b) {
    Operazione o{QStringLiteral("list of records: open, first screen drawn (frmElenco)"),
                 [&b] {
                     const std::unique_ptr<frmElenco> elenco = NuovoElenco(b);
                     Disegna(*elenco);
                     Richiedi(elenco->Modello().rowCount() == b.record,
                              "the list counted another number of records");
                 },
                 [&b] {
                     b.pavimento.Massimo();
                     b.pavimento.Schermata(1, RigheSchermo);
                 }};
    o.scala = 2.0;
    o.obiettivo = 0; // the window's own making dominates, as in the print preview
    return o;
}

// A fresh list each time, so that the rows scrolled to have never been read by it.
Operazione ScorrimentoElenco(Banco& b) {
    auto elenco = std::make_shared<std::unique_ptr<frmElenco>>();
    auto riga = std::make_shared<int>();
    Operazione o{QStringLiteral("list of records: one screen of scrolling, to rows not shown before"),
                 [elenco, riga] {
                     VistaElenco& vista = *(*elenco)->lvElenco;
                     vista.scrollTo(vista.model()->index(*riga, 0), QAbstractItemView::PositionAtTop);
                     Disegna(**elenco);
                     Richiedi(vista.indexAt(QPoint(2, 2)).row() == *riga, "the list did not scroll");
                 },
                 [&b, riga] { b.pavimento.Schermata(*riga + 1, RigheSchermo); },
                 [&b, elenco, riga] {
                     *elenco = NuovoElenco(b);
                     Disegna(**elenco);
                     *riga = qMax(0, RecordNonCaricato(b) - RigheSchermo);
                 },
                 [elenco] { elenco->reset(); }};
    o.obiettivo = 0; // drawing the window dominates; the target is a frame's time, under 16 ms
    return o;
}

Operazione OrdinamentoElenco(Banco& b) {
    auto elenco = std::make_shared<std::unique_ptr<frmElenco>>();
    const qint32 titoli = b.collezione.idCampi.at(0);
    return {QStringLiteral("list of records: sort by the titles (text)"),
            [&b, elenco, titoli] {
                ModelloElenco& modello = (*elenco)->Modello();
                modello.Ordina(modello.ColonnaDelCampo(titoli), Qt::AscendingOrder);
                Richiedi(modello.rowCount() == b.record, "the sorted list lost records");
            },
            [&b, titoli] {
                Richiedi(b.pavimento.OrdinaTesto(titoli) == b.record, "the floor's sort lost records");
            },
            [&b, elenco] {
                if (!*elenco)
                    *elenco = NuovoElenco(b);
                (*elenco)->Modello().Ordina(0, Qt::AscendingOrder);
            }};
}

// Every step of the filter runs as the event loop would run it; the floor is the same search in
// one statement over the same fields.
Operazione FiltroElencoBench(Banco& b) {
    auto elenco = std::make_shared<std::unique_ptr<frmElenco>>();
    auto trovati = std::make_shared<int>(-1);
    const QString testo = QStringLiteral("libro 4");
    QList<qint32> campi;
    for (const ColonnaElenco& colonna : ColonneElenco(b.collezione.id))
        if (colonna.formula.isEmpty() &&
            (colonna.tipo == QLatin1String("textbox") || colonna.tipo == QLatin1String("memo") ||
             colonna.tipo == QLatin1String("slider")))
            campi.append(colonna.id);
    Operazione o{QStringLiteral("list of records: filter \"libro 4\" (floor: LIKE over the same fields)"),
                 [elenco, trovati, testo] {
                     ModelloElenco& modello = (*elenco)->Modello();
                     modello.Filtra(testo);
                     while (modello.FiltroInCorso())
                         QCoreApplication::processEvents();
                     Richiedi(*trovati < 0 || modello.rowCount() == *trovati,
                              "the filter kept another number of records than the floor found");
                 },
                 [&b, trovati, campi, testo] { *trovati = b.pavimento.CercaOvunque(campi, testo); },
                 [&b, elenco] {
                     if (!*elenco)
                         *elenco = NuovoElenco(b);
                     (*elenco)->Modello().Filtra(QString());
                 }};
    o.obiettivo = 1.5;
    return o;
}

// The designer on a 30-field form saves a layout it has not changed: the same rows each time.
Operazione Disposizione(Banco& b) {
    struct Stato {
        frmAnteprima anteprima;
        QList<QPair<qint32, QRect>> campi;
    };
    auto stato = std::make_shared<Stato>();
    const qint32 id = CreaCollezioneDisposizione(30).id;
    CostruisciForm(stato->anteprima, id);
    stato->anteprima.IdCollezione = id;
    for (const QWidget* controllo : stato->anteprima.ControlliCampo())
        stato->campi.append({IdCampo(id, ChiaveControllo(*controllo)), controllo->geometry()});
    Richiedi(stato->campi.size() == 30 && !stato->campi.contains({0, {}}),
             "the 30-field form was not mapped");
    Operazione o{QStringLiteral("save a 30-field layout (SalvaDisposizione)"),
                 [stato] { stato->anteprima.SalvaDisposizione(); },
                 [&b, stato, id] { b.pavimento.SalvaDisposizione(id, stato->campi); }};
    o.obiettivo = 1.5;
    return o;
}

QByteArray Contenuto(const QString& percorso) {
    QFile file(percorso);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The whole collection written to a text file, beside the floor's file of the same bytes.
Operazione Esportazione(Banco& b) {
    const QString figura = QDir(AppPath()).filePath(QStringLiteral("esportato.txt"));
    const QString pavimento = QDir(AppPath()).filePath(QStringLiteral("pavimento.txt"));
    Operazione o{QStringLiteral("export the collection as text (EsportaTesto)"),
                 [&b, figura] { EsportaTesto(b.collezione.id, figura); },
                 [&b, pavimento] {
                     Richiedi(b.pavimento.Esporta(pavimento) == b.record * DefinizioniCampi().size(),
                              "the floor did not read every value");
                 },
                 [] {},
                 [figura, pavimento] {
                     if (QFile::exists(figura) && QFile::exists(pavimento))
                         Richiedi(Contenuto(figura) == Contenuto(pavimento),
                                  "the export and its floor wrote different files");
                 }};
    o.perRecord = true;
    o.scala = 1.5;
    o.obiettivo = 1.5;
    return o;
}

// "Stampa..." up to the preview's first screen painted. Its floor reads the records that screen shows:
// each sheet is 12 lines (the number, a blank line, ten fields), as many as the box's height holds.
Operazione AnteprimaStampa(Banco& b) {
    const frmPreview misura;
    const double riga = misura.Pic1->AltezzaRiga();
    const auto schede = static_cast<qint32>(std::ceil(misura.Pic1->Area().height() / (12 * riga)));
    Operazione o{QStringLiteral("print preview, first screen (\"Stampa...\")"),
                 [&b] { ApriStampa(b.collezione.id, nullptr); },
                 [&b, schede] {
                     Richiedi(b.pavimento.Massimo() == b.record, "the floor miscounted");
                     Richiedi(b.pavimento.Schede(schede) == schede * b.collezione.idCampi.size(),
                              "the floor did not read whole sheets");
                 }};
    o.scala = 2.0;
    o.obiettivo = 0;
    return o;
}

// The open preview moved one screen on from `partenza` records (a page of Sfoglia), or to the last
// record: what it draws there and paints. The floor reads the records that screen shows.
Operazione ScorriAnteprima(Banco& b, const QString& nome, std::function<qint32()> partenza,
                           QAbstractSlider::SliderAction azione) {
    auto anteprima = std::make_shared<frmPreview>();
    anteprima->IdCollezione = b.collezione.id;
    anteprima->show();
    const double riga = anteprima->Pic1->AltezzaRiga();
    const auto schede = static_cast<qint32>(std::ceil(anteprima->Pic1->Area().height() / (12 * riga)));
    Operazione o{nome,
                 [anteprima, azione] {
                     anteprima->Sfoglia->triggerAction(azione);
                     anteprima->repaint();
                 },
                 [&b, anteprima, schede] {
                     Richiedi(b.pavimento.Massimo() == b.record, "the floor miscounted");
                     const qint32 primo = std::min(anteprima->Sfoglia->value() + 1, b.record);
                     const qint32 n = std::min(schede, b.record - primo + 1);
                     Richiedi(b.pavimento.Schede(n, primo) == n * b.collezione.idCampi.size(),
                              "the floor did not read whole sheets");
                 },
                 [anteprima, partenza] {
                     anteprima->Sfoglia->setValue(partenza());
                     anteprima->Ridisegna();
                 }};
    o.obiettivo = 0; // as for the first screen: the widget work dominates
    return o;
}

// What both imports read: a file of as many lines as the store has records, ten columns each, as a
// ";"-separated text file and as a table of a Jet 4 archive, each written a row at a time, never held.
struct Fonti {
    QTemporaryDir cartella;
    QString testo;
    QString archivio;
    QStringList nomi;
};

QStringList Pezzi(qint32 riga) {
    QStringList pezzi;
    for (int k = 0; k < 10; ++k)
        pezzi << QStringLiteral("valore %1 della colonna %2").arg(riga).arg(k);
    return pezzi;
}

std::shared_ptr<Fonti> CreaFonti(qint32 righe) {
    auto fonti = std::make_shared<Fonti>();
    for (int k = 0; k < 10; ++k)
        fonti->nomi << QStringLiteral("Colonna%1").arg(k);
    fonti->testo = fonti->cartella.filePath(QStringLiteral("importata.txt"));
    QFile file(fonti->testo);
    Richiedi(file.open(QIODevice::WriteOnly), "the text source was not written");
    file.write(fonti->nomi.join(QLatin1Char(';')).toUtf8() + "\r\n");
    for (qint32 r = 1; r <= righe; ++r)
        file.write(Pezzi(r).join(QLatin1Char(';')).toUtf8() + "\r\n");
    file.close();
    Richiedi(file.error() == QFileDevice::NoError, "the text source was not written");
    TabellaProva tabella{QStringLiteral("importata"), {}, {}, righe, [](qint32 i) {
                             const QStringList pezzi = Pezzi(i + 1);
                             return QVariantList(pezzi.cbegin(), pezzi.cend());
                         }};
    for (const QString& nome : std::as_const(fonti->nomi))
        tabella.colonne.append({nome, TipoJet::Testo});
    fonti->archivio = fonti->cartella.filePath(QStringLiteral("importata.dat"));
    ScriviArchivioJet4(fonti->archivio, {tabella});
    return fonti;
}

class Silenzio final : public Avanzamento, public Importatore {
public:
    void Stato(const QString&) override {}
    void CollezioneCreata(qint32, const QString&) override {}
};

// Puts the store back to the bench's own collections after an import or its floor.
void TogliImportate(Banco& b, qint32 righe) {
    Recordset rs = Database().ApriRecordset(
        QStringLiteral("select id from collezioni where nome in ('importata','Importata','Pavimento')"));
    QList<qint32> ids;
    for (; !rs.Fine(); rs.Successivo())
        ids << rs.Campo(0).toInt();
    rs.Chiudi();
    Richiedi(ids.size() == 1, "an import or its floor did not make exactly one collection");
    Richiedi(ContaRecord(ids.first()) == righe, "an import or its floor did not store every line");
    b.pavimento.TogliCollezione(ids.first());
}

// libmdb's own read of the table, as its export program reads it: every column bound as text.
qint32 LeggiConLibmdb(const QString& percorso) {
    MdbHandle* archivio = mdb_open(QFile::encodeName(percorso).constData(), MDB_NOFLAGS);
    Richiedi(archivio && mdb_read_catalog(archivio, MDB_TABLE), "libmdb did not open the archive");
    MdbTableDef* tabella = mdb_read_table_by_name(archivio, const_cast<gchar*>("importata"), MDB_TABLE);
    Richiedi(tabella && mdb_read_columns(tabella), "libmdb did not read the table");
    QList<QByteArray> legati(static_cast<qsizetype>(tabella->num_cols), QByteArray(MDB_BIND_SIZE, '\0'));
    for (unsigned int i = 0; i < tabella->num_cols; ++i)
        mdb_bind_column(tabella, static_cast<int>(i + 1), legati[i].data(), nullptr);
    mdb_rewind_table(tabella);
    qint32 righe = 0;
    while (mdb_fetch_row(tabella))
        ++righe;
    mdb_free_tabledef(tabella);
    mdb_close(archivio);
    return righe;
}

void LeggiFile(const QString& percorso) {
    QFile file(percorso);
    Richiedi(file.open(QIODevice::ReadOnly) && !file.readAll().isEmpty(),
             "the archive's bytes were not read");
}

constexpr int RipetizioniImport = 3;

Operazione ImportaTesto(Banco& b, const std::shared_ptr<Fonti>& fonti) {
    Operazione o{QStringLiteral("text import, a line per record x 10 columns (ImportaFileTesto)"),
                 [fonti] {
                     Silenzio silenzio;
                     Richiedi(ImportaFileTesto(fonti->testo, QStringLiteral(";"), QStringLiteral("Importata"),
                                               QString(), silenzio,
                                               silenzio) == EsitoImportazione::Completata,
                              "the text import did not complete");
                 },
                 [&b, fonti] { b.pavimento.Importazione(fonti->nomi, fonti->testo); }, [] {},
                 [&b] { TogliImportate(b, b.record); }};
    o.obiettivo = 2.0;
    o.perRecord = true;
    o.scala = 1.5;
    o.ripetizioniMassime = RipetizioniImport;
    return o;
}

// The floor is the text import's floor plus libmdb's own read of the table.
Operazione ImportaArchivio(Banco& b, const std::shared_ptr<Fonti>& fonti) {
    Operazione o{QStringLiteral("legacy import, a row per record x 10 columns (ImportaTabellaJet)"),
                 [fonti] {
                     Silenzio silenzio;
                     ArchivioJet archivio(fonti->archivio, QString());
                     Richiedi(ImportaTabellaJet(archivio, QStringLiteral("importata"), silenzio, silenzio) ==
                                  EsitoImportazione::Completata,
                              "the legacy import did not complete");
                 },
                 [&b, fonti] {
                     Richiedi(LeggiConLibmdb(fonti->archivio) == b.record,
                              "libmdb read another number of rows");
                     b.pavimento.Importazione(fonti->nomi, fonti->testo);
                 },
                 [] {}, [&b] { TogliImportate(b, b.record); }};
    o.obiettivo = 3.0;
    o.ripetizioniMassime = RipetizioniImport;
    return o;
}

// For reference, no target: libmdb reading the table beside reading the file's bytes.
Operazione LetturaLibmdb(Banco& b, const std::shared_ptr<Fonti>& fonti) {
    Operazione o{QStringLiteral("libmdb's own read of that table (floor: the file's bytes read)"),
                 [&b, fonti] {
                     Richiedi(LeggiConLibmdb(fonti->archivio) == b.record,
                              "libmdb read another number of rows");
                 },
                 [fonti] { LeggiFile(fonti->archivio); }};
    o.obiettivo = 0;
    o.ripetizioniMassime = RipetizioniImport;
    return o;
}

// "Crea Nuovo Campo" from the collections window, its dialogs answered at once: the field row and a
// value for every record. The window's fields list is put back with the store after each call.
Operazione AggiuntaCampo(Banco& b) {
    auto form = std::make_shared<Form1>();
    CaricaCollezioniInLista(*form->List1);
    for (int i = 0; i < form->List1->count(); ++i)
        if (form->List1->item(i)->data(Qt::UserRole).toInt() == b.collezione.id)
            form->List1->setCurrentRow(i);
    Richiedi(form->IdCollezioneCorrente() == b.collezione.id, "the collections window did not select it");
    const int campi = form->List2->count();
    Operazione o{QStringLiteral("add a field to the collection (\"Crea Nuovo Campo\")"),
                 [form] { CreaNuovoCampo(*form); },
                 [&b] { b.pavimento.AggiungiCampo(ValoreCampoAggiunto().toUtf8()); }, [] {},
                 [&b, form, campi] {
                     Richiedi(b.pavimento.TogliCampiAggiunti() == b.record,
                              "a field added did not get a value for every record");
                     while (form->List2->count() > campi)
                         delete form->List2->item(campi);
                 }};
    o.obiettivo = 1.5;
    return o;
}

} // namespace

qint32 RecordNonCaricato(Banco& banco) {
    constexpr qint32 passo = 3;
    banco.ultimoNonCaricato -= passo;
    if (banco.ultimoNonCaricato < 1)
        banco.ultimoNonCaricato = banco.record - passo;
    return banco.ultimoNonCaricato;
}

QList<Operazione> Operazioni(Banco& b) {
    const std::shared_ptr<Fonti> fonti = CreaFonti(b.record);
    return {Inserimento(b), Caricamento(b, QStringLiteral("first"), 1),
            Caricamento(b, QStringLiteral("middle"), Mezzo(b)),
            Caricamento(b, QStringLiteral("last"), b.record),
            Sfoglia(b, QStringLiteral("load a record not loaded before (CaricaRecord)"), false),
            Sfoglia(b, QStringLiteral("load a record, page cache emptied as on a store just opened"), true),
            Successivo(b), Ultimo(b), Eliminazione(b), Conteggio(b),
            Ricerca(b, QStringLiteral("search, contained (\"libro 4\", 11% of records)"),
                    QStringLiteral("libro 4"), false, 1.5),
            // A record before the middle one: the delete's renumbering leaves its title in place.
            Ricerca(b, QStringLiteral("search, whole value (one record)"),
                    DefinizioniCampi().at(0).valore(b.record / 4), true, 1.5),
            Ricerca(b, QStringLiteral("search matching every record"), QStringLiteral("Titolo"), false, 3.0),
            AperturaElenco(b), ScorrimentoElenco(b), OrdinamentoElenco(b), FiltroElencoBench(b),
            Disposizione(b), Esportazione(b), AnteprimaStampa(b),
            ScorriAnteprima(
                b, QStringLiteral("print preview, one screen down from the first"), [] { return 0; },
                QAbstractSlider::SliderPageStepAdd),
            ScorriAnteprima(
                b, QStringLiteral("print preview, one screen down near the end"),
                [&b] { return std::max(0, b.record - 60); }, QAbstractSlider::SliderPageStepAdd),
            ScorriAnteprima(
                b, QStringLiteral("print preview, jump to the last record (Ctrl+End)"), [] { return 0; },
                QAbstractSlider::SliderToMaximum),
            ImportaTesto(b, fonti), ImportaArchivio(b, fonti), LetturaLibmdb(b, fonti), AggiuntaCampo(b)};
}
