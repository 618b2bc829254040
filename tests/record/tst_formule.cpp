#include "aprirecord.h"
#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "formule.h"
#include "frmrecord.h"
#include "interazionescriptata.h"
#include "navigazione.h"
#include "routinesql.h"

#include <QTest>
#include <memory>

// Formulas resolved against the values stored for a record. The arithmetic itself is tst_matheval's.
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
        for (const auto& [nome, valore] : QList<QPair<QString, QString>>{
                 {"Imponibile", "50"}, {"Cliente", "Rossi"}, {"A", "3"}, {"AB", "4"}})
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
        const auto riga = [](const QString& formula, const QString& atteso) {
            QTest::newRow(qPrintable(formula)) << formula << atteso;
        };
        const QString n1 = "Formula non risolvibile #1", n2 = n1.chopped(1) + "2", n3 = n1.chopped(1) + "3";
        // Each operator word is passed through, not looked up as a field; so are numbers, signed too.
        riga("( 2 + 3 ) * 4", "20");
        riga("Imponibile - 2 * -3", "56");
        riga("7 \\ 2", "3");
        riga("Imponibile * 20 / 100", "10");
        riga("Imponibile / 4", "12,5");
        riga("imponibile + 1", "51");
        riga("2 ^ 3", n1);        // not an operator here: looked up as a field name
        riga("Imponibile*2", n1); // words are split at spaces only
        riga("Lordo * 2", n1);
        riga("Sconto + Lordo", n2); // Sconto has no value in record 1
        riga("Cliente + 1", n3);
        riga("A + AB", n3); // "A" is replaced inside "AB" too
    }

    void risolvi() {
        QFETCH(QString, formula);
        QFETCH(QString, atteso);
        QCOMPARE(RisolviFormula(FinestraRecord(), formula, m_id, 1), atteso);
    }

    // Computed whenever a record is shown, never stored. A formula whose name breaks its look-up says
    // so in its field and the window still opens: the user can browse and mend the field.
    void campiCalcolatiQuandoSiMostraUnRecord() {
        const qint32 totale = AggiungiCampo(m_id, {{"nome", "Totale"}, {"formula", "Imponibile * 1,2"}});
        AggiungiCampo(m_id, {{"nome", "Rotto"}, {"formula", "l'IVA * Imponibile"}});
        ScriviValore(totale, 1, "vecchio");
        const auto mostrati = []() -> QString {
            return FinestraRecord().Controllo("Text1(6)")->property("text").toString() + "|" +
                   FinestraRecord().Controllo("Text1(7)")->property("text").toString();
        };
        InterazioneScriptata script;
        ApriRecord(m_id, 1);
        VERIFICA_SCRIPT(script);
        QCOMPARE(mostrati(), QString("60|Formula non risolvibile #1"));
        QCOMPARE(TabellaFormule().at(0).chiave + "=" + TabellaFormule().at(0).idCampo,
                 "Text1(6)=" + QString::number(totale));
        QCOMPARE(ValoriDelCampo(totale), QStringList{"1=vecchio"}); // shown, never stored

        CaricaRecord(FinestraRecord(), 0, m_id); // record 0: the table is refilled, nothing computed
        QCOMPARE(TabellaFormule().size(), 2);
        QCOMPARE(mostrati(), QString("60|Formula non risolvibile #1"));
        FinestraRecord().Toolbar1_ButtonClick("next");
        QCOMPARE(mostrati(), QString("Formula non risolvibile #2|Formula non risolvibile #1"));
    }
};

QTEST_MAIN(TestFormule)
#include "tst_formule.moc"
