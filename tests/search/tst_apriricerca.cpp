#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "interazionescriptata.h"

#include "aprirecord.h"
#include "apriricerca.h"
#include "form1.h"
#include "frmfind.h"
#include "frmmain.h"
#include "frmrecord.h"
#include "listecontrolli.h"
#include "routinesql.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPointer>
#include <QtTest>
#include <memory>

// Opening the search window from the collections window and from the record window's "Trova...".
class TestApriRicerca final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    std::unique_ptr<frmMAIN> m_frame;
    qint32 m_dischi = 0;
    qint32 m_libri = 0;

    Form1& Collezioni() { return *IstanzaForm1(); }

    // Chooses a collection in the collections window as a click would.
    void Scegli(qint32 idCollezione) {
        for (int riga = 0; riga < Collezioni().List1->count(); ++riga)
            if (DatoElemento(*Collezioni().List1, riga) == idCollezione)
                Collezioni().List1->setCurrentRow(riga);
    }

    QStringList VociScelta() {
        QStringList voci;
        for (int i = 0; i < FinestraRicerca()->Combo1->count(); ++i)
            voci << FinestraRicerca()->Combo1->itemText(i);
        return voci;
    }

    // The search windows the frame shows.
    int RicercheNelFrame() {
        int quante = 0;
        for (const QMdiSubWindow* figlio : m_frame->AreaFigli()->subWindowList())
            quante += qobject_cast<const frmFind*>(figlio->widget()) ? 1 : 0;
        return quante;
    }

private Q_SLOTS:
    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_dischi = CreaCollezione("Dischi", QString());
        AggiungiCampo(m_dischi, {{"nome", "Titolo"}});
        AggiungiCampo(m_dischi, {{"nome", "Autore"}});
        m_libri = CreaCollezione("Libri", QString());
        AggiungiCampo(m_libri, {{"nome", "Editore"}});
        CreaCollezione("Vuota", QString());
        m_frame = std::make_unique<frmMAIN>();
        CaricaCollezioniInLista(*Collezioni().List1);
        m_frame->show();
    }

    void cleanup() {
        m_frame.reset();
        m_archivio.reset();
    }

    void nienteDaCercare_data() {
        QTest::addColumn<QString>("collezione");
        QTest::addColumn<QString>("messaggio");
        QTest::newRow("no collection")
            << QString() << "Selezionare una Collezione dall'apposita Lista | Orvix | 1";
        QTest::newRow("no field") << "Vuota"
                                  << "Nella collezione non è presente nemmeno un campo! | Orvix | 1";
    }

    void nienteDaCercare() {
        QFETCH(QString, collezione);
        QFETCH(QString, messaggio);
        if (!collezione.isEmpty())
            Collezioni().List1->setCurrentItem(
                Collezioni().List1->findItems(collezione, Qt::MatchExactly).at(0));
        InterazioneScriptata script;
        script.Rispondi(Risposta::Ok);
        Collezioni().mnuEseguiRicerca->trigger();
        VERIFICA_SCRIPT(script);
        QCOMPARE(Descrivi(script.Richieste().at(0).messaggio), messaggio);
        QVERIFY(!FinestraRicerca());
    }

    void daCollezioni() {
        Scegli(m_dischi);
        Collezioni().mnuEseguiRicerca->trigger();
        QVERIFY(FinestraRicerca());
        QCOMPARE(FinestraRicerca()->IdCollezione, m_dischi);
        QCOMPARE(VociScelta(), (QStringList{"Titolo", "Autore"}));
        QCOMPARE(FinestraRicerca()->Combo1->currentIndex(), 0);
        QCOMPARE(RicercheNelFrame(), 1);
        QCOMPARE(m_frame->AreaFigli()->activeSubWindow()->widget(), FinestraRicerca());
    }

    // "Trova..." searches the record window's own collection, whatever the collections window shows.
    void daRecord() {
        Scegli(m_dischi);
        ApriRecord(m_libri, 1);
        QCOMPARE(FinestraRecord().mnuFile->actions().at(0), FinestraRecord().mnuTrova);
        FinestraRecord().mnuTrova->trigger();
        QVERIFY(FinestraRicerca());
        QCOMPARE(FinestraRicerca()->IdCollezione, m_libri);
        QCOMPARE(VociScelta(), QStringList{"Editore"});
        QCOMPARE(FinestraRicerca()->Combo1->currentIndex(), 0);
    }

    void riaperturaSostituisce_data() {
        QTest::addColumn<bool>("dalRecord");
        QTest::newRow("from the collections window") << false;
        QTest::newRow("from the record window") << true;
    }

    void riaperturaSostituisce() {
        QFETCH(bool, dalRecord);
        Scegli(m_dischi);
        Collezioni().mnuEseguiRicerca->trigger();
        const QPointer<frmFind> prima = FinestraRicerca();
        prima->Text1->setText("Blue");
        if (dalRecord) {
            ApriRecord(m_libri, 1);
            FinestraRecord().mnuTrova->trigger();
        } else {
            Scegli(m_libri);
            Collezioni().mnuEseguiRicerca->trigger();
        }
        QVERIFY(prima.isNull());
        QCOMPARE(RicercheNelFrame(), 1);
        QCOMPARE(VociScelta(), QStringList{"Editore"});
        QCOMPARE(FinestraRicerca()->Text1->text(), QString());
    }
};

QTEST_MAIN(TestApriRicerca)
#include "tst_apriricerca.moc"
