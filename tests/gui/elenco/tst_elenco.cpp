#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "interazionescriptata.h"

#include "aprielenco.h"
#include "aprirecord.h"
#include "archivio.h"
#include "form1.h"
#include "frmelenco.h"
#include "frmmain.h"
#include "frmrecord.h"
#include "listecontrolli.h"
#include "modelloelenco.h"
#include "routinesql.h"
#include "vistaelenco.h"

#include <QtTest>
#include <QtWidgets>

// The list of records inside the real frame, opened from the record window's menu and used as a
// person does: headers clicked, a filter typed, rows opened, records added and deleted meanwhile.
class TestElenco final : public QObject {
    Q_OBJECT

    qint32 m_id = 0;

    static QString Cella(const frmElenco& elenco, int riga, int colonna) {
        return elenco.Modello().index(riga, colonna).data().toString();
    }

    // One column, top to bottom.
    static QStringList Colonna(const frmElenco& elenco, int colonna) {
        QStringList celle;
        for (int riga = 0; riga < elenco.Modello().rowCount(); ++riga)
            celle << Cella(elenco, riga, colonna);
        return celle;
    }

    static void ClickIntestazione(frmElenco& elenco, int colonna) {
        QHeaderView* intestazione = elenco.lvElenco->header();
        const QPoint punto(intestazione->sectionViewportPosition(colonna) + 4, intestazione->height() / 2);
        QTest::mouseClick(intestazione->viewport(), Qt::LeftButton, {}, punto);
    }

    static void Filtra(frmElenco& elenco, const QString& testo) {
        QSignalSpy applicato(&elenco.Modello(), &ModelloElenco::FiltroApplicato);
        elenco.txtFiltro->clear();
        QTest::keyClicks(elenco.txtFiltro, testo);
        QVERIFY(applicato.wait(10000));
    }

    static void ApriRiga(frmElenco& elenco, int riga) {
        const QPoint punto = elenco.lvElenco->visualRect(elenco.Modello().index(riga, 1)).center();
        QTest::mouseClick(elenco.lvElenco->viewport(), Qt::LeftButton, {}, punto);
        QTest::mouseDClick(elenco.lvElenco->viewport(), Qt::LeftButton, {}, punto);
    }

    static QString Testo(const char* chiave) {
        return FinestraRecord().Controllo(QString::fromLatin1(chiave))->property("text").toString();
    }

    frmElenco& Apri() {
        ApriRecord(m_id, 1);
        FinestraRecord().mnuElenco->trigger();
        return *FinestraElenco(m_id);
    }

    // A collection of coins: the anno field is second in tab order though created first.
    void Prepara() {
        m_id = CreaCollezione("Monete", QString());
        const qint32 anno = AggiungiCampo(m_id, {{"nome", "Anno"}, {"tabindex", 2}});
        const qint32 paese =
            AggiungiCampo(m_id, {{"nome", "Paese"}, {"etichetta", "Paese di conio"}, {"tabindex", 1}});
        const qint32 stato = AggiungiCampo(
            m_id, {{"nome", "Stato"}, {"tipo", "list"}, {"special", "Buono|Ottimo"}, {"tabindex", 3}});
        const qint32 fdc = AggiungiCampo(m_id, {{"nome", "Fdc"}, {"tipo", "checkbox"}, {"tabindex", 4}});
        const qint32 doppio =
            AggiungiCampo(m_id, {{"nome", "Doppio"}, {"formula", "Anno * 2"}, {"tabindex", 5}});
        const QStringList anni{"1861", "999", "2002"};
        const QStringList paesi{"Italia", "Èire", "Francia"};
        for (int n = 1; n <= 3; ++n) {
            ScriviValore(anno, n, anni.at(n - 1));
            ScriviValore(paese, n, paesi.at(n - 1));
            ScriviValore(stato, n, QString::number(n % 2));
            ScriviValore(fdc, n, n == 2 ? "1" : "0");
            ScriviValore(doppio, n, "");
        }
    }

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    // Opened from "Elenco Record..." (Ctrl+L, right after "Trova..."): a child of the frame named
    // after the collection, one row per record, the fields in tab order with what the record window
    // shows; a second opening brings the same window forward.
    void apertura() {
        ArchivioTemporaneo archivio;
        Prepara();
        frmMAIN frame;
        frame.show();
        frmElenco& elenco = Apri();
        const QList<QAction*> voci = FinestraRecord().mnuFile->actions();
        QCOMPARE(voci.at(voci.indexOf(FinestraRecord().mnuTrova) + 1), FinestraRecord().mnuElenco);
        QCOMPARE(FinestraRecord().mnuElenco->text(), QStringLiteral("Elenco Record..."));
        QCOMPARE(FinestraRecord().mnuElenco->shortcut(), QKeySequence(QStringLiteral("Ctrl+L")));
        QCOMPARE(elenco.windowTitle(), QStringLiteral("Monete"));
        QVERIFY(qobject_cast<QMdiSubWindow*>(elenco.parentWidget()));
        QStringList intestazioni;
        for (int colonna = 0; colonna < elenco.Modello().columnCount(); ++colonna)
            intestazioni << elenco.Modello().headerData(colonna, Qt::Horizontal).toString();
        QCOMPARE(intestazioni, (QStringList{"Record", "Paese di conio", "Anno", "Stato", "Fdc", "Doppio"}));
        QCOMPARE(Colonna(elenco, 0), (QStringList{"1", "2", "3"}));
        QCOMPARE(Colonna(elenco, 1), (QStringList{"Italia", "Èire", "Francia"}));
        QCOMPARE(Colonna(elenco, 3), (QStringList{"Ottimo", "Buono", "Ottimo"}));
        QCOMPARE(Colonna(elenco, 4), (QStringList{"", "\u2713", ""}));
        QCOMPARE(Colonna(elenco, 5), (QStringList{"3722", "1998", "4004"}));
        QCOMPARE(elenco.lblStato->text(), QStringLiteral("3 di 3 record"));
        FinestraRecord().mnuElenco->trigger();
        QCOMPARE(frame.AreaFigli()->findChildren<frmElenco*>().size(), 1);
        // Arrows and type-to-jump on the record number, whichever cell was clicked.
        elenco.lvElenco->setFocus();
        elenco.lvElenco->setCurrentIndex(elenco.Modello().index(0, 2));
        QTest::keyClick(elenco.lvElenco, Qt::Key_Down);
        QCOMPARE(elenco.lvElenco->currentIndex().row(), 1);
        QTest::keyClicks(elenco.lvElenco, "3");
        QCOMPARE(elenco.lvElenco->currentIndex().row(), 2);
    }

    // Years sort as numbers (999 before 1861) and names in the program's order ("Èire" before
    // "Francia"); a second click reverses; a formula column keeps the order. Order and widths are
    // there again when the list is opened anew.
    void ordineERicordo() {
        ArchivioTemporaneo archivio;
        Prepara();
        frmMAIN frame;
        frame.show();
        frmElenco& elenco = Apri();
        ClickIntestazione(elenco, 2);
        QCOMPARE(Colonna(elenco, 2), (QStringList{"999", "1861", "2002"}));
        ClickIntestazione(elenco, 2);
        QCOMPARE(Colonna(elenco, 2), (QStringList{"2002", "1861", "999"}));
        ClickIntestazione(elenco, 5);
        QCOMPARE(Colonna(elenco, 2), (QStringList{"2002", "1861", "999"}));
        QCOMPARE(elenco.lvElenco->header()->sortIndicatorSection(), 2);
        ClickIntestazione(elenco, 1);
        QCOMPARE(Colonna(elenco, 1), (QStringList{"Èire", "Francia", "Italia"}));
        ClickIntestazione(elenco, 1);
        elenco.lvElenco->header()->resizeSection(2, 201);
        elenco.parentWidget()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!FinestraElenco(m_id));

        frmElenco& riaperto = Apri();
        QCOMPARE(Colonna(riaperto, 1), (QStringList{"Italia", "Francia", "Èire"}));
        QCOMPARE(riaperto.lvElenco->header()->sortIndicatorSection(), 1);
        QCOMPARE(riaperto.lvElenco->header()->sortIndicatorOrder(), Qt::DescendingOrder);
        QCOMPARE(riaperto.lvElenco->header()->sectionSize(2), 201);
    }

    // The filter finds a text in any column, with "%" as a plain character, and says how many rows
    // are left; clearing it shows every record again.
    void filtro() {
        ArchivioTemporaneo archivio;
        Prepara();
        frmMAIN frame;
        frame.show();
        frmElenco& elenco = Apri();
        Filtra(elenco, "86");
        QCOMPARE(Colonna(elenco, 0), QStringList{"1"});
        QCOMPARE(elenco.lblStato->text(), QStringLiteral("1 di 3 record"));
        Filtra(elenco, "ancia");
        QCOMPARE(Colonna(elenco, 0), QStringList{"3"});
        Filtra(elenco, "%");
        QCOMPARE(Colonna(elenco, 0), QStringList());
        QCOMPARE(elenco.lblStato->text(), QStringLiteral("0 di 3 record"));
        Filtra(elenco, "OTTIMO");
        QCOMPARE(Colonna(elenco, 0), (QStringList{"1", "3"}));
        QSignalSpy applicato(&elenco.Modello(), &ModelloElenco::FiltroApplicato);
        elenco.txtFiltro->clear();
        QVERIFY(applicato.wait(10000));
        QCOMPARE(elenco.lblStato->text(), QStringLiteral("3 di 3 record"));
    }

    // A double click or Enter shows the row's record in the record window; while that window is
    // entering or editing a record it is left alone and the user is told why.
    void aperturaRecord() {
        ArchivioTemporaneo archivio;
        Prepara();
        frmMAIN frame;
        frame.show();
        frmElenco& elenco = Apri();
        ClickIntestazione(elenco, 1); // Èire, Francia, Italia
        ApriRiga(elenco, 1);
        QCOMPARE(FinestraRecord().RecordCorrente, 3);
        QCOMPARE(Testo("Text1(1)"), QStringLiteral("2002"));
        QCOMPARE(frame.AreaFigli()->activeSubWindow()->widget(), &FinestraRecord());

        elenco.lvElenco->setFocus();
        elenco.lvElenco->setCurrentIndex(elenco.Modello().index(0, 0));
        QTest::keyClick(elenco.lvElenco, Qt::Key_Return);
        QCOMPARE(FinestraRecord().RecordCorrente, 2);

        FinestraRecord().Toolbar1_ButtonClick("edit");
        InterazioneScriptata script;
        script.Rispondi(Risposta::Ok);
        ApriRiga(elenco, 2);
        VERIFICA_SCRIPT(script);
        QVERIFY(script.TestiMessaggi().at(0).contains(QStringLiteral("modifica")));
        QCOMPARE(FinestraRecord().RecordCorrente, 2);
        QVERIFY(FinestraRecord().ModificaRecord);
    }

    // Records added, edited and deleted in the record window show at once, in the list's order and
    // under its filter, with the later records renumbered after a delete.
    void seguiRecord() {
        ArchivioTemporaneo archivio;
        Prepara();
        frmMAIN frame;
        frame.show();
        frmElenco& elenco = Apri();
        ClickIntestazione(elenco, 2); // 999, 1861, 2002
        frmRecord& record = FinestraRecord();
        record.Toolbar1_ButtonClick("new");
        qobject_cast<QLineEdit*>(record.Controllo("Text1(1)"))->setText("1900");
        qobject_cast<QLineEdit*>(record.Controllo("Text1(2)"))->setText("Spagna");
        record.Toolbar1_ButtonClick("ok");
        QCOMPARE(Colonna(elenco, 2), (QStringList{"999", "1861", "1900", "2002"}));
        QCOMPARE(Colonna(elenco, 0), (QStringList{"2", "1", "4", "3"}));
        QCOMPARE(elenco.lblStato->text(), QStringLiteral("4 di 4 record"));

        record.Toolbar1_ButtonClick("first");
        record.Toolbar1_ButtonClick("edit");
        qobject_cast<QLineEdit*>(record.Controllo("Text1(1)"))->setText("1000");
        record.Toolbar1_ButtonClick("ok");
        QCOMPARE(Colonna(elenco, 0), (QStringList{"2", "1", "4", "3"}));
        QCOMPARE(Colonna(elenco, 2), (QStringList{"999", "1000", "1900", "2002"}));

        Filtra(elenco, "a"); // Italia, Francia, Spagna
        QCOMPARE(Colonna(elenco, 0), (QStringList{"1", "4", "3"}));
        record.Toolbar1_ButtonClick("next"); // record 2, Èire
        InterazioneScriptata script;
        script.Rispondi(Risposta::Si);
        record.Toolbar1_ButtonClick("del");
        VERIFICA_SCRIPT(script);
        QCOMPARE(Colonna(elenco, 0), (QStringList{"1", "3", "2"}));
        QCOMPARE(Colonna(elenco, 1), (QStringList{"Italia", "Spagna", "Francia"}));
        QCOMPARE(elenco.lblStato->text(), QStringLiteral("3 di 3 record"));

        Filtra(elenco, "");
        record.Toolbar1_ButtonClick("new");
        qobject_cast<QLineEdit*>(record.Controllo("Text1(2)"))->setText("Malta");
        record.Toolbar1_ButtonClick("ok");
        Filtra(elenco, "malta");
        QCOMPARE(Colonna(elenco, 0), QStringList{"4"});
    }
};

QTEST_MAIN(TestElenco)
#include "tst_elenco.moc"
