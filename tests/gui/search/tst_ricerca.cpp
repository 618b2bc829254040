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

#include <QtTest>
#include <QtWidgets>

// The search window inside the frame: opened from the collections window or the record window's
// "Trova...", then used as a person does: a field chosen, a text typed, "VAI" pressed.
class TestRicerca final : public QObject {
    Q_OBJECT

    static frmFind& F() { return *FinestraRicerca(); }

    static void Cerca(const QString& campo, const QString& testo, bool esatta = false) {
        F().Combo1->setCurrentText(campo);
        F().Text1->setText(testo);
        F().Esatta->setChecked(esatta);
        F().cmdGO->click();
    }

    // Each hit as "value:record", in the list's order, after the search; and what was said, if anything.
    static void Caso(const QString& campo, const QString& testo, bool esatta, const QStringList& trovati,
                     const QString& messaggio = {}) {
        InterazioneScriptata script;
        if (!messaggio.isEmpty())
            script.Rispondi(Risposta::Ok);
        Cerca(campo, testo, esatta);
        VERIFICA_SCRIPT(script);
        QCOMPARE(messaggio.isEmpty() ? QString() : Descrivi(script.Richieste().at(0).messaggio), messaggio);
        QStringList visti;
        for (int riga = 0; riga < F().Risultati().rowCount(); ++riga)
            visti << F().Risultati().index(riga, 0).data().toString() + ":" +
                         F().Risultati().index(riga, 1).data().toString();
        QCOMPARE(visti, trovati);
    }

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    // Opened from the record window, the search replaces the one already open and lists that window's
    // collection's fields; with no collection chosen, the open one is left alone. Only a blank text, a
    // broken query or a lost field say something, and the window goes on working; a double click
    // opens the record window on the hit's record.
    void ricerca() {
        ArchivioTemporaneo archivio;
        const qint32 dischi = CreaCollezione("Dischi", QString());
        const qint32 titolo = AggiungiCampo(dischi, {{"nome", "Titolo"}});
        const qint32 citta = AggiungiCampo(dischi, {{"nome", "Città"}, {"top", 60}});
        const QStringList titoli{"Blue Train", "Blue",      "Kind of Blue", "Giant Steps",
                                 "blue",       "Bluesette", "Naima"};
        const QStringList citte{"CITTÀ", "Città di Castello", "Roma", "Bari", "Bari", "Bari", "Torino"};
        for (int i = 0; i < titoli.size(); ++i) {
            ScriviValore(titolo, i + 1, titoli.at(i));
            ScriviValore(citta, i + 1, citte.at(i));
        }
        const qint32 libri = CreaCollezione("Libri", QString());
        AggiungiCampo(libri, {{"nome", "Editore"}});
        frmMAIN frame;
        CaricaCollezioniInLista(*IstanzaForm1()->List1);
        frame.show();

        ApriRicerca(dischi);
        const QPointer<frmFind> prima = FinestraRicerca();
        InterazioneScriptata script;
        script.Rispondi(Risposta::Ok);
        IstanzaForm1()->mnuEseguiRicerca->trigger();
        VERIFICA_SCRIPT(script);
        QCOMPARE(FinestraRicerca(), prima.data());
        ApriRecord(libri, 1);
        FinestraRecord().mnuTrova->trigger();
        QVERIFY(prima.isNull());
        QCOMPARE(F().Combo1->count(), 1);
        QCOMPARE(F().Combo1->currentText(), QString("Editore"));
        QCOMPARE(frame.AreaFigli()->findChildren<frmFind*>().size(), 1);

        ApriRicerca(dischi);
        Caso("Titolo", "BLUE", false, {"Blue Train:1", "Blue:2", "Kind of Blue:3", "blue:5", "Bluesette:6"});
        Caso("Titolo", "Blue ", true, {}); // the text as typed, blanks too
        Caso("Città", "città", false, {"CITTÀ:1", "Città di Castello:2"});
        Cerca("Città", "Bari");
        Caso("Città", "   ", false, {"Bari:4", "Bari:5", "Bari:6"}, // the list is left alone
             "Devi prima specificare cosa intendi cercare! | Avviso... | 31");
        Caso("Titolo", "Kind o'Blue", false, {}, "near \"Blue\": syntax error | Orvix | 11");
        Caso("Titolo", "naima", true, {"Naima:7"});
        const QPoint riga = F().Lv1->visualRect(F().Risultati().index(0, 1)).center();
        QTest::mouseClick(F().Lv1->viewport(), Qt::LeftButton, {}, riga); // a double click's first click
        QTest::mouseDClick(F().Lv1->viewport(), Qt::LeftButton, {}, riga);
        QCOMPARE(FinestraRecord().CurrTabella, dischi);
        QCOMPARE(FinestraRecord().Controllo("Text1(1)")->property("text").toString(), QString("Naima"));
        Database().Esegui("update campi set id=0 where nome='Città'");
        Caso("Città", "Roma", false, {}, "Errore inatteso IDCAMPO=0 non trovato! | Orvix | 1");
    }

    // Only "*" stands for other characters: "%", "_" and "\\" typed in the text match themselves,
    // still without regard to case.
    void soloAsteriscoJolly() {
        ArchivioTemporaneo archivio;
        const qint32 note = CreaCollezione("Note", QString());
        const qint32 testo = AggiungiCampo(note, {{"nome", "Testo"}});
        const QStringList valori{"a_b",      "axb",  "50% SCONTO", "500 sconto",
                                 "C:\\dati", "Roma", "Rosa",       "Ravenna"};
        for (int i = 0; i < valori.size(); ++i)
            ScriviValore(testo, i + 1, valori.at(i));
        frmMAIN frame;
        frame.show();
        ApriRicerca(note);
        Caso("Testo", "A_B", false, {"a_b:1"});
        Caso("Testo", "_", false, {"a_b:1"});
        Caso("Testo", "50% s", false, {"50% SCONTO:3"});
        Caso("Testo", "%", false, {"50% SCONTO:3"});
        Caso("Testo", "\\", false, {"C:\\dati:5"});
        Caso("Testo", "r*a", false, {"Roma:6", "Rosa:7", "Ravenna:8"});
        Caso("Testo", "ro*a", false, {"Roma:6", "Rosa:7"});
        QStringList tutti;
        for (int i = 0; i < valori.size(); ++i)
            tutti << valori.at(i) + ":" + QString::number(i + 1);
        Caso("Testo", "*", false, tutti);
        const QString oggi = QLocale().toString(QDate::currentDate(), QLocale::ShortFormat);
        for (const int riga : {0, 4, 7}) {
            QCOMPARE(F().Risultati().index(riga, 2).data().toString(), oggi);
            QCOMPARE(F().Risultati().index(riga, 3).data().toString(), oggi);
        }
        QCOMPARE(F().Risultati().NumeroRecord(4), 5);
        Caso("Testo", "a_b", true, {"a_b:1"});
    }
};

QTEST_MAIN(TestRicerca)
#include "tst_ricerca.moc"
