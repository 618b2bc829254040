#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "registrodisegno.h"

#include "routinesql.h"
#include "stampaschede.h"
#include "stampatabellare.h"
#include "superficie.h"

#include <QImage>
#include <QPainter>
#include <QtTest>
#include <memory>
#include <vector>

namespace {

// Keeps each page's drawing: a printer page exists once drawn on; a picture box has one page.
class SuperficieProva final : public Superficie {
public:
    SuperficieProva(bool stampante, const QSizeF& area)
        : m_stampante(stampante)
        , m_area(area) {}

    bool EStampante() const override { return m_stampante; }
    QSizeF Area() const override { return m_area; }

    const RegistroDisegno& Pagina(int i) const { return *m_pagine.at(static_cast<size_t>(i)); }
    QList<QStringList> Testi() const {
        QList<QStringList> testi;
        for (const auto& pagina : m_pagine)
            testi << pagina->Testi();
        return testi;
    }
    // Pages drawn on, pages asked for, jobs ended.
    QList<int> Conti() const { return {static_cast<int>(m_pagine.size()), m_chieste, m_chiusi}; }

protected:
    QPainter& Pittore() override {
        if (m_pittore.isActive() && !m_nuova)
            return m_pittore;
        if (m_pittore.isActive())
            m_pittore.end();
        m_pagine.push_back(std::make_unique<RegistroDisegno>());
        m_pittore.begin(m_pagine.back().get());
        m_nuova = false;
        return m_pittore;
    }
    void IniziaPagina() override { m_nuova = ++m_chieste > 0; }
    void ChiudiLavoro() override {
        ++m_chiusi;
        if (m_pittore.isActive())
            m_pittore.end();
    }

private:
    bool m_stampante;
    QSizeF m_area;
    std::vector<std::unique_ptr<RegistroDisegno>> m_pagine;
    int m_chieste = 0;
    int m_chiusi = 0;
    bool m_nuova = false;
    QPainter m_pittore;
};

const QSizeF A4(11000, 15500);

} // namespace

// The two print layouts, drawn on recording surfaces from a real store.
class TestStampa final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    qint32 m_id = -1;

    // A field with its values of records 1, 2, ...; a null value writes no row.
    void Campo(const QVariantHash& colonne, const QStringList& valori) {
        const qint32 campo = AggiungiCampo(m_id, colonne);
        for (int i = 0; i < valori.size(); ++i)
            if (!valori.at(i).isNull())
                ScriviValore(campo, i + 1, valori.at(i));
    }

    // Field "Titolo" with `n` records "Disco i".
    void Dischi(int n) {
        QStringList titoli;
        for (int i = 1; i <= n; ++i)
            titoli << QStringLiteral("Disco %1").arg(i);
        Campo({{"nome", "Titolo"}}, titoli);
    }

private Q_SLOTS:
    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_id = CreaCollezione("Dischi", QString());
    }

    void cleanup() { m_archivio.reset(); }

    // Printer: a page per record, its number aligned as if it had the space it lacks; picture box: one run.
    void schede_data() {
        QTest::addColumn<bool>("stampante");
        QTest::newRow("printer") << true;
        QTest::newRow("picture box") << false;
    }

    void schede() {
        QFETCH(bool, stampante);
        Dischi(3);
        SuperficieProva s(stampante, A4);
        StampaSchede(s, m_id, true, stampante);
        const double riga = s.AltezzaRiga();
        if (!stampante) {
            QCOMPARE(s.Testi(), QList<QStringList>(
                                    {{"Titolo:", "Disco 1", "Titolo:", "Disco 2", "Titolo:", "Disco 3"}}));
            QCOMPARE(s.Conti(), QList<int>({1, 0, 0}));
            QVERIFY(s.Pagina(0).linee.isEmpty());
            QCOMPARE(s.Pagina(0).testi.at(2).punto.y() - s.Pagina(0).testi.at(0).punto.y(), 2 * riga);
            return;
        }
        QCOMPARE(s.Conti(), QList<int>({3, 3, 1}));
        for (int p = 0; p < 3; ++p) {
            const RegistroDisegno& pagina = s.Pagina(p);
            const QString n = QString::number(p + 1);
            QCOMPARE(pagina.Testi(), QStringList({"Record " + n + "di 3", "Titolo:", "Disco " + n}));
            const QPointF numero = pagina.testi.at(0).punto;
            QCOMPARE(numero.x(), A4.width() - s.LarghezzaTesto("Record " + n + " di 3"));
            QVERIFY(numero.y() > 0 && numero.y() < riga);
            QCOMPARE(pagina.linee, QList<QLineF>({QLineF(20, riga, A4.width(), riga)}));
            QCOMPARE(pagina.testi.at(1).punto, QPointF(20, numero.y() + 2 * riga));
            QCOMPARE(pagina.testi.at(2).punto, QPointF(30 * s.LarghezzaColonna(), numero.y() + 2 * riga));
        }
    }

    // Fields in name order whatever their labels and tab order; a field with no value row is left out.
    void schedeInOrdineDiNome() {
        Campo({{"nome", "Zeta"}, {"etichetta", "Primo"}, {"tabindex", 0}}, {"z1", "z2"});
        Campo({{"nome", "beta"}, {"etichetta", "Secondo"}, {"tabindex", 1}}, {"b1"});
        Campo({{"nome", "Alfa"}, {"tabindex", 2}}, {"a1", ""});
        SuperficieProva s(true, A4);
        StampaSchede(s, m_id, false, false);
        QCOMPARE(s.Testi(), QList<QStringList>({{"Alfa:", "a1", "Secondo:", "b1", "Primo:", "z1"},
                                                {"Alfa:", "Primo:", "z2"}}));
    }

    // An image field: its picture at the value column pushing the next line down, its path, or nothing.
    void schedeCampoImmagine_data() {
        QTest::addColumn<bool>("immagini");
        QTest::addColumn<bool>("vuoto");
        QTest::newRow("pictures on") << true << false;
        QTest::newRow("pictures off") << false << false;
        QTest::newRow("no picture") << true << true;
    }

    void schedeCampoImmagine() {
        QFETCH(bool, immagini);
        QFETCH(bool, vuoto);
        QImage rossa(40, 30, QImage::Format_RGB32);
        rossa.fill(Qt::red);
        const QString percorso = vuoto ? QString("") : QString(m_archivio->Cartella() + "/copertina.png");
        QVERIFY(vuoto || rossa.save(percorso));
        Campo({{"nome", "Copertina"}, {"tipo", "image"}, {"special", "TRUE"}}, {percorso});
        Campo({{"nome", "Zeta"}}, {"ultimo"});
        SuperficieProva s(true, A4);
        StampaSchede(s, m_id, immagini, false);
        const RegistroDisegno& pagina = s.Pagina(0);
        const double alto = pagina.Cerca("Copertina:")->punto.y();
        const bool figura = immagini && !vuoto;
        QCOMPARE(pagina.Testi(), figura || vuoto ? QStringList({"Copertina:", "Zeta:", "ultimo"})
                                                 : QStringList({"Copertina:", percorso, "Zeta:", "ultimo"}));
        QCOMPARE(pagina.figure.size(), figura ? 1 : 0);
        QCOMPARE(pagina.Cerca("Zeta:")->punto.y() - alto, (figura ? 30 : 0) + s.AltezzaRiga());
        if (figura) {
            const QRectF dove = pagina.figure.at(0);
            QCOMPARE(dove.size(), QSizeF(600, 450));
            QCOMPARE(dove.x(), 30 * s.LarghezzaColonna());
            QVERIFY(dove.y() < alto && alto - dove.y() < s.AltezzaRiga());
        }
    }

    // Headings at columns 0, 25, 50..., a rule, a line per record; wide values push to the next tab stop.
    void tabella() {
        const QString lungo = QStringLiteral("Un titolo lungo più di trentacinque lettere");
        Campo({{"nome", "Anno"}}, {"1959", "1961"});
        Campo({{"nome", "Copertina"}, {"tipo", "image"}},
              {"C:\\dischi\\blu.bmp", "/home/io/dischi/verde.png"});
        Campo({{"nome", "titolo"}, {"etichetta", "Titolo del disco"}}, {"Kind of Blue", lungo});
        Campo({{"nome", "Zeta"}}, {QString(), "z"});
        SuperficieProva s(false, A4);
        StampaTabellare(s, m_id);
        QCOMPARE(s.Conti(), QList<int>({1, 0, 0}));
        const RegistroDisegno& pagina = s.Pagina(0);
        QCOMPARE(pagina.Testi(), QStringList({"Anno", "Copertina", "Titolo del disco", "1959", "blu.bmp",
                                              "Kind of Blue", "1961", "verde.png", lungo, "z"}));
        const double colonna = s.LarghezzaColonna();
        const double riga = s.AltezzaRiga();
        for (int k = 0; k < 3; ++k) {
            QCOMPARE(pagina.testi.at(k).punto.x(), k * 25 * colonna);
            QCOMPARE(pagina.testi.at(3 + k).punto,
                     QPointF(k * 25 * colonna, pagina.testi.at(0).punto.y() + 2 * riga));
        }
        QCOMPARE(pagina.linee, QList<QLineF>({QLineF(0, riga, A4.width(), riga)}));
        const double fine = 50 * colonna + s.LarghezzaTesto(lungo);
        QVERIFY(fine > 75 * colonna && fine < 100 * colonna);
        QCOMPARE(pagina.Cerca("z")->punto.x(), 100 * colonna);
    }

    // A full printer page starts another at the same x; a picture box stops at its bottom.
    void tabellaAPagine_data() { schede_data(); }

    void tabellaAPagine() {
        QFETCH(bool, stampante);
        const QList<QStringList> pagine =
            stampante ? QList<QStringList>{{"Titolo", "Disco 1", "Disco 2", "Disco 3"},
                                           {"Disco 4", "Disco 5", "Disco 6", "Disco 7", "Disco 8"},
                                           {"Disco 9", "Disco 10"}}
                      : QList<QStringList>{{"Titolo", "Disco 1", "Disco 2", "Disco 3", "Disco 4"}};
        Dischi(10);
        // From record 4 on, an empty value comes first: the title is the first text of the line.
        Campo({{"nome", "A"}}, {QString(), QString(), QString(), "", "", "", "", "", "", ""});
        SuperficieProva misura(stampante, A4);
        SuperficieProva s(stampante, QSizeF(A4.width(), misura.AltezzaRiga() * 5.5));
        StampaTabellare(s, m_id);
        QCOMPARE(s.Testi(), pagine);
        QCOMPARE(s.Conti(), stampante ? QList<int>({3, 2, 1}) : QList<int>({1, 0, 0}));
        for (int p = 0; stampante && p < 3; ++p)
            for (const auto& testo : s.Pagina(p).testi)
                QVERIFY(testo.punto.y() < s.ScaleHeight());
        if (stampante)
            QCOMPARE(s.Pagina(1).Cerca("Disco 4")->punto.x(), 25 * s.LarghezzaColonna());
    }

    // An empty collection prints nothing; on the printer its empty job is still ended.
    void collezioneVuota() {
        SuperficieProva schede(true, A4);
        SuperficieProva tabella(true, A4);
        StampaSchede(schede, m_id, true, true);
        StampaTabellare(tabella, m_id);
        for (const SuperficieProva* s : {&schede, &tabella})
            QCOMPARE(QList<int>({s->Conti().at(0), s->Conti().at(2)}), QList<int>({0, 1}));
    }
};

QTEST_MAIN(TestStampa)
#include "tst_stampa.moc"
