#include "aprirecord.h"
#include "archivio.h"
#include "archiviotemporaneo.h"
#include "areamdi.h"
#include "campiprova.h"
#include "confine.h"
#include "finestre.h"
#include "frmrecord.h"
#include "interazionescriptata.h"
#include "listecontrolli.h"
#include "routinesql.h"

#include <QAction>
#include <QDir>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QTest>
#include <QToolBar>
#include <memory>

// The record window as the user meets it: opened from the collections list, inside the frame.
class TestFrmRecord final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    std::unique_ptr<AreaMdi> m_area;

    frmRecord& F() { return FinestraRecord(); }

    // What a person sees: every shown toolbar button draws more than its own background. With
    // ORVIX_SCHERMATE set to a folder, the frame is also saved there as a picture for review.
    void Guarda(const QString& schermata) {
        QCoreApplication::processEvents(); // the toolbar lays out the buttons it shows
        for (QAction* azione : F().Toolbar1->actions()) {
            if (azione->isSeparator() || !azione->isVisible())
                continue;
            const QImage pulsante = F().Toolbar1->widgetForAction(azione)->grab().toImage();
            QSet<QRgb> colori;
            for (int y = 0; y < pulsante.height(); ++y)
                for (int x = 0; x < pulsante.width(); ++x)
                    colori.insert(pulsante.pixel(x, y));
            QVERIFY2(colori.size() > 8, qPrintable(azione->objectName()));
        }
        if (const QString cartella = qEnvironmentVariable("ORVIX_SCHERMATE"); !cartella.isEmpty())
            QVERIFY(m_area->grab().save(QDir(cartella).filePath(schermata)));
    }

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_area = std::make_unique<AreaMdi>(QSize(560, 420));
    }

    void cleanup() {
        m_area.reset();
        m_archivio.reset();
    }

    // Opened from the collections list: the toolbar and menus, then a field of every kind, browsed and
    // edited as a person sees it.
    void inserisciRecord() {
        const qint32 dischi = CreaCollezione("Dischi", QString());
        const QString figura = m_archivio->Cartella() + "/copertina.png";
        QImage copertina(160, 120, QImage::Format_RGB32);
        copertina.fill(QColor(40, 70, 140));
        QVERIFY(copertina.save(figura));
        const QStringList nomi{"Titolo", "Genere", "Ascoltato", "Voto", "Note", "Formato", "Copertina"};
        const QStringList tipi{"textbox", "combo", "checkbox", "slider", "memo", "list", "image"};
        const QStringList speciali{"", "Rock|Jazz", "", "1|10", "", "CD|Vinile|Cassetta", "TRUE"};
        const QStringList valori{"Blu notte", "1", "1", "9", "Prima stampa.\nRistampa.", "1", figura};
        for (int i = 0; i < nomi.size(); ++i) {
            QVariantHash campo{{"nome", nomi.at(i)}, {"etichetta", nomi.at(i)}, {"tipo", tipi.at(i)}};
            campo.insert({{"special", speciali.at(i)}, {"left", 16 + i / 4 * 280}, {"top", 30 + i % 4 * 70}});
            campo.insert({{"width", 250}, {"height", i < 4 ? 26 : 50}});
            ScriviValore(AggiungiCampo(dischi, campo), 1, valori.at(i));
        }
        const qint32 libri = CreaCollezione("Libri", QString());
        AggiungiCampo(libri, {{"nome", "Note"}, {"tipo", "memo"}, {"width", 420}, {"height", 300}});
        QListWidget lista;
        CaricaCollezioniInLista(lista);
        InterazioneScriptata script;
        script.Rispondi(Risposta::Ok);
        InserisciRecord(lista);
        VERIFICA_SCRIPT(script);
        QCOMPARE(Descrivi(script.Richieste().at(0).messaggio),
                 Descrivi({"Selezionare una Collezione dall'apposita Lista", "Orvix"}));
        QVERIFY(m_area->subWindowList().isEmpty());
        QCOMPARE(F().windowTitle(), QString("Record"));
        QStringList pulsanti;
        for (const QAction* azione : F().Toolbar1->actions())
            pulsanti << (azione->isSeparator() ? QString("|")
                                               : azione->objectName() + ":" + azione->toolTip());
        QCOMPARE(pulsanti.join(", "), "first:Vai al Primo Record, prev:Vai al Record Precedente, "
                                      "next:Vai al Record Successivo, last:Vai all'Ultimo Record, |, "
                                      "new:Inserisci un Nuovo Record, del:Elimina il Record Corrente, "
                                      "edit:Modifica il Record Corrente, |, ok:Conferma, no:Annulla");
        QCOMPARE(F().MenuFinestra(), (QList<QMenu*>{F().mnuFile, F().mnuOpzioni}));
        QCOMPARE(F().mnuFile->actions(),
                 (QList<QAction*>{F().mnuTrova, F().mnuClipBoard, F().mnuStampa, F().mnuEsci}));

        lista.setCurrentRow(0);
        InserisciRecord(lista);
        QCOMPARE(F().CurrTabella, dischi);
        QCOMPARE(F().windowTitle(), QString("Record N. 1"));
        QVERIFY(QTest::qWaitForWindowExposed(&F()));
        Guarda("frmrecord-sfoglia.png");
        F().Toolbar1_ButtonClick("edit");
        Guarda("frmrecord-modifica.png");
        QVERIFY(F().Toolbar1->widgetForAction(F().Pulsante("no"))->isVisible()); // not behind an overflow
        lista.setCurrentRow(1);
        InserisciRecord(lista); // the same window, rebuilt, in browse state
        QCOMPARE(F().CurrTabella, libri);
        QVERIFY(!F().ModificaRecord);
        QCOMPARE(m_area->subWindowList().size(), 1);
        QCoreApplication::processEvents();
        // The sub-window grows with the layout: the whole memo shows.
        const QWidget* note = F().Controllo("Memo1(1)");
        const QMdiSubWindow* sottofinestra = m_area->subWindowList().at(0);
        QVERIFY(sottofinestra->rect().contains(QRect(note->mapTo(sottofinestra, QPoint()), note->size())));

        QPointer<frmRecord> finestra = &F();
        F().mnuEsci->trigger();
        QTRY_VERIFY(finestra.isNull());
        QTRY_VERIFY(m_area->subWindowList().isEmpty());
    }

    void erroriMostratiDalConfine() {
        const qint32 rotta = CreaCollezione("Rotta", QString());
        AggiungiCampo(rotta, {{"nome", "Strano"}, {"tipo", "pulsante"}});
        const qint32 dischi = CreaCollezione("Dischi", QString());
        ScriviValore(AggiungiCampo(dischi, {{"nome", "Titolo"}}), 1, "Unico");
        InterazioneScriptata script;
        script.Rispondi(Risposta::Ok).Rispondi(Risposta::Si).Rispondi(Risposta::Ok);
        EseguiProtetto([rotta] { ApriRecord(rotta, 1); });
        QVERIFY(m_area->subWindowList().isEmpty()); // a failed build is not shown
        ApriRecord(dischi, 1);
        Database().Esegui(
            "create trigger blocca before delete on valori begin select raise(abort, 'vietato'); end");
        F().Pulsante("del")->trigger();
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.TestiMessaggi().at(2), QString("vietato"));
        QCOMPARE(ContaRecord(dischi), 1);
        delete &F();
    }
};

QTEST_MAIN(TestFrmRecord)
#include "tst_frmrecord.moc"
