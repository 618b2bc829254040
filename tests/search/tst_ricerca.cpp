#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "interazionescriptata.h"

#include "apriricerca.h"
#include "archivio.h"
#include "frmfind.h"
#include "frmmain.h"
#include "frmrecord.h"
#include "risultatiricerca.h"
#include "routinesql.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QToolTip>
#include <QTreeView>
#include <QtTest>
#include <memory>

// Searching from the window as a person does: a field chosen, a text typed, "VAI" pressed.
class TestRicerca final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    std::unique_ptr<frmMAIN> m_frame;
    qint32 m_dischi = 0;
    qint32 m_titolo = 0;
    qint32 m_citta = 0;

    frmFind& F() { return *FinestraRicerca(); }

    void Cerca(const QString& campo, const QString& testo, bool esatta) {
        F().Combo1->setCurrentText(campo);
        F().Text1->setText(testo);
        F().Esatta->setChecked(esatta);
        F().cmdGO->click();
    }

    // Each hit as "value:record", in the list's order.
    QStringList Trovati() {
        const RisultatiRicerca& risultati = F().Risultati();
        QStringList trovati;
        for (int riga = 0; riga < risultati.rowCount(); ++riga)
            trovati << risultati.index(riga, 0).data().toString() + ":" +
                           risultati.index(riga, 1).data().toString();
        return trovati;
    }

    QString Intestazione(int colonna) {
        return F().Risultati().headerData(colonna, Qt::Horizontal).toString();
    }

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_dischi = CreaCollezione("Dischi", QString());
        m_titolo = AggiungiCampo(m_dischi, {{"nome", "Titolo"}});
        m_citta = AggiungiCampo(m_dischi, {{"nome", "Città"}, {"top", 60}});
        const QStringList titoli{"Blue Train", "Blue", "Kind of Blue", "Giant Steps", "blue", "Bluesette"};
        const QStringList citta{"CITTÀ", "Città di Castello", "Roma", "Milano", "Torino", "Bari"};
        for (int i = 0; i < titoli.size(); ++i) {
            ScriviValore(m_titolo, i + 1, titoli.at(i));
            ScriviValore(m_citta, i + 1, citta.at(i));
        }
        m_frame = std::make_unique<frmMAIN>();
        m_frame->show();
        ApriRicerca(m_dischi);
        QVERIFY(QTest::qWaitForWindowExposed(&F()));
    }

    void cleanup() {
        m_frame.reset();
        m_archivio.reset();
    }

    void cerca_data() {
        QTest::addColumn<QString>("campo");
        QTest::addColumn<QString>("testo");
        QTest::addColumn<bool>("esatta");
        QTest::addColumn<QStringList>("trovati");
        QTest::newRow("contained, any case")
            << "Titolo"
            << "BLUE" << false
            << QStringList{"Blue Train:1", "Blue:2", "Kind of Blue:3", "blue:5", "Bluesette:6"};
        QTest::newRow("whole value, any case") << "Titolo"
                                               << "bLuE" << true << QStringList{"Blue:2", "blue:5"};
        QTest::newRow("the text as typed, blanks too") << "Titolo"
                                                       << "Blue " << true << QStringList{};
        QTest::newRow("no hit") << "Titolo"
                                << "Coltrane" << false << QStringList{};
        QTest::newRow("accented, whole value") << "Città"
                                               << "città" << true << QStringList{"CITTÀ:1"};
        QTest::newRow("accented, contained")
            << "Città"
            << "città" << false << QStringList{"CITTÀ:1", "Città di Castello:2"};
    }

    void cerca() {
        QFETCH(QString, campo);
        QFETCH(QString, testo);
        QFETCH(bool, esatta);
        QFETCH(QStringList, trovati);
        QToolTip::hideText();
        InterazioneScriptata script; // a search says nothing, whether or not it finds
        Cerca(campo, testo, esatta);
        VERIFICA_SCRIPT(script);
        QCOMPARE(Trovati(), trovati);
        QCOMPARE(Intestazione(0), campo);
        const QString suggerimento =
            trovati.isEmpty()
                ? QString()
                : QString("Fai doppio click sul Record che ti interessa per Visualizzarne i Dettagli");
        QCOMPARE(F().Lv1->toolTip(), suggerimento);
        if (!trovati.isEmpty()) { // and it shows where the user points: over the hits
            const QPoint punto = F().Lv1->visualRect(F().Risultati().index(0, 1)).center();
            QHelpEvent evento(QEvent::ToolTip, punto, F().Lv1->viewport()->mapToGlobal(punto));
            QApplication::sendEvent(F().Lv1->viewport(), &evento);
            QTRY_COMPARE(QToolTip::text(), suggerimento);
        }
    }

    // Each case is followed by a search that works: the window goes on after what it said.
    void messaggi_data() {
        QTest::addColumn<QString>("campo");
        QTest::addColumn<QString>("testo");
        QTest::addColumn<QString>("prima");
        QTest::addColumn<QStringList>("messaggi");
        QTest::newRow("blank text") << "Titolo"
                                    << "   " << QString()
                                    << QStringList{
                                           "Devi prima specificare cosa intendi cercare! | Avviso... | 31"};
        QTest::newRow("a quote breaks the statement")
            << "Titolo"
            << "Kind o'Blue" << QString() << QStringList{"near \"Blue\": syntax error | Orvix | 11"};
        QTest::newRow("a field that is gone") << "Città"
                                              << "Roma"
                                              << "delete from campi where nome='Città'" << QStringList{};
        QTest::newRow("a field numbered 0")
            << "Città"
            << "Roma"
            << "update campi set id=0 where nome='Città'"
            << QStringList{"Errore inatteso IDCAMPO=0 non trovato! | Orvix | 1"};
    }

    void messaggi() {
        QFETCH(QString, campo);
        QFETCH(QString, testo);
        QFETCH(QString, prima);
        QFETCH(QStringList, messaggi);
        Cerca("Titolo", "Blue", true);
        if (!prima.isEmpty())
            Database().Esegui(prima);
        InterazioneScriptata script;
        for (qsizetype i = 0; i < messaggi.size(); ++i)
            script.Rispondi(Risposta::Ok);
        Cerca(campo, testo, false);
        VERIFICA_SCRIPT(script);
        QStringList visti;
        for (const auto& richiesta : script.Richieste())
            visti << Descrivi(richiesta.messaggio);
        QCOMPARE(visti, messaggi);
        if (!testo.trimmed().isEmpty()) // the list is emptied before the field is looked up
            QCOMPARE(Trovati(), QStringList{});
        Cerca("Titolo", "Blue", true);
        QCOMPARE(Trovati(), (QStringList{"Blue:2", "blue:5"}));
    }

    // Dates in the user's short form; a double click opens the record window on the hit's record.
    void apriRecordTrovato() {
        const qint32 voto = AggiungiCampo(m_dischi, {{"nome", "Voto"}, {"top", 90}});
        for (qint32 n = 1; n <= 8; ++n)
            ScriviValore(voto, n, QString::number(n * 10));
        Database().Esegui("update valori set data_ins='2024-03-05', data_mod='2025-11-30' where valore='70'");
        ApriRicerca(m_dischi);
        Cerca("Voto", "70", true);
        QCOMPARE(Trovati(), QStringList{"70:7"});
        QCOMPARE(F().Risultati().index(0, 2).data().toString() + " " +
                     F().Risultati().index(0, 3).data().toString(),
                 QString("05/03/24 30/11/25"));
        const QRect riga = F().Lv1->visualRect(F().Risultati().index(0, 1));
        // A person's double click: the first press and release, then the second click.
        QTest::mouseClick(F().Lv1->viewport(), Qt::LeftButton, {}, riga.center());
        QTest::mouseDClick(F().Lv1->viewport(), Qt::LeftButton, {}, riga.center());
        QCOMPARE(FinestraRecord().CurrTabella, m_dischi);
        QCOMPARE(FinestraRecord().RecordCorrente, 7);
        QCOMPARE(FinestraRecord().windowTitle(), QString("Record N. 7"));
        QCOMPARE(FinestraRecord().Controllo("Text1(3)")->property("text").toString(), QString("70"));
    }
};

QTEST_MAIN(TestRicerca)
#include "tst_ricerca.moc"
