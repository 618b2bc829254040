#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "registrodisegno.h"

#include "routinesql.h"
#include "stampaschede.h"
#include "stampatabellare.h"
#include "superficie.h"

#include <QtTest>
#include <deque>
#include <memory>

// A printer keeping each page's drawing; a page exists once drawn on.
struct SuperficieProva final : Superficie {
    QSizeF area;
    std::deque<RegistroDisegno> pagine;
    int chieste = 0; // pages asked for
    int chiusi = 0;  // jobs ended
    bool nuova = false;
    QPainter pittore;

    explicit SuperficieProva(const QSizeF& a)
        : area(a) {}
    bool EStampante() const override { return true; }
    QSizeF Area() const override { return area; }
    QList<QStringList> Testi() const {
        QList<QStringList> testi;
        for (const auto& pagina : pagine)
            testi << pagina.Testi();
        return testi;
    }
    QList<int> Conti() const { return {static_cast<int>(pagine.size()), chieste, chiusi}; }
    QPainter& Pittore() override {
        if (pittore.isActive() && nuova)
            pittore.end();
        if (!pittore.isActive())
            pittore.begin(&pagine.emplace_back());
        nuova = false;
        return pittore;
    }
    void IniziaPagina() override { nuova = ++chieste > 0; }
    void ChiudiLavoro() override {
        ++chiusi;
        if (pittore.isActive())
            pittore.end();
    }
};

const QSizeF A4(11000, 15500);

// The two print layouts, drawn on recording surfaces from a real store.
class TestStampa final : public QObject {
    Q_OBJECT

    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    qint32 m_id = -1;

    // A field with its values of records 1, 2, ...
    void Campo(const QVariantHash& colonne, const QStringList& valori) {
        const qint32 campo = AggiungiCampo(m_id, colonne);
        for (int i = 0; i < valori.size(); ++i)
            ScriviValore(campo, i + 1, valori.at(i));
    }

private Q_SLOTS:
    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_id = CreaCollezione("Dischi", QString());
    }

    void cleanup() { m_archivio.reset(); }

    // A page per record, fields in name order whatever labels and tab order, a field with no row left out,
    // a picture pushing the next line down; the number aligned as if it had the space it lacks.
    void schede() {
        QImage rossa(40, 30, QImage::Format_RGB32);
        rossa.fill(Qt::red);
        const QString figura = m_archivio->Cartella() + "/copertina.png";
        QVERIFY(rossa.save(figura));
        Campo({{"nome", "Zeta"}, {"etichetta", "Primo"}, {"tabindex", 0}}, {"z1", "z2"});
        Campo({{"nome", "beta"}, {"etichetta", "Secondo"}, {"tabindex", 1}}, {"b1"});
        Campo({{"nome", "Copertina"}, {"tipo", "image"}, {"special", "TRUE"}}, {figura});
        Campo({{"nome", "Alfa"}, {"tabindex", 2}}, {"a1", ""});
        SuperficieProva s(A4);
        StampaSchede(s, m_id, true, true);
        QCOMPARE(s.Testi(), QList<QStringList>({{"Record 1di 2", "Alfa:", "a1", "Secondo:", "b1",
                                                 "Copertina:", "Primo:", "z1"},
                                                {"Record 2di 2", "Alfa:", "Primo:", "z2"}}));
        QCOMPARE(s.Conti(), QList<int>({2, 2, 1}));
        QCOMPARE(s.pagine.at(1).testi.at(0).punto.x(), A4.width() - s.LarghezzaTesto("Record 2 di 2"));
        const RegistroDisegno& pagina = s.pagine.at(0);
        QCOMPARE(pagina.testi.at(6).punto.y() - pagina.testi.at(5).punto.y(), 30 + s.AltezzaRiga());
        QCOMPARE(pagina.figure.value(0).size(), QSizeF(600, 450));
    }

    // Columns every 25 widths; a wide value pushes the next to the following tab stop.
    void tabella() {
        const QString lungo = QStringLiteral("Un titolo lungo più di trentacinque lettere");
        Campo({{"nome", "Anno"}}, {"1959", "1961"});
        Campo({{"nome", "Copertina"}, {"tipo", "image"}}, {"C:\\dischi\\blu.bmp", "/home/io/verde.png"});
        Campo({{"nome", "titolo"}}, {"Kind of Blue", lungo});
        ScriviValore(AggiungiCampo(m_id, {{"nome", "Zeta"}}), 2, "z");
        SuperficieProva s(A4);
        StampaTabellare(s, m_id);
        QCOMPARE(s.pagine.at(0).Testi(), QStringList({"Anno", "Copertina", "titolo", "1959", "blu.bmp",
                                                      "Kind of Blue", "1961", "verde.png", lungo, "z"}));
        QCOMPARE(s.pagine.at(0).testi.at(9).punto.x(), 100 * s.LarghezzaColonna());
    }

    // A full printer page starts another, with no blank page asked for at the end.
    void tabellaAPagine() {
        const QStringList titoli{"D1", "D2", "D3", "D4", "D5", "D6", "D7", "D8", "D9", "D10"};
        Campo({{"nome", "Titolo"}}, titoli);
        SuperficieProva s(QSizeF(A4.width(), SuperficieProva(A4).AltezzaRiga() * 5.5));
        StampaTabellare(s, m_id);
        QCOMPARE(s.Testi(), (QList<QStringList>{QStringList{"Titolo"} + titoli.mid(0, 3), titoli.mid(3, 5),
                                                titoli.mid(8)}));
        QCOMPARE(s.Conti(), QList<int>({3, 2, 1}));
    }

    // An empty collection prints nothing; on the printer its empty job is still ended.
    void collezioneVuota() {
        SuperficieProva schede(A4), tabella(A4);
        StampaSchede(schede, m_id, true, true);
        StampaTabellare(tabella, m_id);
        QCOMPARE(schede.pagine.size() + tabella.pagine.size(), size_t(0));
        QCOMPARE(schede.chiusi + tabella.chiusi, 2);
    }
};

QTEST_MAIN(TestStampa)
#include "tst_stampa.moc"
