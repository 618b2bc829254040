#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "interazionescriptata.h"
#include "letture.h"

#include "aprirecord.h"
#include "apriricerca.h"
#include "archivio.h"
#include "avvio.h"
#include "form1.h"
#include "frmanteprima.h"
#include "frmfind.h"
#include "frmmain.h"
#include "frmrecord.h"
#include "routinesql.h"

#include <QtTest>
#include <QtWidgets>

namespace {

QString Pagina(const char* nome) {
    return QCoreApplication::applicationDirPath() + QStringLiteral("/guidaorvix/") + QLatin1String(nome);
}

// The address the shell was asked to open by F1 pressed on `dove`; empty when it was not asked.
QString F1(InterazioneScriptata& script, QWidget* dove) {
    script.Shell();
    const auto prima = script.Richieste().size();
    QTest::keyClick(dove, Qt::Key_F1);
    const auto& richieste = script.Richieste();
    return richieste.size() == prima + 1 && richieste.last().tipo == InterazioneScriptata::Tipo::Shell
               ? richieste.last().predefinito
               : QString();
}

// The real start on a store holding one collection of one field and one record, with the collection chosen.
struct Avviato {
    Avviato() {
        dischi = CreaCollezione(QStringLiteral("Dischi"), QString());
        titolo = AggiungiCampo(dischi, {{"nome", "Titolo"}});
        ScriviValore(titolo, 1, QStringLiteral("Blue Train"));
        frame = EseguiAvvio(archivio.Cartella());
        IstanzaForm1()->List1->setCurrentRow(0);
    }
    ~Avviato() { delete frame.data(); }
    ArchivioTemporaneo archivio;
    InterazioneScriptata script;
    qint32 dischi = -1, titolo = -1;
    QPointer<frmMAIN> frame;
};

} // namespace

// Keys that work whatever window is in front and whatever the menu bar shows.
class TestTasti final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    // F1 opens, through the shell, the guide's page of the window it is pressed in: child windows, the
    // frame's own parts (as the active child), modal windows, and the backup's file dialog by its title.
    void f1OpensTheGuideAtTheWindowsPage() {
        Avviato a;
        QCOMPARE(F1(a.script, IstanzaForm1()->List1), Pagina("index.html"));

        ApriRecord(a.dischi, 1);
        QWidget* record = a.frame->findChild<frmRecord*>();
        QVERIFY(record && a.frame->AreaFigli()->activeSubWindow()->widget() == record);
        QCOMPARE(F1(a.script, record->findChild<QLineEdit*>()), Pagina("record.html"));
        QCOMPARE(F1(a.script, a.frame->statusBar()), Pagina("record.html"));

        ApriRicerca(a.dischi);
        QCOMPARE(F1(a.script, FinestraRicerca()->Text1), Pagina("ricerca.html"));

        QString nelDisegno;
        a.script.Modale(
            [&](QDialog& finestra) { nelDisegno = F1(a.script, finestra.findChild<frmAnteprima*>()); });
        IstanzaForm1()->mnuAnteprima->trigger();
        QCOMPARE(nelDisegno, Pagina("disegno.html"));

        QFileDialog scelta(a.frame, QStringLiteral("File di Backup..."));
        scelta.setOption(QFileDialog::DontUseNativeDialog);
        scelta.setModal(true);
        scelta.show();
        QCOMPARE(F1(a.script, scelta.focusWidget() ? scelta.focusWidget() : &scelta), Pagina("backup.html"));
        VERIFICA_SCRIPT(a.script);
    }

    // Ctrl+Q in a record window closes the frame and the store, though the record window's menus hide "Esci".
    void ctrlQQuitsFromAChildWindow() {
        Avviato a;
        ApriRecord(a.dischi, 1);
        QTest::keyClick(a.frame->findChild<frmRecord*>(), Qt::Key_Q, Qt::ControlModifier);
        QTRY_VERIFY(!a.frame);
        QVERIFY(!Database().Aperta());
    }

    // In the modal layout designer with a moved control, Ctrl+Q closes the designer, which asks whether to
    // save (yes: the layout is stored), then the frame.
    void ctrlQInAModalWindowClosesItWithItsQuestionThenTheFrame() {
        Avviato a;
        InterazioneScriptata& script = a.script;
        script.Modale([](QDialog& finestra) {
            auto* disegno = finestra.findChild<frmAnteprima*>();
            disegno->Form_DragDrop(*disegno->ControlliCampo().at(0), QPoint(300, 200));
            QTest::keyClick(disegno, Qt::Key_Q, Qt::ControlModifier);
            QVERIFY(!finestra.isVisible());
        });
        script.Rispondi(Risposta::Si);
        IstanzaForm1()->mnuAnteprima->trigger();
        QTRY_VERIFY(!a.frame);
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.Richieste().at(1).messaggio.titolo, QStringLiteral("Salvare le modifiche?"));
        ApriDatabase(a.archivio.Cartella());
        QCOMPARE(Valori(QStringLiteral("select \"left\" from campi where id=") + QString::number(a.titolo)),
                 "240");
        ChiudiDatabase();
    }
};

QTEST_MAIN(TestTasti)
#include "tst_tasti.moc"
