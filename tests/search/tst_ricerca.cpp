#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "interazionescriptata.h"

#include "aprirecord.h"
#include "apriricerca.h"
#include "archivio.h"
#include "form1.h"
#include "frmfind.h"
#include "frmmain.h"
#include "frmrecord.h"
#include "listecontrolli.h"
#include "risultatiricerca.h"
#include "routinesql.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QTreeView>
#include <QtTest>
#include <memory>

// The search window inside the frame: opened from the collections window or the record window's
// "Trova...", then used as a person does: a field chosen, a text typed, "VAI" pressed.
class TestRicerca final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    std::unique_ptr<frmMAIN> m_frame;
    qint32 m_dischi = 0;
    qint32 m_libri = 0;

    frmFind& F() { return *FinestraRicerca(); }
    QListWidget& Collezioni() { return *IstanzaForm1()->List1; }

    void Cerca(const QString& campo, const QString& testo, bool esatta = false) {
        F().Combo1->setCurrentText(campo);
        F().Text1->setText(testo);
        F().Esatta->setChecked(esatta);
        F().cmdGO->click();
    }

    // Each hit as "value:record", in the list's order.
    QStringList Trovati() {
        QStringList trovati;
        for (int riga = 0; riga < F().Risultati().rowCount(); ++riga)
            trovati << F().Risultati().index(riga, 0).data().toString() + ":" +
                           F().Risultati().index(riga, 1).data().toString();
        return trovati;
    }

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_dischi = CreaCollezione("Dischi", QString());
        const qint32 titolo = AggiungiCampo(m_dischi, {{"nome", "Titolo"}});
        const qint32 citta = AggiungiCampo(m_dischi, {{"nome", "Città"}, {"top", 60}});
        const QStringList titoli{"Blue Train", "Blue",      "Kind of Blue", "Giant Steps",
                                 "blue",       "Bluesette", "Naima"};
        const QStringList citte{"CITTÀ", "Città di Castello", "Roma", "Bari", "Bari", "Bari", "Torino"};
        for (int i = 0; i < titoli.size(); ++i) {
            ScriviValore(titolo, i + 1, titoli.at(i));
            ScriviValore(citta, i + 1, citte.at(i));
        }
        m_libri = CreaCollezione("Libri", QString());
        AggiungiCampo(m_libri, {{"nome", "Editore"}});
        CreaCollezione("Vuota", QString());
        m_frame = std::make_unique<frmMAIN>();
        CaricaCollezioniInLista(Collezioni());
        m_frame->show();
    }

    void cleanup() {
        m_frame.reset();
        m_archivio.reset();
    }

    // Each opening follows a search window already open: it is replaced, or left alone after a message.
    void apertura_data() {
        QTest::addColumn<QString>("scelta");
        QTest::addColumn<bool>("dalRecord");
        QTest::addColumn<QString>("messaggio");
        QTest::addColumn<QStringList>("campi");
        const auto riga = [](const char* nome, const QString& scelta, bool dalRecord,
                             const QString& messaggio, const QStringList& campi) {
            QTest::newRow(nome) << scelta << dalRecord << messaggio << campi;
        };
        riga("no collection", "", false, "Selezionare una Collezione dall'apposita Lista | Orvix | 1", {});
        riga("no field", "Vuota", false, "Nella collezione non è presente nemmeno un campo! | Orvix | 1", {});
        riga("collections window", "Dischi", false, "", {"Titolo", "Città"});
        riga("record window, its own collection", "Dischi", true, "", {"Editore"});
    }

    void apertura() {
        QFETCH(QString, scelta);
        QFETCH(bool, dalRecord);
        QFETCH(QString, messaggio);
        QFETCH(QStringList, campi);
        ApriRicerca(m_libri);
        const QPointer<frmFind> prima = FinestraRicerca();
        if (!scelta.isEmpty())
            Collezioni().setCurrentItem(Collezioni().findItems(scelta, Qt::MatchExactly).at(0));
        InterazioneScriptata script;
        if (!messaggio.isEmpty())
            script.Rispondi(Risposta::Ok);
        if (dalRecord) {
            ApriRecord(m_libri, 1);
            QCOMPARE(FinestraRecord().mnuFile->actions().at(0)->text(), QString("Trova..."));
            FinestraRecord().mnuTrova->trigger();
        } else {
            IstanzaForm1()->mnuEseguiRicerca->trigger();
        }
        VERIFICA_SCRIPT(script);
        if (!messaggio.isEmpty()) {
            QCOMPARE(Descrivi(script.Richieste().at(0).messaggio), messaggio);
            QCOMPARE(FinestraRicerca(), prima.data());
            return;
        }
        QVERIFY(prima.isNull());
        QStringList voci, finestre;
        for (int i = 0; i < F().Combo1->count(); ++i)
            voci << F().Combo1->itemText(i);
        QCOMPARE(voci, campi);
        QCOMPARE(F().Combo1->currentIndex(), 0);
        for (const QMdiSubWindow* figlio : m_frame->AreaFigli()->subWindowList())
            finestre << figlio->widget()->objectName();
        QCOMPARE(finestre.count("frmFind"), 1);
    }

    void cerca_data() {
        QTest::addColumn<QString>("campo");
        QTest::addColumn<QString>("testo");
        QTest::addColumn<bool>("esatta");
        QTest::addColumn<QStringList>("trovati");
        QTest::addColumn<QString>("prima"); // run on the store before the search
        QTest::addColumn<QString>("messaggio");
        const auto riga = [](const char* nome, const QString& campo, const QString& testo, bool esatta,
                             const QStringList& trovati, const QString& prima = {},
                             const QString& messaggio = {}) {
            QTest::newRow(nome) << campo << testo << esatta << trovati << prima << messaggio;
        };
        riga("contained, any case", "Titolo", "BLUE", false,
             {"Blue Train:1", "Blue:2", "Kind of Blue:3", "blue:5", "Bluesette:6"});
        riga("whole value, any case", "Titolo", "bLuE", true, {"Blue:2", "blue:5"});
        riga("the text as typed, blanks too", "Titolo", "Blue ", true, {});
        riga("no hit", "Titolo", "Coltrane", false, {});
        riga("accented, whole value", "Città", "città", true, {"CITTÀ:1"});
        riga("accented, contained", "Città", "città", false, {"CITTÀ:1", "Città di Castello:2"});
        riga("blank text: the list is left alone", "Città", "   ", false, {"Bari:4", "Bari:5", "Bari:6"}, "",
             "Devi prima specificare cosa intendi cercare! | Avviso... | 31");
        riga("a quote", "Titolo", "Kind o'Blue", false, {}, "", "near \"Blue\": syntax error | Orvix | 11");
        riga("a field that is gone", "Città", "Roma", false, {}, "delete from campi where nome='Città'");
        riga("a field numbered 0", "Città", "Roma", false, {}, "update campi set id=0 where nome='Città'",
             "Errore inatteso IDCAMPO=0 non trovato! | Orvix | 1");
    }

    // Each search follows one with hits and comes before one that works: the window goes on. Only a
    // blank text, a broken query or a lost field say something; the list is headed by the field searched.
    void cerca() {
        QFETCH(QString, campo);
        QFETCH(QString, testo);
        QFETCH(bool, esatta);
        QFETCH(QStringList, trovati);
        QFETCH(QString, prima);
        QFETCH(QString, messaggio);
        ApriRicerca(m_dischi);
        Cerca("Città", "Bari");
        if (!prima.isEmpty())
            Database().Esegui(prima);
        InterazioneScriptata script;
        if (!messaggio.isEmpty())
            script.Rispondi(Risposta::Ok);
        Cerca(campo, testo, esatta);
        VERIFICA_SCRIPT(script);
        QCOMPARE(messaggio.isEmpty() ? QString() : Descrivi(script.Richieste().at(0).messaggio), messaggio);
        QCOMPARE(Trovati(), trovati);
        if (messaggio.isEmpty())
            QCOMPARE(F().Risultati().headerData(0, Qt::Horizontal).toString(), campo);
        const QString suggerimento =
            trovati.isEmpty() ? QString()
                              : "Fai doppio click sul Record che ti interessa per Visualizzarne i Dettagli";
        QCOMPARE(F().Lv1->toolTip(), suggerimento);
        Cerca("Titolo", "Blue", true);
        QCOMPARE(Trovati(), (QStringList{"Blue:2", "blue:5"}));
    }

    // Dates in the user's short form; a double click opens the record window on the hit's record.
    void apriRecordTrovato() {
        Database().Esegui(
            "update valori set data_ins='2024-03-05', data_mod='2025-11-30' where valore='Naima'");
        ApriRicerca(m_dischi);
        Cerca("Titolo", "naima", true);
        QCOMPARE(Trovati(), QStringList{"Naima:7"});
        QCOMPARE(F().Risultati().index(0, 2).data().toString() + " " +
                     F().Risultati().index(0, 3).data().toString(),
                 QString("05/03/24 30/11/25"));
        const QPoint riga = F().Lv1->visualRect(F().Risultati().index(0, 1)).center();
        QTest::mouseClick(F().Lv1->viewport(), Qt::LeftButton, {}, riga); // a double click's first click
        QTest::mouseDClick(F().Lv1->viewport(), Qt::LeftButton, {}, riga);
        QCOMPARE(FinestraRecord().CurrTabella, m_dischi);
        QCOMPARE(FinestraRecord().windowTitle(), QString("Record N. 7"));
        QCOMPARE(FinestraRecord().Controllo("Text1(1)")->property("text").toString(), QString("Naima"));
    }
};

QTEST_MAIN(TestRicerca)
#include "tst_ricerca.moc"
