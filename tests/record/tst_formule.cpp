#include "archivio.h"
#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "costruisciform.h"
#include "formule.h"
#include "frmrecord.h"
#include "navigazione.h"
#include "routinesql.h"

#include <QLineEdit>
#include <QTest>
#include <memory>

// Formulas resolved against the values stored for a record.
class TestFormule final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    qint32 m_id = 0;

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_id = CreaCollezione("Fatture", QString());
        const QList<QPair<QString, QString>> campi{{"Imponibile", "50"}, {"Cliente", "Rossi"},
                                                   {"Pagata", "1"},      {"Canale", "2"},
                                                   {"A", "3"},           {"AB", "4"}};
        for (const auto& [nome, valore] : campi)
            ScriviValore(AggiungiCampo(m_id, {{"nome", nome}}), 1, valore);
        ScriviValore(AggiungiCampo(m_id, {{"nome", "Sconto"}}), 2, "1");
        AggiungiCampo(CreaCollezione("Altro", QString()), {{"nome", "Lordo"}}); // another collection's field
    }

    void cleanup() {
        delete &FinestraRecord();
        m_archivio.reset();
    }

    void risolvi_data() {
        QTest::addColumn<QString>("formula");
        QTest::addColumn<QString>("atteso");
        const QString n1 = "Formula non risolvibile #1", n2 = "Formula non risolvibile #2",
                      n3 = "Formula non risolvibile #3";
        QTest::newRow("prodotto prima") << "2 + 3 * 4"
                                        << "14";
        QTest::newRow("parentesi") << "( 2 + 3 ) * 4"
                                   << "20";
        QTest::newRow("meno poi piu") << "10 - 2 + 1"
                                      << "9";
        QTest::newRow("intera") << "7 \\ 2"
                                << "3";
        QTest::newRow("2,5 al pari") << "2,5 \\ 1"
                                     << "2";
        QTest::newRow("3,5 al pari") << "3,5 \\ 1"
                                     << "4";
        QTest::newRow("segno") << "-3 - 2"
                               << "-5";
        QTest::newRow("per negativo") << "2 * -3"
                                      << "-6";
        QTest::newRow("diviso zero") << "8 / 0" << n3;
        QTest::newRow("potenza cercata come campo") << "2 ^ 3" << n1;
        QTest::newRow("diviso prima di per") << "Imponibile * 20 / 100"
                                             << "10";
        QTest::newRow("decimali") << "Imponibile / 4"
                                  << "12,5";
        QTest::newRow("nome in minuscolo") << "imponibile + 1"
                                           << "51";
        QTest::newRow("casella e lista") << "Pagata + Canale"
                                         << "3";
        QTest::newRow("campo di un'altra collezione") << "Lordo * 2" << n1;
        QTest::newRow("nessun valore nel record") << "Sconto + Lordo" << n2;
        QTest::newRow("valore di testo") << "Cliente + 1" << n3;
        QTest::newRow("parentesi aperta") << "( Imponibile + 1" << n3;
        QTest::newRow("senza spazi") << "Imponibile*2" << n1;
        QTest::newRow("nome dentro un nome") << "AB + 1"
                                             << "5";
        QTest::newRow("sostituito anche dentro AB") << "A + AB" << n3;
    }

    void risolvi() {
        QFETCH(QString, formula);
        QFETCH(QString, atteso);
        QCOMPARE(RisolviFormula(FinestraRecord(), formula, m_id, 1), atteso);
    }

    void campiCalcolatiQuandoSiMostraUnRecord() {
        const qint32 totale = AggiungiCampo(m_id, {{"nome", "Totale"}, {"formula", "Imponibile * 1,2"}});
        AggiungiCampo(m_id, {{"nome", "Netto"}, {"formula", "Imponibile - Sconto"}});
        ScriviValore(totale, 1, "vecchio");
        CostruisciForm(FinestraRecord(), m_id);
        const auto* campoTotale = qobject_cast<QLineEdit*>(FinestraRecord().Controllo("Text1(8)"));
        const auto* campoNetto = qobject_cast<QLineEdit*>(FinestraRecord().Controllo("Text1(9)"));
        CaricaRecord(FinestraRecord(), 1, m_id);
        QCOMPARE(campoTotale->text(), QString("60"));
        QCOMPARE(campoNetto->text(), QString("Formula non risolvibile #2"));
        QCOMPARE(TabellaFormule().size(), 2);
        QCOMPARE(TabellaFormule().at(0).chiave, QString("Text1(8)"));
        QCOMPARE(TabellaFormule().at(0).formula, QString("Imponibile * 1,2"));
        QCOMPARE(TabellaFormule().at(0).idCampo, QString::number(totale));
        QCOMPARE(ValoriDelCampo(totale), QStringList{"1=vecchio"}); // shown, never stored

        CaricaRecord(FinestraRecord(), 0, m_id); // record 0: the table is refilled, nothing computed
        QCOMPARE(TabellaFormule().size(), 2);
        QCOMPARE(campoTotale->text(), QString("60"));
        CaricaRecord(FinestraRecord(), 2, m_id);
        QCOMPARE(campoTotale->text(), QString("Formula non risolvibile #2"));
    }
};

QTEST_MAIN(TestFormule)
#include "tst_formule.moc"
