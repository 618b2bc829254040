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
#include "stampatesto.h"

#include <QAction>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPrinter>
#include <QSignalSpy>
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

    // In browse, Ctrl+Home, PgUp, PgDn and Ctrl+End move like the toolbar from a text box; a memo keeps
    // them, and so does editing. Ctrl+F and Ctrl+P are the File menu's, from anywhere in the window.
    void tastiDelRecord() {
        ArchivioTemporaneo archivio;
        AreaMdi area(QSize(560, 420));
        const qint32 dischi = CreaCollezione("Dischi", QString());
        const qint32 titolo = AggiungiCampo(dischi, {{"nome", "Titolo"}});
        AggiungiCampo(dischi, {{"nome", "Note"}, {"tipo", "memo"}, {"top", 60}});
        for (int n = 1; n <= 4; ++n)
            ScriviValore(titolo, n, "Disco " + QString::number(n));
        ApriRecord(dischi, 1);
        QVERIFY(QTest::qWaitForWindowExposed(&F()));
        QWidget* testo = F().Controllo("Text1(1)");
        QWidget* memo = F().Controllo("Memo1(1)");
        testo->setFocus();
        QList<qint32> visti;
        for (const QKeyCombination tasti :
             QList<QKeyCombination>{Qt::Key_PageDown, Qt::Key_PageDown, Qt::CTRL | Qt::Key_End,
                                    Qt::Key_PageUp, Qt::CTRL | Qt::Key_Home}) {
            QTest::keyClick(testo, tasti.key(), tasti.keyboardModifiers());
            visti << F().RecordCorrente;
        }
        QCOMPARE(visti, (QList<qint32>{2, 3, 4, 3, 1}));
        memo->setFocus();
        QTest::keyClick(memo, Qt::Key_PageDown);
        QTest::keyClick(memo, Qt::Key_End, Qt::ControlModifier);
        testo->setFocus();
        F().Toolbar1_ButtonClick("edit");
        QTest::keyClick(testo, Qt::Key_PageDown);
        QCOMPARE(QString::number(F().RecordCorrente) + F().windowTitle(), QString("1Record N. 1"));
        F().Toolbar1_ButtonClick("no");

        QCOMPARE(F().mnuTrova->shortcut(), QKeySequence(QKeySequence::Find));
        QCOMPARE(F().mnuStampa->shortcut(), QKeySequence(QKeySequence::Print));
        const QString pdf = QDir(archivio.Cartella()).filePath("record.pdf");
        ImpostaStampantePredefinita([pdf](QPrinter& stampante) {
            stampante.setOutputFormat(QPrinter::PdfFormat);
            stampante.setOutputFileName(pdf);
        });
        QTest::keyClick(memo, Qt::Key_P, Qt::ControlModifier);
        ImpostaStampantePredefinita({});
        QVERIFY(QFile::exists(pdf));
        QSignalSpy trova(F().mnuTrova, &QAction::triggered);
        QTest::keyClick(testo, Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(trova.size(), 1);
    }
};

QTEST_MAIN(TestFrmRecord)
#include "tst_frmrecord.moc"
