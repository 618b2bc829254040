#include "aprirecord.h"
#include "archivio.h"
#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "cursore.h"
#include "frmrecord.h"
#include "immagine.h"
#include "interazionescriptata.h"
#include "routinesql.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTest>
#include <QToolBar>
#include <memory>

// Browsing and editing through the toolbar, on a collection with a field of each kind.
class TestNavigazione final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    qint32 m_id = 0;
    QList<qint32> m_campi; // titolo, note, genere, voto, visto, formato, copertina

    frmRecord& F() { return FinestraRecord(); }
    template <typename T> T& C(const QString& chiave) { return *qobject_cast<T*>(F().Controllo(chiave)); }
    QLineEdit& Titolo() { return C<QLineEdit>("Text1(1)"); }
    void Premi(const QString& chiave) { F().Toolbar1_ButtonClick(chiave); }

    void Record(qint32 n, const QString& titolo, const QString& copertina = QString()) {
        const QStringList valori{titolo, "note " + titolo, "1", "3", "1", "2", copertina};
        for (qsizetype i = 0; i < m_campi.size(); ++i)
            ScriviValore(m_campi.at(i), n, valori.at(i));
    }
    void Dischi(int quanti) {
        for (int n = 1; n <= quanti; ++n)
            Record(n, "Disco " + QString::number(n));
    }
    QStringList Titoli() { return ValoriDelCampo(m_campi.at(0)); }
    // What the controls show, in field order; the combo as its index, the picture as its path.
    QStringList Schermo() {
        const QList<QListWidgetItem*> scelta = C<QListWidget>("List1(1)").selectedItems();
        return {Titolo().text(),
                C<QPlainTextEdit>("Memo1(1)").toPlainText(),
                QString::number(C<QComboBox>("Combo1(1)").currentIndex()),
                QString::number(C<Cursore>("Slider1(1)").value()),
                C<QCheckBox>("Check1(1)").isChecked() ? "1" : "0",
                scelta.isEmpty() ? QString() : scelta.at(0)->text(),
                C<Immagine>("Image1(1)").property("Tag").toString()};
    }
    // Presses each button, then compares where the window is: record number, caption, title shown.
    void Percorso(const QList<std::pair<QString, QString>>& passi) {
        for (const auto& [pulsante, dove] : passi) {
            Premi(pulsante);
            QCOMPARE(pulsante + ": " + Dove(), pulsante + ": " + dove);
        }
    }
    QString Dove() {
        return QString::number(F().RecordCorrente) + "|" + F().windowTitle() + "|" + Titolo().text();
    }
    // The earliest insert and change dates of a record's rows.
    QString Date(qint32 n) {
        const QString sql = "select min(data_ins)||' '||min(data_mod) from valori where numerorecord=";
        return Database().ApriRecordset(sql + QString::number(n)).Campo(0).toString();
    }

    // Browse: buttons enabled, "ok" and "no" hidden, text boxes locked, other kinds disabled.
    // New and edit: only "ok" and "no" enabled, every control open. Labels are never touched.
    void VerificaStato(bool modifica) {
        for (const QAction* pulsante : F().Toolbar1->actions()) {
            const bool confermaAnnulla = pulsante->objectName() == "ok" || pulsante->objectName() == "no";
            QCOMPARE(pulsante->isVisible(), modifica || !confermaAnnulla);
            if (pulsante->isVisible() && !pulsante->isSeparator()) // hidden actions also read as disabled
                QCOMPARE(pulsante->isEnabled(), !modifica || confermaAnnulla);
        }
        for (QWidget* controllo : F().ControlliCampo()) {
            const QVariant solaLettura = controllo->property("readOnly"); // text boxes only
            QCOMPARE(controllo->isEnabled(), solaLettura.isValid() || modifica);
            if (solaLettura.isValid())
                QCOMPARE(solaLettura.toBool(), !modifica);
        }
        QVERIFY(F().Controllo("Label1(1)")->isEnabled());
    }

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_id = CreaCollezione("Dischi", QString());
        m_campi = {AggiungiCampo(m_id, {{"nome", "Titolo"}, {"etichetta", "Titolo"}}),
                   AggiungiCampo(m_id, {{"nome", "Note"}, {"tipo", "memo"}}),
                   AggiungiCampo(m_id, {{"nome", "Genere"}, {"tipo", "combo"}, {"special", "Rock|Jazz|Pop"}}),
                   AggiungiCampo(m_id, {{"nome", "Voto"}, {"tipo", "slider"}, {"special", "1|10"}}),
                   AggiungiCampo(m_id, {{"nome", "Visto"}, {"tipo", "checkbox"}}),
                   AggiungiCampo(m_id, {{"nome", "Formato"}, {"tipo", "list"}, {"special", "CD|LP|MC"}}),
                   AggiungiCampo(m_id, {{"nome", "Copertina"}, {"tipo", "image"}, {"special", "TRUE"}})};
    }

    void cleanup() {
        delete &F();
        m_archivio.reset();
    }

    // Record 2's cover has lost its file; record 3 has a title only.
    void mostraOgniTipoTranneLaCombo() {
        const QString figura = m_archivio->Cartella() + "/copertina.png";
        const QString sparita = m_archivio->Cartella() + "/sparita.png";
        QImage rossa(8, 8, QImage::Format_RGB32);
        rossa.fill(Qt::red);
        QVERIFY(rossa.save(figura));
        Record(1, "Disco 1", figura);
        Record(2, "Disco 2", sparita);
        ScriviValore(m_campi.at(0), 3, "Solo il titolo");
        ApriRecord(m_id, 1);
        VerificaStato(false);
        const Immagine& copertina = C<Immagine>("Image1(1)");
        QCOMPARE(copertina.pixmap().toImage().pixelColor(0, 0), QColor(Qt::red));
        C<QComboBox>("Combo1(1)").setCurrentIndex(2);
        Premi("NEXT");
        QCOMPARE(F().windowTitle(), QString("Record N. 2"));
        // Stored 1: the combo is left as it was.
        QCOMPARE(Schermo(), (QStringList{"Disco 2", "note Disco 2", "2", "3", "1", "MC", sparita}));
        QVERIFY(copertina.pixmap().isNull());
        Premi("edit");
        Premi("ok");
        QCOMPARE(ValoriDelCampo(m_campi.at(6)).at(1), "2=" + sparita); // the path is kept without its file
        Premi("next"); // the other controls keep record 2's values
        QCOMPARE(Schermo(), (QStringList{"Solo il titolo", "note Disco 2", "2", "3", "1", "MC", sparita}));
    }

    void bordi() {
        ApriRecord(m_id, 1); // empty collection
        Titolo().setText("a mano");
        Percorso({{"next", "1|Record N. 1|a mano"},
                  {"last", "0|Record N. 1|a mano"},
                  {"prev", "1|Record N. 1|a mano"}});
        Dischi(3); // at record 1, "prev" reloads it
        Percorso({{"prev", "1|Record N. 1|Disco 1"},
                  {"last", "3|Record N. 3|Disco 3"},
                  {"next", "3|Record N. 3|Disco 3"},
                  {"first", "1|Record N. 1|Disco 1"}});
    }

    void inserimentoInMezzo() {
        Dischi(5);
        ApriRecord(m_id, 2);
        C<Immagine>("Image1(1)").setProperty("Tag", "/figure/c.png");
        Premi("new");
        VerificaStato(true);
        // The slider's 0 is below its minimum; the picture's path is kept on purpose.
        QCOMPARE(Schermo(), (QStringList{"", "", "-1", "1", "0", "", "/figure/c.png"}));
        Titolo().setText("Nuovo 'disco'");
        C<QPlainTextEdit>("Memo1(1)").setPlainText("riga 1\nriga 2");
        C<QComboBox>("Combo1(1)").setCurrentIndex(2);
        C<Cursore>("Slider1(1)").setValue(9);
        C<QListWidget>("List1(1)").setCurrentRow(0);
        Premi("ok");
        VerificaStato(false);
        const QStringList attesi{"Nuovo 'disco'", "riga 1\r\nriga 2", "2", "9", "0", "0", "/figure/c.png"};
        for (qsizetype i = 0; i < m_campi.size(); ++i)
            QCOMPARE(ValoriDelCampo(m_campi.at(i)).value(5), "6=" + attesi.at(i));
        QCOMPARE(Date(6), DataOggi() + " " + DataOggi());
        // The window stays where it was; only its number becomes the old one + 1.
        QCOMPARE(Dove(), QString("3|Record N. 2|Nuovo 'disco'"));
    }

    // An edit, a cancelled one; deleting renumbers only this collection; a failed save keeps editing.
    void modificaEliminazioneEFallimento() {
        Dischi(5);
        Database().Esegui("update valori set data_ins='2001-02-03', data_mod='2001-02-03'");
        ApriRecord(m_id, 2);
        Premi("edit");
        VerificaStato(true);
        Titolo().setText("Rimasterizzato");
        Premi("ok");
        VerificaStato(false);
        QCOMPARE(Titoli().at(1), QString("2=Rimasterizzato"));
        QCOMPARE(Date(2), "2001-02-03 " + DataOggi());

        Premi("edit");
        Titolo().setText("Mai salvato");
        Premi("no");
        VerificaStato(false);
        QCOMPARE(Titolo().text(), QString("Mai salvato")); // the screen is not reloaded
        QCOMPARE(Titoli().at(1), QString("2=Rimasterizzato"));

        const qint32 autore = AggiungiCampo(CreaCollezione("Libri", QString()), {{"nome", "Autore"}});
        for (int n = 1; n <= 5; ++n)
            ScriviValore(autore, n, "Autore " + QString::number(n));
        Premi("next");
        InterazioneScriptata script;
        script.Rispondi(Risposta::No).Rispondi(Risposta::Annulla); // both keep the record
        script.Rispondi(Risposta::Si).Rispondi(Risposta::Si);
        Premi("del");
        Premi("del");
        QCOMPARE(ContaRecord(m_id), 5);
        Premi("del");
        QCOMPARE(Descrivi(script.Richieste().at(0).messaggio),
                 Descrivi({"Sicuro di voler eliminare il record corrente?", "Attenzione",
                           Pulsanti::SiNoAnnulla, Icona::Domanda, 2}));
        QCOMPARE(Titoli(), (QStringList{"1=Disco 1", "2=Rimasterizzato", "3=Disco 4", "4=Disco 5"}));
        QCOMPARE(ValoriDelCampo(m_campi.at(6)).size(), 4);
        QCOMPARE(ValoriDelCampo(autore).mid(2), (QStringList{"3=Autore 3", "4=Autore 4", "5=Autore 5"}));
        QCOMPARE(Dove(), QString("3|Record N. 3|Disco 4"));
        Premi("last"); // record 4 is gone: nothing found, nothing replaced
        Percorso({{"del", "4|Record N. 4|Disco 5"}});
        QCOMPARE(ContaRecord(m_id), 3);

        Database().Esegui(
            "create trigger blocca before update on valori begin select raise(abort, 'bloccati'); end");
        script.Rispondi(Risposta::Ok);
        Premi("first");
        Premi("edit");
        Premi("ok");
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.TestiMessaggi().last(), QString("Errore in fase di modifica Record\nbloccati"));
        QCOMPARE(script.Richieste().last().messaggio.titolo, QString("Orvix"));
        VerificaStato(true); // still editing
    }

    void predefinitiEObbligatori() {
        const qint32 prezzo =
            AggiungiCampo(m_id, {{"nome", "Prezzo"}, {"default", "10"}, {"required", "True"}});
        const qint32 autore = AggiungiCampo(m_id, {{"nome", "Autore"}, {"tipo", "memo"}, {"required", "-1"}});
        AggiungiCampo(m_id, {{"nome", "Obbligata"}, {"tipo", "checkbox"}, {"required", "True"}});
        ApriRecord(m_id, 1);
        QVERIFY(QTest::qWaitForWindowActive(&F()));
        InterazioneScriptata script;
        script.Rispondi(Risposta::Ok);
        Premi("new");
        Premi("ok");
        VERIFICA_SCRIPT(script);
        QCOMPARE(Descrivi(script.Richieste().at(0).messaggio),
                 Descrivi({"Valore del campo Autore non specificato!", "Errore...", Pulsanti::Ok,
                           Icona::Critica}));
        QCOMPARE(QApplication::focusWidget(), F().Controllo("Memo1(2)"));
        QCOMPARE(C<QLineEdit>("Text1(2)").text(), QString("10"));
        QVERIFY(F().NuovoRecord);
        QCOMPARE(ContaRecord(m_id), 0);
        C<QPlainTextEdit>("Memo1(2)").setPlainText("Qualcuno");
        Premi("ok");
        QCOMPARE(ValoriDelCampo(prezzo), QStringList{"1=10"});
        QCOMPARE(ValoriDelCampo(autore), QStringList{"1=Qualcuno"});
    }

    // Nothing is cut or changed without the user doing it: a value longer than a text box's usual
    // limit, a default as long, and a memo's line breaks of every kind survive an edit left alone;
    // a line break typed in a memo is stored as CR LF.
    void testiConservatiInteri() {
        const QString lungo = QString(40000, u'x') + "fine";
        const QString righe = "CR LF\r\nsolo LF\nsolo CR\rfine";
        Record(1, lungo);
        Database().Esegui("update valori set valore='" + righe +
                          "' where id_campo=" + QString::number(m_campi.at(1)));
        const qint32 lunga = AggiungiCampo(m_id, {{"nome", "Lunga"}, {"default", QString(lungo + "!")}});
        ScriviValore(lunga, 1, QString());
        ApriRecord(m_id, 1);
        QCOMPARE(Titolo().text(), lungo);
        Premi("edit");
        Premi("ok");
        QCOMPARE(ValoriDelCampo(m_campi.at(0)), QStringList{"1=" + lungo});
        QCOMPARE(ValoriDelCampo(m_campi.at(1)), QStringList{"1=" + righe});

        Premi("new");
        Titolo().setText(lungo + "2");
        auto& note = C<QPlainTextEdit>("Memo1(1)");
        note.setFocus();
        QTest::keyClicks(&note, "prima");
        QTest::keyClick(&note, Qt::Key_Return);
        QTest::keyClicks(&note, "seconda");
        QTest::keyClick(&note, Qt::Key_Return, Qt::ShiftModifier);
        QTest::keyClicks(&note, "terza");
        Premi("ok");
        QCOMPARE(ValoriDelCampo(m_campi.at(0)).value(1), "2=" + lungo + "2");
        QCOMPARE(ValoriDelCampo(m_campi.at(1)).value(1), QString("2=prima\r\nseconda\r\nterza"));
        QCOMPARE(ValoriDelCampo(lunga).value(1), "2=" + lungo + "!");
    }
};

QTEST_MAIN(TestNavigazione)
#include "tst_navigazione.moc"
