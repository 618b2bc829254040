#include "aprirecord.h"
#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "formule.h"
#include "frmrecord.h"
#include "routinesql.h"

#include <QTest>

// Formulas resolved against the values stored for a record. The arithmetic itself is tst_matheval's.
class TestFormule final : public QObject {
    Q_OBJECT

    static QString Mostrati() {
        return FinestraRecord().Controllo("Text1(5)")->property("text").toString() + "|" +
               FinestraRecord().Controllo("Text1(6)")->property("text").toString();
    }

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    // Signed numbers, any case, the decimal comma; words split at spaces only; "A" replaced inside "AB".
    // Computed fields are worked out whenever a record is shown, never stored; a broken one says so.
    void formule() {
        ArchivioTemporaneo archivio;
        const qint32 id = CreaCollezione("Fatture", QString());
        for (const auto& [nome, valore] :
             QList<QPair<QString, QString>>{{"Imponibile", "50"}, {"A", "3"}, {"AB", "4"}})
            ScriviValore(AggiungiCampo(id, {{"nome", nome}}), 1, valore);
        ScriviValore(AggiungiCampo(id, {{"nome", "Sconto"}}), 2, "1");
        AggiungiCampo(CreaCollezione("Altro", QString()), {{"nome", "Lordo"}}); // another collection's field
        const QString n = "Formula non risolvibile #";
        const QStringList casi{"imponibile - 2 * -3", "56",    "Imponibile / 4", "12,5",
                               "Imponibile*2",        n + "1", "Lordo * 2",      n + "1",
                               "Sconto + Lordo",      n + "2", "A + AB",         n + "3"};
        for (qsizetype i = 0; i < casi.size(); i += 2)
            QCOMPARE(RisolviFormula(FinestraRecord(), casi.at(i), id, 1), casi.at(i + 1));

        const qint32 totale = AggiungiCampo(id, {{"nome", "Totale"}, {"formula", "Imponibile * 1,2"}});
        AggiungiCampo(id, {{"nome", "Rotto"}, {"formula", "l'IVA * Imponibile"}});
        ScriviValore(totale, 1, "vecchio");
        ApriRecord(id, 1);
        QCOMPARE(Mostrati(), QString("60|Formula non risolvibile #1"));
        QCOMPARE(ValoriDelCampo(totale), QStringList{"1=vecchio"});
        FinestraRecord().Toolbar1_ButtonClick("next");
        QCOMPARE(Mostrati(), QString("Formula non risolvibile #2|Formula non risolvibile #1"));
        delete &FinestraRecord();
    }
};

QTEST_MAIN(TestFormule)
#include "tst_formule.moc"
