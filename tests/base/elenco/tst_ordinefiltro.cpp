#include "archiviotemporaneo.h"
#include "campiprova.h"

#include "colonneelenco.h"
#include "filtroelenco.h"
#include "ordineelenco.h"
#include "routinesql.h"
#include "testocella.h"
#include "valorielenco.h"

#include <QtTest>

// The list's order and filter against a real store: text in the program's own order, numbers as
// numbers, and a filter where every typed character stands for itself.
class TestOrdineFiltro final : public QObject {
    Q_OBJECT

    // One text field holding the values, record 1 first.
    static qint32 Campo(qint32 collezione, const QStringList& valori, const QVariantHash& colonne = {}) {
        const qint32 campo = AggiungiCampo(collezione, colonne);
        for (int i = 0; i < valori.size(); ++i)
            ScriviValore(campo, i + 1, valori.at(i));
        return campo;
    }

    static QList<qint32> Filtra(qint32 collezione, const QString& testo) {
        FiltroElenco filtro(ColonneElenco(collezione), testo, ContaRecord(collezione));
        while (!filtro.Passo()) {
        }
        QList<qint32> tutti(ContaRecord(collezione));
        std::iota(tutti.begin(), tutti.end(), 1);
        return filtro.Scegli(tutti);
    }

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    // Accented capitals sort beside their base letter, not after "z"; "città" before "cittadino";
    // equal texts keep record order and a second click is the exact reverse.
    void testoNellOrdineDelProgramma() {
        ArchivioTemporaneo archivio;
        const qint32 id = CreaCollezione("Parole", {});
        const qint32 campo = Campo(id, {"Fine", "era", "Èra", "cittadino", "città", "ERA", "zeta"});
        QCOMPARE(OrdinaPerCampo(campo, 7, false), (QList<qint32>{5, 4, 2, 6, 3, 1, 7}));
        QCOMPARE(OrdinaPerCampo(campo, 7, true), (QList<qint32>{7, 1, 3, 6, 2, 4, 5}));
    }

    // Numbers in the user's format (grouping, decimal comma) sort by value, blanks first; one
    // value that is not a number turns the whole column back into text.
    void numeriComeNumeri() {
        ArchivioTemporaneo archivio;
        const qint32 id = CreaCollezione("Monete", {});
        const qint32 anno = Campo(id, {"1.861", "10", "9", "2,5", "", "-3"});
        QCOMPARE(OrdinaPerCampo(anno, 6, false), (QList<qint32>{5, 6, 4, 3, 2, 1}));
        ScriviValore(anno, 7, "circa 1900");
        QCOMPARE(OrdinaPerCampo(anno, 7, false), (QList<qint32>{5, 6, 1, 2, 4, 3, 7}));
    }

    // A record that lost its value row still has a row in the list, at the end.
    void recordSenzaValore() {
        ArchivioTemporaneo archivio;
        const qint32 id = CreaCollezione("Monete", {});
        const qint32 campo = Campo(id, {"b", "a"});
        Campo(id, {"x", "y", "z"});
        QCOMPARE(OrdinaPerCampo(campo, 3, false), (QList<qint32>{2, 1, 3}));
    }

    // "%", "_", a quote and a backslash are plain characters; case is folded, accents are not
    // dropped; any field may hold the text; a picture is found by its file name only; a list
    // by the item it shows; a check box or a formula never.
    void filtroLetterale() {
        ArchivioTemporaneo archivio;
        const qint32 id = CreaCollezione("Varie", {});
        Campo(id,
              {"100%", "100 per cento", "a_b", "axb", "l'uomo", "luomo", "c:\\dir", "c:dir", "Èra", "era"});
        Campo(id, {"", "", "", "", "", "", "", "", "", "nota %"}, {{"nome", "Note"}, {"tipo", "memo"}});
        QCOMPARE(Filtra(id, "%"), (QList<qint32>{1, 10}));
        QCOMPARE(Filtra(id, "0%"), (QList<qint32>{1}));
        QCOMPARE(Filtra(id, "_"), (QList<qint32>{3}));
        QCOMPARE(Filtra(id, "'"), (QList<qint32>{5}));
        QCOMPARE(Filtra(id, "\\"), (QList<qint32>{7}));
        QCOMPARE(Filtra(id, "c:d"), (QList<qint32>{8}));
        QCOMPARE(Filtra(id, "èR"), (QList<qint32>{9}));
        QCOMPARE(Filtra(id, "ERA"), (QList<qint32>{10}));
        QCOMPARE(Filtra(id, "NOTA"), (QList<qint32>{10}));
    }

    void filtroPerQuelCheSiVede() {
        ArchivioTemporaneo archivio;
        const qint32 id = CreaCollezione("Foto", {});
        Campo(id, {"/home/rossi/gatti/micio.jpg", "/home/rossi/cani/fido.png", "C:\\gatti\\x.bmp"},
              {{"nome", "Foto"}, {"tipo", "image"}});
        Campo(id, {"0", "1", "2"}, {{"nome", "Stato"}, {"tipo", "list"}, {"special", "Nuovo|Usato|Gatto"}});
        Campo(id, {"1", "1", "1"}, {{"nome", "Gatto"}, {"tipo", "checkbox"}});
        Campo(id, {"", "", ""}, {{"nome", "Doppio"}, {"formula", "Gatto * 2"}});
        QCOMPARE(Filtra(id, "gatt"), (QList<qint32>{3}));
        QCOMPARE(Filtra(id, "micio"), (QList<qint32>{1}));
        QCOMPARE(Filtra(id, "usat"), (QList<qint32>{2}));
        QCOMPARE(Filtra(id, "1"), QList<qint32>());
        QCOMPARE(Filtra(id, "2"), QList<qint32>());
    }

    // After deleting record 2 of 4 the filter's findings move with the renumbered records.
    void filtroDopoEliminazione() {
        ArchivioTemporaneo archivio;
        const qint32 id = CreaCollezione("Varie", {});
        Campo(id, {"sì", "sì", "no", "sì"});
        FiltroElenco filtro(ColonneElenco(id), "sì", 4);
        QVERIFY(filtro.Passo());
        filtro.TogliRecord(2);
        QCOMPARE(filtro.Scegli({1, 2, 3, 4}), (QList<qint32>{1, 3}));
    }

    // Columns follow the tab order and carry the label, else the name; cells show what the record
    // window shows; a page of values is read for any set of records.
    void colonneECelle() {
        ArchivioTemporaneo archivio;
        const qint32 id = CreaCollezione("Dischi", {});
        const qint32 secondo = AggiungiCampo(id, {{"nome", "Titolo"}, {"tabindex", 2}});
        const qint32 primo =
            AggiungiCampo(id, {{"nome", "Anno"}, {"etichetta", "Anno di uscita"}, {"tabindex", 1}});
        const QList<ColonnaElenco> colonne = ColonneElenco(id);
        QCOMPARE(colonne.size(), 2);
        QCOMPARE(colonne.at(0).intestazione, QStringLiteral("Anno di uscita"));
        QCOMPARE(colonne.at(1).intestazione, QStringLiteral("Titolo"));
        QCOMPARE(NomeCollezione(id), QStringLiteral("Dischi"));

        const ColonnaElenco lista{0, {}, "combo", {}, {"Rosso", "", "Blu"}};
        QCOMPARE(TestoCella(lista, "2"), QStringLiteral("Blu"));
        QCOMPARE(TestoCella(lista, "-1"), QString());
        QCOMPARE(TestoCella(lista, "7"), QString());
        QCOMPARE(TestoCella({0, {}, "checkbox", {}, {}}, "1"), QStringLiteral("\u2713"));
        QCOMPARE(TestoCella({0, {}, "checkbox", {}, {}}, "0"), QString());
        QCOMPARE(TestoCella({0, {}, "image", {}, {}}, "C:\\foto\\a.jpg"), QStringLiteral("a.jpg"));
        QCOMPARE(TestoCella({0, {}, "memo", {}, {}}, "uno\r\ndue"), QStringLiteral("uno due"));

        for (int n = 1; n <= 70; ++n) {
            ScriviValore(primo, n, QString::number(1900 + n));
            ScriviValore(secondo, n, "T" + QString::number(n));
        }
        const ValoriRecord valori = LeggiValori({primo, secondo}, {70, 3, 65});
        QCOMPARE(valori.size(), 3);
        QCOMPARE(valori.value(70).value(primo), QStringLiteral("1970"));
        QCOMPARE(valori.value(3).value(secondo), QStringLiteral("T3"));
        QVERIFY(!valori.contains(1));
    }
};

QTEST_GUILESS_MAIN(TestOrdineFiltro)
#include "tst_ordinefiltro.moc"
