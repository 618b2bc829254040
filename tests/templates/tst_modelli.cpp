#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "interazionescriptata.h"

#include "archivio.h"
#include "caricamodello.h"
#include "cp1252.h"
#include "fileprofilo.h"
#include "form1.h"
#include "formatomodello.h"
#include "frmmodelli.h"
#include "listecontrolli.h"
#include "routinesql.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

// The field rows of a collection, each in the template's key order without its ids.
QStringList Righe(qint32 idCollezione) {
    const QString colonne = FormatoModello::ChiaviCampo().join(u"\",\""_s);
    return RigheSql(
        u"select \"%1\" from campi where id_collezione=%2 order by id"_s.arg(colonne).arg(idCollezione));
}

QStringList NomiCollezioni() {
    return RigheSql(u"select nome from collezioni order by id"_s);
}

qint32 IdDi(const QString& nome) {
    for (const VoceElenco& voce : ElencoCollezioni())
        if (voce.nome == nome)
            return voce.id;
    return -1;
}

QByteArray Contenuto(const QString& percorso) {
    QFile file(percorso);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

// Lines of a template file, in CR LF as the writer ends them.
QByteArray Modello(const QStringList& righe) {
    return InCp1252(righe.join(u"\r\n"_s) + u"\r\n"_s);
}

void Crea(const QString& percorso, const QStringList& righe) {
    QFile file(percorso);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(Modello(righe));
}

const QStringList libri{"[tabella]", "nome=Libri", "[campi]", "nome1=Titolo", "n=1"};

} // namespace

// Templates from the collections window: export, the gallery, and collections made from templates,
// on a real store, with the gallery driven as a person drives it.
class TestModelli final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    QPointer<Form1> m_form;
    QTemporaryDir m_altrove;

    QListWidget& Collezioni() { return *m_form->List1; }
    QString InModelli(const QString& nome) { return CartellaModelli() + QDir::separator() + nome; }
    void InGalleria(const QString& nome, const QStringList& righe) {
        QDir().mkpath(CartellaModelli());
        Crea(InModelli(nome), righe);
    }

    void Seleziona(const QString& nome) {
        Collezioni().setCurrentItem(Collezioni().findItems(nome, Qt::MatchExactly).value(0));
    }
    void Esporta(InterazioneScriptata& script, const QString& file, bool conMessaggio = false) {
        script.File(file);
        if (conMessaggio)
            script.Rispondi(Risposta::Ok);
        m_form->mnuEsportaModello->trigger();
    }
    // The gallery opened from the menu, `azione` done on it while it is shown.
    // `poi` scripts the prompts that come after the gallery opens.
    void Galleria(InterazioneScriptata& script, std::function<void(frmModelli&)> azione,
                  const std::function<void(InterazioneScriptata&)>& poi = {}) {
        script.Modale([azione](QDialog& dialogo) { azione(static_cast<frmModelli&>(dialogo)); });
        if (poi)
            poi(script);
        m_form->mnuNuovaColleazioneDaModello->trigger();
    }
    static void Clic(frmModelli& galleria, int riga, bool doppio = false) {
        const QPoint centro = galleria.Lv1->visualItemRect(galleria.Lv1->item(riga)).center();
        if (doppio)
            QTest::mouseDClick(galleria.Lv1->viewport(), Qt::LeftButton, {}, centro);
        else
            QTest::mouseClick(galleria.Lv1->viewport(), Qt::LeftButton, {}, centro);
    }
    static QStringList Voci(const frmModelli& galleria) {
        QStringList voci;
        for (int i = 0; i < galleria.Lv1->count(); ++i) {
            const QListWidgetItem* voce = galleria.Lv1->item(i);
            voci << voce->text() + (voce->icon().isNull() ? "" : " (icona)") + " -> " +
                        QFileInfo(voce->data(Qt::UserRole).toString()).fileName();
        }
        return voci;
    }

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    void init() {
        QDir(m_altrove.path()).removeRecursively();
        QDir().mkpath(m_altrove.path());
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_form = &CaricaForm1();
        m_form->show();
    }
    void cleanup() {
        delete m_form.data();
        m_archivio.reset();
    }

    void menu() {
        const QList<QAction*> voci = m_form->mnuCollezioni->actions();
        const auto dopo = [&](const char* prima) {
            return voci.value(voci.indexOf(m_form->findChild<QAction*>(QString::fromLatin1(prima))) + 1);
        };
        QCOMPARE(dopo("mnuNewCollection"), m_form->mnuNuovaColleazioneDaModello);
        QCOMPARE(dopo("mnuSep1"), m_form->mnuEsporta1->menuAction());
        QVERIFY(m_form->mnuEsporta1->actions().contains(m_form->mnuEsportaModello));
    }

    void esportazione_data() {
        QTest::addColumn<QString>("collezione");
        QTest::addColumn<QString>("scelto");
        QTest::addColumn<QString>("messaggio");
        QTest::addColumn<QByteArray>("file");
        const auto riga = [](const char* nome, const QString& collezione, const QString& scelto,
                             const QString& messaggio, const QByteArray& file) {
            QTest::newRow(nome) << collezione << scelto << messaggio << file;
        };
        const QByteArray manca("<missing>");
        riga("one field", u"Libri"_s, u"m.wzd"_s, {},
             Modello({"[tabella]", "nome=Libri", "descrizione=La mia biblioteca", "[campi]", "nome1=Titolo",
                      "default1=", "required1=True", "tipo1=textbox", "etichetta1=Titolo del libro",
                      "formula1=", "left1=10", "top1=30", "width1=120", "height1=21",
                      "special1=", "tooltip1=Titolo completo", "tabindex1=0", "n=1"}));
        riga("no collection chosen", {}, u"m.wzd"_s, u"Tabella non trovata. | Orvix | 1"_s, manca);
        riga("no fields", u"Vuota"_s, u"m.wzd"_s, u"Campi non trovati. | Orvix | 1"_s,
             Modello({"[tabella]", "nome=Vuota", "descrizione=Niente"}));
        riga("dialog cancelled", u"Libri"_s, {}, {}, manca);
        riga("folder missing", u"Libri"_s, u"manca/m.wzd"_s,
             "Impossibile scrivere il Modello nel file \"" + m_altrove.filePath("manca/m.wzd") +
                 "\". | Orvix | 1",
             manca);
    }
    void esportazione() {
        QFETCH(QString, collezione);
        QFETCH(QString, scelto);
        QFETCH(QString, messaggio);
        QFETCH(QByteArray, file);
        AggiungiCampo(CreaCollezione("Libri", "La mia biblioteca"), {{"nome", "Titolo"},
                                                                     {"required", "True"},
                                                                     {"etichetta", "Titolo del libro"},
                                                                     {"tooltip", "Titolo completo"}});
        CreaCollezione("Vuota", "Niente");
        CaricaCollezioniInLista(Collezioni());
        if (!collezione.isEmpty())
            Seleziona(collezione);
        InterazioneScriptata script;
        Esporta(script, scelto.isEmpty() ? QString() : m_altrove.filePath(scelto), !messaggio.isEmpty());
        VERIFICA_SCRIPT(script);
        const RichiestaFile& richiesta = script.Richieste().at(0).file;
        QCOMPARE((QStringList{richiesta.titolo, richiesta.nomeFile, richiesta.cartellaIniziale,
                              richiesta.estensione}),
                 (QStringList{"Esporta Modello...", "", AppPath(), "wzd"}));
        QVERIFY(!richiesta.apertura);
        QCOMPARE(richiesta.filtri, (QList<QPair<QString, QString>>{{"File di Modello", "*.wzd"}}));
        QCOMPARE(script.Richieste().size(), messaggio.isEmpty() ? 1 : 2);
        if (!messaggio.isEmpty())
            QCOMPARE(Descrivi(script.Richieste().at(1).messaggio), messaggio);
        QCOMPARE(Contenuto(m_altrove.filePath("m.wzd")), file);
    }

    // Every kind of control and every column goes out and comes back, but the required flag. A shorter
    // collection written over the same file leaves the old keys after its own, and n says two.
    void andata_e_ritorno_di_sette_tipi() {
        const qint32 id = CreaCollezione("Tutti", "Uno per tipo: già, € e \"virgolette\"");
        const QStringList tipi = ControlTypes();
        for (int i = 0; i < tipi.size(); ++i)
            AggiungiCampo(id, {{"nome", u"Campo%1"_s.arg(i)},
                               {"tipo", tipi.at(i)},
                               {"default", i == 0 ? "Già letto" : ""},
                               {"required", i % 2 ? "True" : "False"},
                               {"etichetta", u"Etichetta %1 €"_s.arg(i)},
                               {"formula", i == 0 ? "Campo3 * 2" : ""},
                               {"left", 10 + i},
                               {"top", 40 * i + 30},
                               {"width", 100 + i},
                               {"height", 20 + i},
                               {"special", tipi.at(i) == "slider"  ? "1|10"
                                           : tipi.at(i) == "image" ? "TRUE"
                                                                   : "a|b"},
                               {"tooltip", u"Suggerimento = %1"_s.arg(i)},
                               {"tabindex", 6 - i}});
        const qint32 due = CreaCollezione("Due", QString());
        AggiungiCampo(due, {{"nome", "D1"}});
        AggiungiCampo(due, {{"nome", "D2"}});
        CaricaCollezioniInLista(Collezioni());
        Seleziona("Tutti");
        const QString file = InModelli("tutti.wzd");
        InterazioneScriptata script;
        QDir().mkpath(CartellaModelli());
        Esporta(script, file);
        Galleria(script, [](frmModelli& galleria) {
            QCOMPARE(Voci(galleria), QStringList{"Tutti (icona) -> tutti.wzd"});
            Clic(galleria, 0);
            QCOMPARE(galleria.lblDescrizione->text(), u"Uno per tipo: già, € e \"virgolette\""_s);
            galleria.OKButton->click();
        });
        VERIFICA_SCRIPT(script);
        QCOMPARE(NomiCollezioni(), (QStringList{"Tutti", "Due", "Tutti1"}));
        const qint32 nuova = IdDi("Tutti1");
        QCOMPARE(Collezioni().count(), 3);
        QCOMPARE(Collezioni().item(2)->text(), u"Tutti1"_s);
        QCOMPARE(Collezioni().item(2)->data(Qt::UserRole).toInt(), nuova);
        QCOMPARE(Collezioni().currentRow(), 0); // the new one is not selected
        QCOMPARE(m_form->IdCollezioneCorrente(), id);
        QCOMPARE(RigheSql(u"select descrizione from collezioni where id=%1"_s.arg(nuova)),
                 QStringList{u"Uno per tipo: già, € e \"virgolette\""_s});
        QStringList attese = Righe(id);
        for (QString& riga : attese)
            riga.replace("|True|", "|0|").replace("|False|", "|0|");
        QCOMPARE(Righe(nuova), attese);

        Seleziona("Due");
        Esporta(script, file);
        VERIFICA_SCRIPT(script);
        QCOMPARE(LeggiIni("campi", "nome3", file), u"Campo2"_s);
        QVERIFY(Contenuto(file).endsWith("tabindex7=0\r\nn=2\r\n"));
        const std::optional<VoceElenco> creata = CaricaModello(file);
        QVERIFY(creata);
        QCOMPARE(creata->nome, u"Due1"_s);
        QCOMPARE(Righe(creata->id), Righe(due).replaceInStrings("|False|", "|0|"));
    }

    void lettura_dei_numeri_e_di_n_data() {
        QTest::addColumn<QStringList>("campi");
        QTest::addColumn<QStringList>("righe");
        const QString vuota = "||0||||0|0|0|0|||0";
        QTest::newRow("decimal comma, point, half to even, True")
            << QStringList{"nome1=A",     "required1=True", "tipo1=textbox", "left1=12,5", "top1=12.5",
                           "width1=13.5", "height1= 7px",   "tabindex1=abc", "n=1"}
            << QStringList{"A||0|textbox|||12|12|14|7|||0"};
        QTest::newRow("n below the fields present")
            << QStringList{"nome1=A", "nome2=B", "nome3=C", "n=2"} << QStringList{"A" + vuota, "B" + vuota};
        QTest::newRow("n above the fields present")
            << QStringList{"nome1=A", "n=3"} << QStringList{"A" + vuota, vuota, vuota};
        QTest::newRow("n missing") << QStringList{"nome1=A"} << QStringList{};
        QTest::newRow("n negative") << QStringList{"nome1=A", "n=-2"} << QStringList{};
        QTest::newRow("n rounded") << QStringList{"nome1=A", "n=1.5"} << QStringList{"A" + vuota, vuota};
    }
    void lettura_dei_numeri_e_di_n() {
        QFETCH(QStringList, campi);
        QFETCH(QStringList, righe);
        const QString file = m_altrove.filePath("m.wzd");
        Crea(file, QStringList{"[campi]"} + campi + QStringList{"[tabella]", "nome=Prova"});
        const std::optional<VoceElenco> creata = CaricaModello(file);
        QVERIFY(creata);
        QCOMPARE(creata->nome, u"Prova"_s);
        QCOMPARE(Righe(creata->id), righe);
    }

    void nomi_unici() {
        const QString file = m_altrove.filePath("libri.wzd");
        Crea(file, libri);
        QStringList creati;
        for (int i = 0; i < 3; ++i)
            creati << CaricaModello(file)->nome;
        QCOMPARE(creati, (QStringList{"Libri", "Libri1", "Libri2"}));
        QCOMPARE(Righe(IdDi("Libri2")), Righe(IdDi("Libri")));
        // The store compares names without regard to case, and so does the search for a free one.
        Crea(file, {"[tabella]", "nome=LIBRI1", "[campi]", "n=0"});
        QCOMPARE(CaricaModello(file)->nome, u"LIBRI11"_s);
        // No name at all: the numbers alone.
        Crea(file, {"[campi]", "n=0"});
        QCOMPARE(CaricaModello(file)->nome, QString());
        QCOMPARE(CaricaModello(file)->nome, u"1"_s);
    }

    // A value the store refuses stops the whole creation: no collection, no field, and the reason shown.
    void modello_rifiutato_data() {
        QTest::addColumn<QStringList>("righe");
        QTest::addColumn<QString>("messaggio");
        QTest::newRow("position beyond what a window places")
            << QStringList{"[tabella]", "nome=Rotto", "[campi]", "nome1=A", "nome2=B", "left2=40000", "n=2"}
            << "left deve essere un numero intero da 0 a 32767";
        QTest::newRow("more fields than a count holds")
            << QStringList{"[tabella]", "nome=Rotto", "[campi]", "n=40000"}
            << "Il numero dei campi del Modello (40000) è fuori dall'intervallo ammesso.";
        QTest::newRow("a name with a quote breaks the search")
            << QStringList{"[tabella]", "nome=L'isola", "[campi]", "nome1=A", "n=1"} << "syntax error";
        QTest::newRow("a name whose quotes match every collection")
            << QStringList{"[tabella]", "nome=x' or 'a'<>'", "[campi]", "n=0"}
            << "Il nome della collezione del Modello non è valido: x' or 'a'<>'";
    }
    void modello_rifiutato() {
        QFETCH(QStringList, righe);
        QFETCH(QString, messaggio);
        CreaCollezione("Esistente", QString());
        InGalleria("rotto.wzd", righe);
        InterazioneScriptata script;
        Galleria(
            script,
            [](frmModelli& galleria) {
                Clic(galleria, 0);
                galleria.OKButton->click();
            },
            [](InterazioneScriptata& poi) { poi.Rispondi(Risposta::Ok); });
        VERIFICA_SCRIPT(script);
        QVERIFY2(script.TestiMessaggi().value(0).contains(messaggio),
                 qPrintable(script.TestiMessaggi().value(0)));
        QCOMPARE(NomiCollezioni(), QStringList{"Esistente"});
        QCOMPARE(Collezioni().count(), 0);
        QCOMPARE(RigheSql(u"select count(*) from campi"_s), QStringList{"0"});
    }

    // Listed once, at the first showing, in file-name order; the choice stays between showings
    // until Annulla clears it; OK without a choice creates nothing; a double click chooses and closes.
    void galleria_costruita_una_volta() {
        InGalleria("b.wzd", {"[tabella]", "nome=Libri", "descrizione=Per i libri"});
        InGalleria("A.wzd", {"[campi]", "n=0"});
        InGalleria("c.WZD", {"[tabella]", "nome=Dischi"});
        InGalleria("note.txt", {"[tabella]", "nome=Note"});
        InterazioneScriptata script;
        Galleria(script, [](frmModelli& galleria) {
            QCOMPARE((QStringList{galleria.windowTitle(), galleria.lblDescrizione->text(),
                                  galleria.cmdImporta->toolTip()}),
                     (QStringList{"Modelli disponibili...",
                                  "\r\nAltri modelli li puoi trovare liberamente scaricabili da Internet",
                                  "Hai scaricato un Modello da Internet? Clicca Qui per Importarlo"}));
            QCOMPARE(Voci(galleria),
                     (QStringList{"A.wzd -> A.wzd", "Libri (icona) -> b.wzd", "Dischi (icona) -> c.WZD"}));
            QCOMPARE(galleria.Lv1->item(1)->data(Qt::UserRole).toString(),
                     CartellaModelli() + QDir::separator() + "b.wzd");
            QCOMPARE(galleria.FileModelloDaImportare, QString());
            Clic(galleria, 1);
            QCOMPARE(galleria.lblDescrizione->text(), u"Per i libri"_s);
            Clic(galleria, 2);
            QCOMPARE(galleria.lblDescrizione->text(), QString());
            Clic(galleria, 1);
            galleria.OKButton->click();
        });
        QCOMPARE(NomiCollezioni(), QStringList{"Libri"});
        InGalleria("d.wzd", {"[tabella]", "nome=Nuovo"});
        Galleria(script, [this](frmModelli& galleria) {
            QCOMPARE(galleria.Lv1->count(), 3);
            QCOMPARE(galleria.FileModelloDaImportare, InModelli("b.wzd"));
            galleria.CancelButton->click();
        });
        Galleria(script, [](frmModelli& galleria) {
            QCOMPARE(galleria.FileModelloDaImportare, QString());
            QVERIFY(galleria.Lv1->selectedItems().isEmpty());
            galleria.OKButton->click();
        });
        QCOMPARE(NomiCollezioni(), QStringList{"Libri"});
        Galleria(script, [](frmModelli& galleria) {
            Clic(galleria, 2);
            Clic(galleria, 2, true);
            QVERIFY(!galleria.isVisible());
        });
        VERIFICA_SCRIPT(script);
        QCOMPARE(NomiCollezioni(), (QStringList{"Libri", "Dischi"}));
        QCOMPARE(Collezioni().count(), 2);
    }

    // The key asks first, No being the default; the deleted template stays chosen, so OK reads a
    // file that is gone: a collection without name and without fields.
    void canc_elimina_il_modello() {
        InGalleria("a.wzd", {"[tabella]", "nome=Dischi", "[campi]", "nome1=Album", "n=1"});
        InGalleria("libri.wzd", libri);
        InterazioneScriptata script;
        Galleria(
            script,
            [this](frmModelli& galleria) {
                Clic(galleria, 1);
                QTest::keyClick(galleria.Lv1, Qt::Key_Delete);
                QVERIFY(QFile::exists(InModelli("libri.wzd")));
                QCOMPARE(galleria.Lv1->count(), 2);
                QTest::keyClick(galleria.Lv1, Qt::Key_Delete);
                QVERIFY(!QFile::exists(InModelli("libri.wzd")));
                QCOMPARE(Voci(galleria), QStringList{"Dischi (icona) -> a.wzd"});
                QVERIFY(galleria.Lv1->selectedItems().isEmpty());
                QCOMPARE(galleria.FileModelloDaImportare, InModelli("libri.wzd"));
                QTest::keyClick(galleria.Lv1, Qt::Key_Delete); // nothing selected: nothing asked
                galleria.OKButton->click();
            },
            [](InterazioneScriptata& poi) { poi.Rispondi(Risposta::No).Rispondi(Risposta::Si); });
        VERIFICA_SCRIPT(script);
        QCOMPARE(Descrivi(script.Richieste().at(1).messaggio),
                 u"Eliminare definitivamente il Modello Corrente? | Orvix | 222"_s);
        QCOMPARE(NomiCollezioni(), QStringList{QString()});
        QCOMPARE(Righe(IdDi(QString())), QStringList());
    }

    // Copied into the folder under a free name (Libri.wzd, 1Libri.wzd, 2Libri.wzd), listed under the
    // template's name; the next open dialog starts in the folder the last one came from.
    void importa() {
        QDir().mkpath(m_altrove.filePath("scaricati"));
        const QString scaricato = m_altrove.filePath("scaricati/Libri.wzd");
        Crea(scaricato, {"[tabella]", "nome=Libri di casa", "[campi]", "n=0"});
        const QString senzaNome = m_altrove.filePath("vuoto.wzd");
        Crea(senzaNome, {"[tabella]", "descrizione=Senza nome"});
        const QString prima = QDir::currentPath();
        InterazioneScriptata script;
        Galleria(
            script,
            [](frmModelli& galleria) {
                QCOMPARE(galleria.Lv1->count(), 0); // no folder yet
                for (int i = 0; i < 5; ++i)
                    galleria.cmdImporta->click();
                QCOMPARE(Voci(galleria), (QStringList{"Libri di casa (icona) -> Libri.wzd",
                                                      "Libri di casa (icona) -> 1Libri.wzd",
                                                      "Libri di casa (icona) -> 2Libri.wzd"}));
                QCOMPARE(galleria.FileModelloDaImportare, QString());
                galleria.CancelButton->click();
            },
            [&](InterazioneScriptata& poi) {
                poi.File(scaricato).File(scaricato).File(scaricato).File({}).File(senzaNome).Rispondi(
                    Risposta::Ok);
            });
        const QString dopo = QDir::currentPath();
        QDir::setCurrent(prima);
        VERIFICA_SCRIPT(script);
        const RichiestaFile& richiesta = script.Richieste().at(1).file;
        QCOMPARE((QStringList{richiesta.titolo, richiesta.estensione, richiesta.cartellaIniziale}),
                 (QStringList{"Importa Modello...", "wzd", prima}));
        QVERIFY(richiesta.apertura);
        QCOMPARE(richiesta.filtri, (QList<QPair<QString, QString>>{{"File Modello", "*.wzd"}}));
        QCOMPARE(QDir(script.Richieste().at(2).file.cartellaIniziale), QDir(m_altrove.filePath("scaricati")));
        QCOMPARE(QDir(dopo), QDir(m_altrove.filePath("scaricati")));
        QCOMPARE(Descrivi(script.Richieste().at(6).messaggio),
                 u"Modello non valido! Nome collezione non specificato | Orvix | 1"_s);
        QCOMPARE(QDir(CartellaModelli()).entryList(QDir::Files),
                 (QStringList{"1Libri.wzd", "2Libri.wzd", "Libri.wzd"}));
        QCOMPARE(Contenuto(InModelli("2Libri.wzd")), Contenuto(scaricato));
        QCOMPARE(NomiCollezioni(), QStringList());
    }
};

QTEST_MAIN(TestModelli)
#include "tst_modelli.moc"
