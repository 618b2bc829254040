#include "aprianteprima.h"
#include "archivio.h"
#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "contenitoreanteprima.h"
#include "frmanteprima.h"
#include "interazionescriptata.h"
#include "mappacampi.h"
#include "routinesql.h"

#include <QAction>
#include <QDialog>
#include <QTest>
#include <functional>
#include <memory>

namespace {

// Every row of a table, one line each, in rowid order.
QStringList Righe(const QString& tabella) {
    QStringList righe;
    Recordset rs = Database().ApriRecordset("select * from " + tabella + " order by rowid");
    for (; !rs.Fine(); rs.Successivo()) {
        QStringList campi;
        for (int i = 0; i < rs.NumeroColonne(); ++i)
            campi << rs.Campo(i).toString();
        righe << campi.join('|');
    }
    return righe;
}

QString Disposizione(qint32 idCampo) {
    Recordset rs = Database().ApriRecordset(
        QString("select \"left\", top, width, height from campi where id=%1").arg(idCampo));
    return QString("%1,%2 %3x%4")
        .arg(rs.Campo(0).toInt())
        .arg(rs.Campo(1).toInt())
        .arg(rs.Campo(2).toInt())
        .arg(rs.Campo(3).toInt());
}

const Messaggio domanda{"La disposizione dei Controlli è stata cambiata.\r\n"
                        "Si desidera salvare le modifiche prima di chiudere?",
                        "Salvare le modifiche?", Pulsanti::SiNo, Icona::Nessuna};

} // namespace

// Opening the layout designer, saving the layout into campi and
// the question on closing.
class TestAnteprima final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    qint32 m_id = 0;
    QList<qint32> m_campi;

    // Opens the designer and acts on it while it is shown.
    void Apri(InterazioneScriptata& script, const std::function<void(frmAnteprima&)>& azione,
              const QList<Risposta>& risposte = {}) {
        script.Modale([&](QDialog& finestra) { azione(*finestra.findChild<frmAnteprima*>()); });
        for (const Risposta risposta : risposte)
            script.Rispondi(risposta);
        ApriAnteprima(m_id);
    }

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_id = CreaCollezione("Dischi", QString());
        m_campi = {AggiungiCampo(m_id, {{"nome", "Titolo"},
                                        {"etichetta", "Titolo"},
                                        {"tooltip", "Il titolo"},
                                        {"left", 20},
                                        {"top", 40},
                                        {"width", 200},
                                        {"height", 22}}),
                   AggiungiCampo(m_id, {{"nome", "Anno"}, {"left", 240}, {"top", 40}, {"width", 60}}),
                   AggiungiCampo(m_id, {{"nome", "Copertina"},
                                        {"tipo", "image"},
                                        {"special", "TRUE"},
                                        {"left", 20},
                                        {"top", 100},
                                        {"width", 120},
                                        {"height", 90}})};
        for (int n = 1; n <= 2; ++n)
            for (const qint32 campo : m_campi)
                ScriviValore(campo, n, QString("valore %1").arg(n));
    }

    void cleanup() { m_archivio.reset(); }

    void apertura() {
        InterazioneScriptata script;
        script.Rispondi(Risposta::Ok);
        ApriAnteprima(-1);
        VERIFICA_SCRIPT(script);
        QCOMPARE(Descrivi(script.Richieste().at(0).messaggio),
                 Descrivi({"Selezionare una Collezione dall'apposita Lista", "Orvix"}));

        // Built like the record window but for the toolbar's shift and the tooltips.
        Apri(script, [this](frmAnteprima& a) {
            QCOMPARE(a.IdCollezione, m_id);
            QCOMPARE(a.Controllo("Text1(1)")->geometry(), QRect(20, 40, 200, 22));
            QCOMPARE(a.Controllo("Text1(1)")->toolTip(), QString());
            QCOMPARE(a.Controllo("Label1(1)")->pos(), QPoint(20, 20));
            QCOMPARE(a.Controllo("Image1(1)")->geometry(), QRect(20, 100, 120, 90));
            QCOMPARE(IdCampo(m_id, "Image1(1)"), m_campi.at(2));
            a.mnuEsci->trigger();
        });
        VERIFICA_SCRIPT(script);
    }

    // The layout goes into campi, row by row through the field map; values are never touched.
    void salvataggio() {
        const qint32 altra = CreaCollezione("Libri", QString());
        const qint32 estraneo = AggiungiCampo(altra, {{"nome", "Autore"}});
        const QStringList valori = Righe("valori");
        const QString anno = Disposizione(m_campi.at(1));
        InterazioneScriptata script;
        Apri(script, [&](frmAnteprima& a) {
            a.Form_DragDrop(*a.Controllo("Text1(1)"), QPoint(300, 211));
            a.SelezionaControllo(*a.Controllo("Image1(1)"));
            a.mnuAumentaLarghezza50->trigger();
            a.SelezionaControllo(*a.Controllo("Text1(2)"));
            a.mnuAUmentaAltezza10->trigger();
            // A control the map does not know is skipped, and a stale entry never reaches another
            // collection's field.
            RegistraCampo(m_id, "Text1(2)", 0);
            RegistraCampo(m_id, "Image1(1)", estraneo);
            a.mnuSalva->trigger();
            QVERIFY(a.Salvato());
            a.mnuEsci->trigger();
        });
        VERIFICA_SCRIPT(script);
        QCOMPARE(Disposizione(m_campi.at(0)), QString("200,200 250x32"));
        QCOMPARE(Disposizione(m_campi.at(1)), anno);
        QCOMPARE(Disposizione(m_campi.at(2)), QString("20,100 120x90"));
        QCOMPARE(Disposizione(estraneo), QString("10,30 120x21"));
        QCOMPARE(Righe("valori"), valori);
    }

    // A save that fails half-way stores none of it, says why, and leaves the layout to save.
    void salvataggioInterrotto() {
        Database().Esegui("create trigger blocca before update on campi when new.nome='Copertina' "
                          "begin select raise(abort, 'vietato'); end");
        const QStringList campi = Righe("campi");
        InterazioneScriptata script;
        Apri(script,
             [](frmAnteprima& a) {
                 a.Form_DragDrop(*a.Controllo("Text1(1)"), QPoint(300, 300));
                 a.Form_DragDrop(*a.Controllo("Text1(2)"), QPoint(400, 300));
                 a.mnuSalva->trigger();
                 QVERIFY(!a.Salvato());
                 a.mnuEsci->trigger();
             },
             {Risposta::Ok, Risposta::No});
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.TestiMessaggi().at(0), QString("vietato"));
        QCOMPARE(Righe("campi"), campi);
    }

    void chiusura_data() {
        QTest::addColumn<bool>("seleziona");
        QTest::addColumn<QString>("comando"); // empty: only selecting
        QTest::addColumn<QString>("modo");
        QTest::addColumn<int>("risposta"); // -1: nothing asked
        QTest::addColumn<QString>("salvato");
        const int si = int(Risposta::Si);
        const int no = int(Risposta::No);
        const QString esci = "mnuEsci";
        const QString prima = "20,40 200x22";
        QTest::newRow("solo selezione") << true << QString() << esci << -1 << prima;
        QTest::newRow("salvata dal menu") << true << QString("mnuSalva") << esci << -1 << prima;
        QTest::newRow("allinea senza selezione, No")
            << false << QString("mnuAllineaAlto") << esci << no << prima;
        QTest::newRow("più alto, Sì")
            << true << QString("mnuAUmentaAltezza10") << esci << si << "20,40 200x32";
        QTest::newRow("più alto, No") << true << QString("mnuAUmentaAltezza10") << esci << no << prima;
        QTest::newRow("più largo, chiusa, Sì")
            << true << QString("mnuAumentaLarghezza10") << QString("close") << si << "20,40 210x22";
        QTest::newRow("più largo, Esc, Sì")
            << true << QString("mnuAumentaLarghezza10") << QString("Esc") << si << "20,40 210x22";
    }

    void chiusura() {
        QFETCH(bool, seleziona);
        QFETCH(QString, comando);
        QFETCH(QString, modo);
        QFETCH(int, risposta);
        QFETCH(QString, salvato);
        InterazioneScriptata script;
        Apri(
            script,
            [&](frmAnteprima& a) {
                if (seleziona)
                    a.SelezionaControllo(*a.Controllo("Text1(1)"));
                if (!comando.isEmpty())
                    a.findChild<QAction*>(comando)->trigger();
                if (modo == "mnuEsci")
                    a.mnuEsci->trigger();
                else if (modo == "close")
                    a.window()->close();
                else
                    QTest::keyClick(a.window(), Qt::Key_Escape);
                QVERIFY(!a.window()->isVisible()); // whatever the answer, the window goes
            },
            risposta >= 0 ? QList<Risposta>{Risposta(risposta)} : QList<Risposta>());
        VERIFICA_SCRIPT(script);
        if (risposta >= 0)
            QCOMPARE(Descrivi(script.Richieste().at(1).messaggio), Descrivi(domanda));
        QCOMPARE(Disposizione(m_campi.at(0)), salvato);
    }
};

QTEST_MAIN(TestAnteprima)
#include "tst_anteprima.moc"
