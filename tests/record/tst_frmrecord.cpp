#include "aprirecord.h"
#include "archivio.h"
#include "archiviotemporaneo.h"
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
#include <QPainter>
#include <QTest>
#include <QToolBar>
#include <memory>

// The frame's part: child windows go into an MDI area.
class OspiteMdi final : public OspiteFinestre {
public:
    explicit OspiteMdi(QMdiArea& area)
        : m_area(area) {
        ImpostaOspiteFinestre(this);
    }
    ~OspiteMdi() override { ImpostaOspiteFinestre(nullptr); }
    void MostraFiglia(QWidget* finestra) override {
        if (!finestra->parentWidget())
            m_area.addSubWindow(finestra);
        finestra->show();
    }

private:
    QMdiArea& m_area;
};

// The record window as the user meets it: opened from the collections list, inside the frame.
class TestFrmRecord final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    std::unique_ptr<QMdiArea> m_area;
    std::unique_ptr<OspiteMdi> m_ospite;

    frmRecord& F() { return FinestraRecord(); }

    // Every shown toolbar button draws more than its own background.
    void VerificaIcone() {
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
    }

    void Fotografa(const QString& nome) {
        const QString cartella = qEnvironmentVariable("ORVIX_SCHERMATE");
        QCoreApplication::processEvents(); // the toolbar lays out the buttons it shows
        if (!cartella.isEmpty())
            QVERIFY(m_area->grab().save(QDir(cartella).filePath(nome)));
    }

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_area = std::make_unique<QMdiArea>();
        m_area->resize(560, 420);
        m_area->show();
        m_ospite = std::make_unique<OspiteMdi>(*m_area);
    }

    void cleanup() {
        m_ospite.reset();
        m_area.reset();
        m_archivio.reset();
    }

    void barraDegliStrumenti() {
        QCOMPARE(F().objectName(), QString("frmRecord"));
        QCOMPARE(F().windowTitle(), QString("Record"));
        const QStringList attesi{"first:Vai al Primo Record",
                                 "prev:Vai al Record Precedente",
                                 "next:Vai al Record Successivo",
                                 "last:Vai all'Ultimo Record",
                                 "new:Inserisci un Nuovo Record",
                                 "del:Elimina il Record Corrente",
                                 "edit:Modifica il Record Corrente",
                                 "ok:Conferma",
                                 "no:Annulla"};
        QStringList trovati;
        for (const QAction* azione : F().Toolbar1->actions())
            if (!azione->isSeparator())
                trovati << azione->objectName() + ":" + azione->toolTip();
        QCOMPARE(trovati, attesi);
        const QList<QMenu*> menu = F().MenuFinestra();
        QCOMPARE(menu.size(), 1);
        QCOMPARE(menu.at(0)->title(), QString("File"));
        QCOMPARE(menu.at(0)->actions().size(), 1);
        QCOMPARE(menu.at(0)->actions().at(0)->text(), QString("Esci"));
        delete &F();
    }

    void inserisciRecord() {
        const qint32 dischi = CreaCollezione("Dischi", QString());
        ScriviValore(AggiungiCampo(dischi, {{"nome", "Titolo"}, {"left", 10}, {"top", 10}, {"width", 80}}), 1,
                     "Uno");
        const qint32 libri = CreaCollezione("Libri", QString());
        AggiungiCampo(
            libri,
            {{"nome", "Note"}, {"tipo", "memo"}, {"left", 40}, {"top", 30}, {"width", 420}, {"height", 300}});
        QListWidget lista;
        CaricaCollezioniInLista(lista);
        InterazioneScriptata script;
        script.Rispondi(Risposta::Ok);
        InserisciRecord(lista);
        VERIFICA_SCRIPT(script);
        const Messaggio messaggio = script.Richieste().at(0).messaggio;
        QCOMPARE(messaggio.testo, QString("Selezionare una Collezione dall'apposita Lista"));
        QCOMPARE(messaggio.titolo, QString("Orvix"));
        QCOMPARE(messaggio.pulsanti, Pulsanti::Ok);
        QCOMPARE(messaggio.icona, Icona::Nessuna);
        QVERIFY(m_area->subWindowList().isEmpty());

        lista.setCurrentRow(0);
        InserisciRecord(lista);
        QCOMPARE(F().CurrTabella, dischi);
        QCOMPARE(F().RecordCorrente, 1);
        QCOMPARE(F().windowTitle(), QString("Record N. 1"));
        F().Toolbar1_ButtonClick("new");
        QCoreApplication::processEvents();
        QVERIFY(F().Toolbar1->widgetForAction(F().Pulsante("no"))->isVisible()); // not behind an overflow
        lista.setCurrentRow(1);
        InserisciRecord(lista); // the same window, rebuilt, in browse state
        QCOMPARE(F().CurrTabella, libri);
        QVERIFY(!F().NuovoRecord);
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
        QCOMPARE(script.Richieste().at(0).messaggio.icona, Icona::Critica);
        QVERIFY(script.Richieste().at(0).messaggio.testo.contains("\"pulsante\""));
        QCOMPARE(script.Richieste().at(2).messaggio.testo, QString("vietato"));
        QCOMPARE(ContaRecord(dischi), 1);
        delete &F();
    }

    // A field of every kind, browsed and then edited: what a person sees.
    void aspetto() {
        const qint32 id = CreaCollezione("Dischi", QString());
        const QString figura = m_archivio->Cartella() + "/copertina.png";
        QImage copertina(160, 120, QImage::Format_RGB32);
        copertina.fill(QColor(40, 70, 140));
        QPainter(&copertina).fillRect(50, 30, 60, 60, QColor(240, 200, 60));
        copertina.save(figura);
        const QList<QPair<QVariantHash, QString>> campi{
            {{{"etichetta", "Titolo"}, {"left", 16}, {"top", 30}, {"width", 260}, {"height", 22}},
             "Kind of Blue"},
            {{{"etichetta", "Genere"},
              {"tipo", "combo"},
              {"special", "Rock|Jazz"},
              {"left", 16},
              {"top", 80},
              {"width", 160},
              {"height", 24}},
             "1"},
            {{{"nome", "Ascoltato"},
              {"tipo", "checkbox"},
              {"left", 190},
              {"top", 80},
              {"width", 110},
              {"height", 24}},
             "1"},
            {{{"etichetta", "Voto (1-10)"},
              {"tipo", "slider"},
              {"special", "1|10"},
              {"left", 16},
              {"top", 130},
              {"width", 260},
              {"height", 36}},
             "9"},
            {{{"etichetta", "Note"},
              {"tipo", "memo"},
              {"left", 16},
              {"top", 190},
              {"width", 260},
              {"height", 70}},
             "Registrato nel 1959.\nRistampa 2009."},
            {{{"etichetta", "Formato"},
              {"tipo", "list"},
              {"special", "CD|Vinile|Cassetta"},
              {"left", 300},
              {"top", 30},
              {"width", 160},
              {"height", 70}},
             "1"},
            {{{"etichetta", "Copertina"},
              {"tipo", "image"},
              {"special", "TRUE"},
              {"left", 300},
              {"top", 130},
              {"width", 160},
              {"height", 130}},
             figura}};
        for (const auto& [colonne, valore] : campi)
            ScriviValore(AggiungiCampo(id, colonne), 1, valore);
        ApriRecord(id, 1);
        QVERIFY(QTest::qWaitForWindowExposed(&F()));
        for (const QWidget* controllo : F().ControlliCampo())
            QVERIFY2(F().rect().contains(controllo->geometry()), qPrintable(controllo->objectName()));
        Fotografa("frmrecord-sfoglia.png");
        VerificaIcone();
        F().Toolbar1_ButtonClick("edit");
        Fotografa("frmrecord-modifica.png");
        VerificaIcone();
        delete &F();
    }
};

QTEST_MAIN(TestFrmRecord)
#include "tst_frmrecord.moc"
