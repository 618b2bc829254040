#include "archiviojetprova.h"
#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "interazionescriptata.h"

#include "aprirecord.h"
#include "archivio.h"
#include "esportatesto.h"
#include "form1.h"
#include "frmimportaext1.h"
#include "frmmain.h"
#include "frmrecord.h"
#include "frmsceglitabellatarvino.h"
#include "frmtipofiledaimportare.h"
#include "listecontrolli.h"
#include "routinesql.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QtTest>
#include <memory>

namespace {

// The dialog's option chosen as a person does, then a button pressed.
std::function<void(QDialog&)> Scegli(const char* opzione, const char* pulsante = "OKButton") {
    return [opzione, pulsante](QDialog& d) {
        if (opzione)
            d.findChild<QRadioButton*>(QString::fromLatin1(opzione))->click();
        d.findChild<QPushButton*>(QString::fromLatin1(pulsante))->click();
    };
}

// Counts a widget's repaints.
class Osservatore final : public QObject {
public:
    int dipinture = 0;

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override {
        if (evento->type() == QEvent::Paint)
            ++dipinture;
        return QObject::eventFilter(oggetto, evento);
    }
};

} // namespace

// "Importa..." in the frame as a person uses it: its dialogs and prompts, then the list, status line and
// records.
class TestImporta final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    std::unique_ptr<frmMAIN> m_frame;

    QListWidget& Collezioni() { return *IstanzaForm1()->List1; }
    QString Stato() { return m_frame->Sbar1->currentMessage(); }

    QStringList Elencate() {
        QStringList nomi;
        for (int i = 0; i < Collezioni().count(); ++i)
            nomi << Collezioni().item(i)->text() + "=" + Collezioni().item(i)->data(Qt::UserRole).toString();
        return nomi;
    }

    QString File(const QString& nome, const QByteArray& byte = {}) {
        const QString percorso = m_archivio->Cartella() + "/" + nome;
        if (byte.isEmpty())
            return percorso;
        QFile file(percorso);
        file.open(QIODevice::WriteOnly | QIODevice::Truncate);
        file.write(byte);
        return percorso;
    }

    QString Archivio(const QList<TabellaProva>& tabelle, const QString& password = {}) {
        ScriviArchivioJet4(File("archivio.dat"), tabelle, password);
        return File("archivio.dat");
    }

    qint32 Id(const QString& nome) {
        return RigheSql("select id from collezioni where nome='" + nome + "'").value(0).toInt();
    }
    QStringList Campi(const QString& colonne, const QString& collezione) {
        return RigheSql("select " + colonne +
                        " from campi where id_collezione=" + QString::number(Id(collezione)));
    }
    // Runs "Importa..." through the script; the script's errors.
    static QStringList Importa(const InterazioneScriptata& script) {
        IstanzaForm1()->mnuImportaStrutturaeDati->trigger();
        return script.Errori();
    }

    void ScriptTesto(InterazioneScriptata& script, const QString& file, const char* separatore,
                     const QString& nome) {
        script.Modale(Scegli("OptFile"))
            .File(file)
            .Modale(Scegli(separatore))
            .Digita(nome)
            .Digita("una descrizione");
    }

    void ScriptArchivio(InterazioneScriptata& script, const QString& file, const QString& password,
                        const std::function<void(QDialog&)>& scelta) {
        script.Modale(Scegli("OptAir")).File(file).Digita(password).Modale(scelta);
    }

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_frame = std::make_unique<frmMAIN>();
        CaricaCollezioniInLista(Collezioni());
        m_frame->show();
    }

    void cleanup() {
        m_frame.reset();
        m_archivio.reset();
    }

    void menu() {
        QStringList voci;
        for (const QAction* azione : IstanzaForm1()->mnuCollezioni->actions())
            voci << azione->objectName() + ":" + azione->text();
        const qsizetype importa = voci.indexOf("mnuImportaStrutturaeDati:Importa...");
        QVERIFY(importa > 0);
        QCOMPARE(voci.at(importa + 1), QString("mnuStampa:Stampa..."));
        QCOMPARE(voci.at(importa - 1), QString("mnuEsporta1:Esporta"));
    }

    void dialoghi() {
        // The dialog's result after each (option, button) pair pressed in turn.
        const auto risultati = [](auto& dialogo, const QList<QPair<const char*, const char*>>& scelte) {
            dialogo.show();
            QStringList r;
            for (const auto& [opzione, pulsante] : scelte) {
                Scegli(opzione, pulsante)(dialogo);
                r << dialogo.Risultato();
            }
            return r;
        };
        frmTipoFileDaImportare tipo;
        QCOMPARE(
            risultati(tipo, {{"OptAir", "OKButton"}, {"OptFile", "OKButton"}, {nullptr, "CancelButton"}}),
            QStringList({"dat", "txt", ""}));
        QCOMPARE((QStringList{tipo.windowTitle(), tipo.OptFile->text(), tipo.OptAir->text(),
                              tipo.CancelButton->text()}),
                 (QStringList{"Seleziona il tipo di File dal quale intendi partire...",
                              "File di testo (es. tabella esportata da programmi quali Excel, Access...)",
                              "Collezione di Tarvino", "Annulla"}));

        frmImportaExt1 separatore;
        separatore.show();
        QVERIFY(separatore.Option1->isChecked());
        QCOMPARE(separatore.windowTitle(), QString("Che tipo di file si intende importare?"));
        QCOMPARE(separatore.Option3->text(), QString("Record separati da  TAB  (tabulatore)"));
        QVERIFY(separatore.Label1->text().endsWith("supportati da Orvix for Tarvino"));
        QCOMPARE(risultati(separatore,
                           {{"Option1", "OKButton"}, {"Option2", "OKButton"}, {"Option3", "OKButton"}}),
                 QStringList({";", ",", "\t"}));
        separatore.show();
        separatore.close(); // closing is cancelling
        QCOMPARE(separatore.Risultato(), QString());

        frmScegliTabellaTarvino tabelle({"film", "canzoni"});
        QCOMPARE(risultati(tabelle, {{nullptr, "OKButton"}, {"OptTutte", "OKButton"}}),
                 QStringList({"film", "tutte"}));
    }

    // The real text export's file (TAB, CR LF; Windows-1252, or UTF-8 for a character that code page
    // lacks) reads back into the same names and values, all text boxes, listed with the status line at its
    // end.
    void roundTripWithTheTextExport_data() {
        QTest::addColumn<QString>("citta");
        QTest::newRow("Windows-1252") << QString::fromUtf8("Città");
        QTest::newRow("UTF-8") << QString::fromUtf8("Łódź");
    }
    void roundTripWithTheTextExport() {
        QFETCH(QString, citta);
        const qint32 origine = CreaCollezione("Origine", QString());
        const QStringList valori[] = {{"1840", citta, "con;punto e, virgola"}, {"1900", "Roma", ""}};
        const QString nomi[] = {"Anno", "Luogo " + citta, "Note"}; // in name order, as the export writes
        for (int k = 0; k < 3; ++k) {
            const qint32 campo = AggiungiCampo(origine, {{"nome", nomi[k]}});
            for (int r = 0; r < 2; ++r)
                ScriviValore(campo, r + 1, valori[r].at(k));
        }
        EsportaTesto(origine, File("esportata.txt"));
        InterazioneScriptata script;
        ScriptTesto(script, File("esportata.txt"), "Option3", "Copia");
        QCOMPARE(Importa(script), QStringList());
        const InterazioneScriptata::Richiesta& dialogo = script.Richieste().at(1);
        QCOMPARE(dialogo.file.titolo, QString("Scegli il file..."));
        QVERIFY(dialogo.file.apertura);
        QCOMPARE(dialogo.file.filtri,
                 (QList<QPair<QString, QString>>{{"File Database", "*.txt"}, {"Tutti i files", "*.*"}}));
        const Messaggio& nome = script.Richieste().at(3).messaggio;
        QCOMPARE(nome.titolo + ": " + nome.testo,
                 QString("Nome collezione?: Digita il nome della Collezione che intendi Importare?"));
        QVERIFY(Elencate().contains("Copia=" + QString::number(Id("Copia"))));
        QCOMPARE(Campi("nome||':'||tipo", "Copia"),
                 QStringList({"Anno:textbox", "Luogo " + citta + ":textbox", "Note:textbox"}));
        QCOMPARE(RecordCollezione(Id("Copia")), RecordCollezione(origine));
        QCOMPARE(RecordCollezione(Id("Copia")),
                 QStringList({"1840|" + citta + "|con;punto e, virgola", "1900|Roma|"}));
        QCOMPARE(Stato(), QString("Inserimento Completato."));
    }

    void annullamenti_data() {
        QTest::addColumn<int>("passi");
        QTest::newRow("source type cancelled") << 1;
        QTest::newRow("no file chosen") << 2;
        QTest::newRow("separator cancelled") << 3;
        QTest::newRow("no name") << 4;
    }

    void annullamenti() {
        QFETCH(int, passi);
        InterazioneScriptata script;
        script.Modale(passi == 1 ? Scegli(nullptr, "CancelButton") : Scegli("OptFile"));
        if (passi >= 2)
            script.File(passi == 2 ? QString() : File("a.txt", "a;b\n1;2\n"));
        if (passi >= 3)
            script.Modale(passi == 3 ? Scegli(nullptr, "CancelButton") : Scegli("Option1"));
        if (passi >= 4)
            script.Digita("");
        QCOMPARE(Importa(script), QStringList());
        QCOMPARE(RigheSql("select count(*) from collezioni"), QStringList{"0"});
        QCOMPARE(Collezioni().count(), 0);
    }

    // The error is shown; the collection stays listed with the records before the failing one.
    void errore_mostrato_data() {
        QTest::addColumn<QByteArray>("testo");
        QTest::addColumn<QString>("separatore");
        QTest::addColumn<QString>("messaggio");
        QTest::addColumn<QStringList>("record");
        QTest::addColumn<QString>("stato");
        QTest::newRow("one column") << QByteArray("Titolo\nuno\n") << "Option1"
                                    << "Formato File non valido! | Orvix | 1" << QStringList()
                                    << "Sto Creando la collezione...";
        QTest::newRow("a quote") << QByteArray("a,b\n1,2\n3,4\nl'ultimo,5\n6,7\n") << "Option2"
                                 << "near \"ultimo\": syntax error | Orvix | 11"
                                 << QStringList({"1|2", "3|4"}) << "Sto inserendo il record 3";
    }
    void errore_mostrato() {
        QFETCH(QByteArray, testo);
        QFETCH(QString, separatore);
        QFETCH(QString, messaggio);
        QFETCH(QStringList, record);
        QFETCH(QString, stato);
        const QByteArray opzione = separatore.toLatin1(); // outlives the script
        InterazioneScriptata script;
        ScriptTesto(script, File("a.txt", testo), opzione.constData(), "Errata");
        script.Rispondi(Risposta::Ok);
        QCOMPARE(Importa(script), QStringList());
        QCOMPARE(Descrivi(script.Richieste().last().messaggio), messaggio);
        QCOMPARE(Elencate(), QStringList{"Errata=" + QString::number(Id("Errata"))});
        QCOMPARE(RecordCollezione(Id("Errata")), record);
        QCOMPARE(Stato(), stato);
    }

    // During the import the windows repaint, but a key, a click or a close starts nothing.
    void nessun_comando_durante() {
        QByteArray testo = "a;b\n";
        for (int i = 0; i < 3000; ++i)
            testo += "x;y\n";
        Osservatore osservatore;
        m_frame->Sbar1->installEventFilter(&osservatore);
        bool inviati = false;
        connect(m_frame->Sbar1, &QStatusBar::messageChanged, this, [&](const QString& messaggio) {
            if (inviati || !messaggio.startsWith("Sto creando il campo"))
                return;
            inviati = true;
            osservatore.dipinture = 0;
            QWidget* lista = Collezioni().viewport();
            QCoreApplication::postEvent(&Collezioni(),
                                        new QKeyEvent(QEvent::KeyRelease, Qt::Key_Delete, Qt::NoModifier));
            QCoreApplication::postEvent(lista,
                                        new QMouseEvent(QEvent::MouseButtonRelease, QPointF(5, 5),
                                                        lista->mapToGlobal(QPointF(5, 5)), Qt::RightButton,
                                                        Qt::NoButton, Qt::NoModifier));
            QCoreApplication::postEvent(m_frame.get(), new QCloseEvent);
        });
        CreaCollezione("Altra", QString());
        CaricaCollezioniInLista(Collezioni());
        Collezioni().setCurrentRow(0); // a Delete key would ask to delete it
        InterazioneScriptata script;
        ScriptTesto(script, File("a.txt", testo), "Option1", "Grande");
        QCOMPARE(Importa(script), QStringList());
        QVERIFY(inviati);
        QVERIFY(osservatore.dipinture > 0);
        QCOMPARE(Stato(), QString("Inserimento Completato."));
        QVERIFY(m_frame->isVisible());
        QVERIFY(!IstanzaForm1()->mnuCollezioni->isVisible());
        QCoreApplication::processEvents();
        VERIFICA_SCRIPT(script);
        QCOMPARE(ContaRecord(Id("Grande")), 3000);
        QVERIFY(m_frame->isVisible());
    }

    // Esc stops an import: the records before it stay, the status line says so.
    void interruzione() {
        connect(m_frame->Sbar1, &QStatusBar::messageChanged, this, [](const QString& messaggio) {
            if (messaggio == "Sto creando il campo: b")
                QCoreApplication::postEvent(IstanzaForm1()->List1,
                                            new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
        });
        InterazioneScriptata script;
        ScriptTesto(script, File("a.txt", "a;b\n1;2\n3;4\n"), "Option1", "Fermata");
        QCOMPARE(Importa(script), QStringList());
        QCOMPARE(ContaRecord(Id("Fermata")), 0);
        QCOMPARE(Campi("count(*)", "Fermata"), QStringList{"2"});
        QCOMPARE(Stato(), QString("Importazione interrotta: 0 record inseriti."));
    }

    void archivio_una_tabella() {
        TabellaProva film{"film",
                          {{"Titolo", TipoJet::Testo, true},
                           {"Genere", TipoJet::Testo},
                           {"Giudizio", TipoJet::Lungo},
                           {"Visto", TipoJet::Booleano},
                           {"Immagine", TipoJet::Testo},
                           {"Trama", TipoJet::Memo},
                           {"Uscita", TipoJet::DataOra},
                           {"Prezzo", TipoJet::Doppio}},
                          {{"L'ultimo", "2", 7, true, "/img/a.jpg", "C'era una volta",
                            QDateTime(QDate(1987, 10, 23), {}), 12.5},
                           {"Secondo", "0", 3, false, QVariant(), QVariant(), QVariant(), 1987.0}}};
        TabellaProva vuota{"MSysAltro", {{"x", TipoJet::Testo}}, {}};
        const QString file =
            Archivio({vuota, film, {"Canzoni", {{"Genere", TipoJet::Testo}}, {}}}, "segreta");
        CreaCollezione("FILM", QString());
        CaricaCollezioniInLista(Collezioni());
        InterazioneScriptata script;
        QStringList elencate;
        ScriptArchivio(script, file, "segreta", [&](QDialog& d) {
            auto& scelta = static_cast<frmScegliTabellaTarvino&>(d);
            for (int i = 0; i < scelta.cmbTabelle->count(); ++i)
                elencate << scelta.cmbTabelle->itemText(i);
            scelta.OKButton->click();
        });
        QCOMPARE(Importa(script), QStringList());
        QCOMPARE(elencate, QStringList({"film", "Canzoni"}));
        QCOMPARE(script.Richieste().at(1).file.filtri.at(0).second, QString("*.dat"));
        QCOMPARE(script.Richieste().at(2).messaggio.testo,
                 QString("Inserire la password di protezione (se necessaria):"));
        const qint32 id = Id("film1"); // "FILM" is taken, whatever the case
        QCOMPARE(Elencate().last(), "film1=" + QString::number(id));
        QCOMPARE(RigheSql("select descrizione from collezioni where id=" + QString::number(id)),
                 QStringList{"film Importati da Tarvino"});
        QCOMPARE(Campi("nome,etichetta,tipo,special,required,tabindex,\"left\",top", "film1"),
                 QStringList(
                     {"Titolo|Titolo|textbox||true|0|30|40",
                      "Genere|Genere|list|Thriller|Commedia|Sentimentale|Drammatico|Storico|Avventura|Sexy|"
                      "Horror|false|1|30|80",
                      "Giudizio|Giudizio|slider|1|10|false|2|30|120", "Visto|Visto|checkbox||false|3|30|160",
                      "Immagine|Immagine|image|true|false|4|30|200", "Trama|Trama|memo||false|5|30|240",
                      "Uscita|Uscita|textbox||false|6|30|280", "Prezzo|Prezzo|textbox||false|7|30|320"}));
        QCOMPARE(RecordCollezione(id),
                 QStringList(
                     {"L'ultimo|2|7|1|/img/a.jpg|C'era una volta|23/10/1987|12,5", "Secondo|0|3|0||||1987"}));
        QCOMPARE(Stato(), QString("Inserimento Completato."));
        ApriRecord(id, 1);
        QList<QCheckBox*> caselle = FinestraRecord().findChildren<QCheckBox*>();
        caselle.removeIf([](const QCheckBox* c) { return c->isHidden(); }); // the array's template
        QCOMPARE(caselle.size(), 1);
        QVERIFY(caselle.at(0)->isChecked());
        FinestraRecord().Toolbar1_ButtonClick("next");
        QVERIFY(!caselle.at(0)->isChecked());
    }

    void archivio_tutte() {
        const QString file = Archivio(
            {{"giochi", {{"Genere", TipoJet::Testo}, {"giudizio", TipoJet::Booleano}}, {{"Arcade", true}}},
             {"canzoni", {{"GENERE", TipoJet::Testo}, {"note", TipoJet::Lungo}}, {{"Rock", 3}}},
             {"vuota", {{"x", TipoJet::Testo}}, {}}});
        for (int volta = 0; volta < 2; ++volta) { // the second time, names taken get a number
            InterazioneScriptata script;
            ScriptArchivio(script, file, "", Scegli("OptTutte"));
            QCOMPARE(Importa(script), QStringList());
        }
        QCOMPARE(RigheSql("select nome from collezioni"),
                 QStringList({"giochi", "canzoni", "vuota", "giochi1", "canzoni1", "vuota1"}));
        QCOMPARE(Campi("count(*)", "vuota1"), QStringList{"1"});
        QCOMPARE(ContaRecord(Id("vuota1")), 0);
        // each table's own name chooses its genres
        QCOMPARE(Campi("nome||':'||tipo||':'||special", "giochi1"),
                 QStringList({"Genere:list:Sparatutto|Simulazione|Arcade|Avventura|Strategico|Sport|Altro",
                              "giudizio:checkbox:"}));
        QCOMPARE(Campi("nome||':'||tipo||':'||special", "canzoni"),
                 QStringList({"GENERE:list:Pop|Rock|Dance|Classica|Blues|Rap|R&B|Altro", "note:textbox:"}));
        QCOMPARE(RecordCollezione(Id("canzoni1")), QStringList{"Rock|3"});
        QCOMPARE(Collezioni().count(), 6);
    }

    // The reader's error is shown and nothing is imported; an empty password is no cancel.
    void archivio_rifiutato() {
        const QString file = Archivio({{"film", {{"Titolo", TipoJet::Testo}}, {{"x"}}}}, "segreta");
        InterazioneScriptata script;
        script.Modale(Scegli("OptAir")).File(file).Digita("").Rispondi(Risposta::Ok);
        QCOMPARE(Importa(script), QStringList());
        QCOMPARE(Descrivi(script.Richieste().last().messaggio),
                 "Password non valida: " + file + " | Orvix | 11");
        QCOMPARE(RigheSql("select count(*) from collezioni"), QStringList{"0"});
    }

    // Only the engine's own tables: an empty chooser, and OK imports nothing.
    void archivio_senza_tabelle() {
        const QString file = Archivio({{"msysVarie", {{"x", TipoJet::Testo}}, {{"a"}}}});
        InterazioneScriptata script;
        int voci = -1;
        ScriptArchivio(script, file, "", [&](QDialog& d) {
            voci = static_cast<frmScegliTabellaTarvino&>(d).cmbTabelle->count();
            Scegli(nullptr)(d);
        });
        QCOMPARE(Importa(script), QStringList());
        QCOMPARE(voci, 0);
        QCOMPARE(RigheSql("select count(*) from collezioni"), QStringList{"0"});
    }
};

QTEST_MAIN(TestImporta)
#include "tst_importa.moc"
