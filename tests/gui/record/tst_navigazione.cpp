#include "aprirecord.h"
#include "archivio.h"
#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "frmrecord.h"
#include "interazionescriptata.h"
#include "routinesql.h"

#include <QTest>
#include <QtWidgets>
#include <memory>

// Browsing and editing through the toolbar.
class TestNavigazione final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    qint32 m_id = 0;
    QList<qint32> m_campi; // titolo, note

    static frmRecord& F() { return FinestraRecord(); }
    static QLineEdit& Titolo() { return *qobject_cast<QLineEdit*>(F().Controllo("Text1(1)")); }
    static QPlainTextEdit& Note() { return *qobject_cast<QPlainTextEdit*>(F().Controllo("Memo1(1)")); }
    static void Premi(const QString& chiave) { F().Toolbar1_ButtonClick(chiave); }
    static QString Dove() {
        return QString::number(F().RecordCorrente) + "|" + F().windowTitle() + "|" + Titolo().text();
    }
    void Dischi(int quanti) {
        for (int n = 1; n <= quanti; ++n)
            ScriviValore(m_campi.at(0), n, "Disco " + QString::number(n));
    }
    QStringList Titoli() { return ValoriDelCampo(m_campi.at(0)); }

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_id = CreaCollezione("Dischi", QString());
        m_campi = {AggiungiCampo(m_id, {{"nome", "Titolo"}}),
                   AggiungiCampo(m_id, {{"nome", "Note"}, {"tipo", "memo"}})};
    }

    void cleanup() {
        delete &F();
        m_archivio.reset();
    }

    // At either end a button stays put; on an empty collection "last" goes to record 0, the screen
    // untouched. A new record goes at the end; the window keeps its place, numbered one more.
    void bordiEInserimento() {
        ApriRecord(m_id, 1);
        Titolo().setText("a mano");
        Premi("last");
        QCOMPARE(Dove(), QString("0|Record N. 1|a mano"));
        Dischi(3);
        Premi("last");
        Premi("next");
        QCOMPARE(Dove(), QString("3|Record N. 3|Disco 3"));
        Premi("prev");
        Premi("new");
        Titolo().setText("Nuovo 'disco'");
        Premi("ok");
        QCOMPARE(Titoli().value(3), QString("4=Nuovo 'disco'"));
        QCOMPARE(Dove(), QString("3|Record N. 2|Nuovo 'disco'"));
    }

    // An edit keeps the insert date, a cancelled one stores nothing; deleting asks, then renumbers only
    // this collection; a failed save says why and keeps editing.
    void modificaEliminazioneEFallimento() {
        Dischi(5);
        Database().Esegui("update valori set data_ins='2001-02-03', data_mod='2001-02-03'");
        ApriRecord(m_id, 2);
        Premi("edit");
        Titolo().setText("Rimasterizzato");
        Premi("ok");
        const QString date = "select min(data_ins)||' '||min(data_mod) from valori where numerorecord=2";
        QCOMPARE(RigheSql(date), QStringList{"2001-02-03 " + DataOggi()}); // the insert date is kept
        Premi("edit");
        Titolo().setText("Mai salvato");
        Premi("no");
        QCOMPARE(Titoli().at(1), QString("2=Rimasterizzato"));

        const qint32 autore = AggiungiCampo(CreaCollezione("Libri", QString()), {{"nome", "Autore"}});
        for (int n = 1; n <= 5; ++n)
            ScriviValore(autore, n, "Autore " + QString::number(n));
        Premi("next");
        InterazioneScriptata script;
        script.Rispondi(Risposta::Annulla).Rispondi(Risposta::Si); // only Sì deletes
        Premi("del");
        Premi("del");
        QCOMPARE(Titoli(), (QStringList{"1=Disco 1", "2=Rimasterizzato", "3=Disco 4", "4=Disco 5"}));
        QCOMPARE(ValoriDelCampo(autore).mid(2), (QStringList{"3=Autore 3", "4=Autore 4", "5=Autore 5"}));

        Database().Esegui(
            "create trigger b before update on valori begin select raise(abort,'bloccati');end");
        script.Rispondi(Risposta::Ok);
        Premi("edit");
        Premi("ok");
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.TestiMessaggi().last(), QString("Errore in fase di modifica Record\nbloccati"));
        QVERIFY(F().ModificaRecord);
    }

    // The last record deleted, the window stays on its number: an edit there is refused with a message,
    // the typed text stays on screen and editing goes on; nothing is written.
    void modificaDiUnRecordEliminato() {
        Dischi(2);
        ApriRecord(m_id, 2);
        InterazioneScriptata script;
        script.Rispondi(Risposta::Si).Rispondi(Risposta::Ok);
        Premi("del");
        Premi("edit");
        Titolo().setText("Da non perdere");
        Premi("ok");
        VERIFICA_SCRIPT(script);
        QCOMPARE(Descrivi(script.Richieste().at(1).messaggio),
                 QString("Il record 2 non esiste più: le modifiche non sono state salvate. | Orvix | 31"));
        QVERIFY(F().ModificaRecord);
        QCOMPARE(Dove(), QString("2|Record N. 2|Da non perdere"));
        QCOMPARE(Titoli(), QStringList{"1=Disco 1"});
    }

    // A missing required value is refused, nothing stored; defaults are stored.
    void predefinitiEObbligatori() {
        const qint32 prezzo =
            AggiungiCampo(m_id, {{"nome", "Prezzo"}, {"default", "10"}, {"required", "True"}});
        const qint32 autore = AggiungiCampo(m_id, {{"nome", "Autore"}, {"tipo", "memo"}, {"required", "-1"}});
        ApriRecord(m_id, 1);
        InterazioneScriptata script;
        script.Rispondi(Risposta::Ok);
        Premi("new");
        Premi("ok");
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.TestiMessaggi(), QStringList{"Valore del campo Autore non specificato!"});
        QVERIFY(F().NuovoRecord && ContaRecord(m_id) == 0);
        qobject_cast<QPlainTextEdit*>(F().Controllo("Memo1(2)"))->setPlainText("Qualcuno");
        Premi("ok");
        QCOMPARE(ValoriDelCampo(prezzo) + ValoriDelCampo(autore), (QStringList{"1=10", "1=Qualcuno"}));
    }

    // Nothing is cut or changed without the user doing it: a value past a text box's usual limit and
    // a memo's line breaks of every kind survive an edit left alone; a line break typed in a memo
    // (Shift+Return too) is stored as CR LF.
    void testiConservatiInteri() {
        const QString lungo = QString(40000, u'x') + "fine";
        const QString righe = "CR LF\r\nsolo LF\nsolo CR\rfine";
        ScriviValore(m_campi.at(0), 1, lungo);
        ScriviValore(m_campi.at(1), 1, righe);
        ApriRecord(m_id, 1);
        Premi("edit");
        Premi("ok");
        QCOMPARE(Titoli(), QStringList{"1=" + lungo});
        QCOMPARE(ValoriDelCampo(m_campi.at(1)), QStringList{"1=" + righe});
        Premi("new");
        Note().setFocus();
        QTest::keyClicks(&Note(), "prima");
        QTest::keyClick(&Note(), Qt::Key_Return, Qt::ShiftModifier);
        QTest::keyClicks(&Note(), "terza");
        Premi("ok");
        QCOMPARE(ValoriDelCampo(m_campi.at(1)).value(1), QString("2=prima\r\nterza"));
    }
};

QTEST_MAIN(TestNavigazione)
#include "tst_navigazione.moc"
