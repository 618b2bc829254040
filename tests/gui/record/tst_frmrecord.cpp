#include "aprirecord.h"
#include "archivio.h"
#include "archiviotemporaneo.h"
#include "areamdi.h"
#include "campiprova.h"
#include "confine.h"
#include "frmrecord.h"
#include "interazionescriptata.h"
#include "listecontrolli.h"
#include "routinesql.h"

#include <QAction>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>
#include <QToolBar>

// The record window as the user meets it: opened from the collections list, inside the frame.
class TestFrmRecord final : public QObject {
    Q_OBJECT

    static frmRecord& F() { return FinestraRecord(); }

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    // Opened from the collections list, inside the frame; opened again on another collection, the same
    // window is rebuilt in browse state and its sub-window grows to show the whole layout. A failed
    // build is not shown; a failed delete keeps the record.
    void finestraRecord() {
        ArchivioTemporaneo archivio;
        AreaMdi area(QSize(560, 420));
        const qint32 dischi = CreaCollezione("Dischi", QString());
        ScriviValore(AggiungiCampo(dischi, {{"nome", "Titolo"}}), 1, "Blu notte");
        const qint32 libri = CreaCollezione("Libri", QString());
        AggiungiCampo(libri, {{"nome", "Note"}, {"tipo", "memo"}, {"width", 420}, {"height", 300}});
        const qint32 rotta = CreaCollezione("Rotta", QString());
        AggiungiCampo(rotta, {{"nome", "Strano"}, {"tipo", "pulsante"}});
        QListWidget lista;
        CaricaCollezioniInLista(lista);
        InterazioneScriptata script;
        script.Rispondi(Risposta::Ok).Rispondi(Risposta::Ok).Rispondi(Risposta::Si).Rispondi(Risposta::Ok);
        InserisciRecord(lista); // nothing chosen: a message, no window
        EseguiProtetto([rotta] { ApriRecord(rotta, 1); });
        QVERIFY(area.subWindowList().isEmpty());
        lista.setCurrentRow(0);
        InserisciRecord(lista);
        QCOMPARE(F().windowTitle() + "|" + F().Controllo("Text1(1)")->property("text").toString(),
                 QString("Record N. 1|Blu notte"));
        QVERIFY(QTest::qWaitForWindowExposed(&F()));
        Database().Esegui(
            "create trigger blocca before delete on valori begin select raise(abort, 'vietato'); end");
        F().Pulsante("del")->trigger();
        QCOMPARE(ContaRecord(dischi), 1);
        F().Toolbar1_ButtonClick("edit");
        lista.setCurrentRow(1);
        InserisciRecord(lista);
        QVERIFY(F().CurrTabella == libri && !F().ModificaRecord);
        QCOMPARE(area.subWindowList().size(), 1);
        QCoreApplication::processEvents();
        const QWidget* note = F().Controllo("Memo1(1)");
        const QMdiSubWindow* sottofinestra = area.subWindowList().at(0);
        QVERIFY(sottofinestra->rect().contains(QRect(note->mapTo(sottofinestra, QPoint()), note->size())));
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.TestiMessaggi().at(3), QString("vietato"));
        F().mnuEsci->trigger();
        QTRY_VERIFY(area.subWindowList().isEmpty());
    }
};

QTEST_MAIN(TestFrmRecord)
#include "tst_frmrecord.moc"
