#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "registrodisegno.h"

#include "posizionestampa.h"
#include "routinesql.h"
#include "stampaschede.h"
#include "stampatabellare.h"
#include "superficie.h"

#include <QImage>
#include <QPainter>
#include <QtTest>
#include <algorithm>
#include <memory>
#include <stdexcept>
#include <vector>

namespace {

// A print surface that keeps what each page got. As a printer, a page asked for exists only once
// something is drawn on it; as a picture box, everything goes on one page of the given height.
class SuperficieProva final : public Superficie {
public:
    SuperficieProva(bool stampante, const QSizeF& area)
        : m_stampante(stampante)
        , m_area(area) {}

    bool EStampante() const override { return m_stampante; }
    QSizeF Area() const override { return m_area; }

    const RegistroDisegno& Pagina(int i) const { return *pagine.at(static_cast<size_t>(i)); }
    int Pagine() const { return static_cast<int>(pagine.size()); }
    QStringList TuttiITesti() const {
        QStringList testi;
        for (const auto& pagina : pagine)
            testi << pagina->Testi();
        return testi;
    }

    std::vector<std::unique_ptr<RegistroDisegno>> pagine;
    int pagineChieste = 0;
    int lavoriChiusi = 0;

protected:
    QPainter& Pittore() override {
        if (m_pittore.isActive() && !m_chiesta)
            return m_pittore;
        if (m_pittore.isActive())
            m_pittore.end();
        pagine.push_back(std::make_unique<RegistroDisegno>());
        m_pittore.begin(pagine.back().get());
        m_chiesta = false;
        return m_pittore;
    }
    void IniziaPagina() override {
        ++pagineChieste;
        m_chiesta = true;
    }
    void ChiudiLavoro() override {
        ++lavoriChiusi;
        if (m_pittore.isActive())
            m_pittore.end();
    }

private:
    bool m_stampante;
    QSizeF m_area;
    bool m_chiesta = false;
    QPainter m_pittore;
};

// A picture box of real pixels, 15 twips to a pixel.
class SuperficieImmagine final : public Superficie {
public:
    explicit SuperficieImmagine(const QSize& pixel)
        : immagine(pixel, QImage::Format_RGB32) {
        immagine.fill(Qt::white);
    }
    bool EStampante() const override { return false; }
    QSizeF Area() const override { return QSizeF(immagine.size()) * TwipPerPixel; }
    QImage Finita() {
        m_pittore.end();
        return immagine;
    }

    QImage immagine;

protected:
    QPainter& Pittore() override {
        if (!m_pittore.isActive()) {
            m_pittore.begin(&immagine);
            m_pittore.scale(1 / TwipPerPixel, 1 / TwipPerPixel);
        }
        return m_pittore;
    }
    void IniziaPagina() override {}
    void ChiudiLavoro() override {}

private:
    QPainter m_pittore;
};

const QSizeF A4(11000, 15500);

} // namespace

// The two print layouts, drawn on recording surfaces from a real store: what is written, where,
// and on which page.
class TestStampa final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    qint32 m_id = -1;

    // A red picture of 40 x 30 pixels in the store's folder.
    QString Copertina() {
        QImage rossa(40, 30, QImage::Format_RGB32);
        rossa.fill(Qt::red);
        const QString percorso = m_archivio->Cartella() + QStringLiteral("/copertina.png");
        rossa.save(percorso);
        return percorso;
    }

    // Collection "Dischi" with one field "Titolo" and `n` records "Disco i".
    void Dischi(int n) {
        const qint32 titolo = AggiungiCampo(m_id, {{"nome", "Titolo"}});
        for (int i = 1; i <= n; ++i)
            ScriviValore(titolo, i, QStringLiteral("Disco %1").arg(i));
    }

    // One record of an image field "Copertina" holding `valore`, then a text field "Zeta".
    void ConCopertina(const QString& valore) {
        ScriviValore(AggiungiCampo(m_id, {{"nome", "Copertina"}, {"tipo", "image"}, {"special", "TRUE"}}), 1,
                     valore);
        ScriviValore(AggiungiCampo(m_id, {{"nome", "Zeta"}}), 1, "ultimo");
    }

private Q_SLOTS:
    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_id = CreaCollezione("Dischi", QString());
    }

    void cleanup() { m_archivio.reset(); }

    // Three records, three pages: each headed by its number, right-aligned by the width of the text
    // with the space that the printed text lacks, a rule under it, then the fields.
    void schedeUnaPaginaPerRecord() {
        Dischi(3);
        SuperficieProva s(true, A4);
        StampaSchede(s, m_id, true, true);
        QCOMPARE(s.Pagine(), 3);
        QCOMPARE(s.pagineChieste, 3);
        QCOMPARE(s.lavoriChiusi, 1);
        const double riga = s.AltezzaRiga();
        for (int p = 0; p < 3; ++p) {
            const RegistroDisegno& pagina = s.Pagina(p);
            const QString n = QString::number(p + 1);
            QCOMPARE(pagina.Testi(), QStringList({"Record " + n + "di 3", "Titolo:", "Disco " + n}));
            const auto* intestazione = pagina.Cerca("Record " + n + "di 3");
            QCOMPARE(intestazione->punto.x(), A4.width() - s.LarghezzaTesto("Record " + n + " di 3"));
            QVERIFY(intestazione->punto.y() > 0 && intestazione->punto.y() < riga);
            QCOMPARE(pagina.linee, QList<QLineF>({QLineF(20, riga, A4.width(), riga)}));
            const auto* etichetta = pagina.Cerca("Titolo:");
            QCOMPARE(etichetta->punto, QPointF(20, intestazione->punto.y() + 2 * riga));
            QCOMPARE(pagina.Cerca("Disco " + n)->punto,
                     QPointF(30 * s.LarghezzaColonna(), etichetta->punto.y()));
        }
    }

    // On a picture box the same records follow one another: no page is asked for, no job ended.
    void schedeSuUnaCasellaUnaDopoLAltra() {
        Dischi(3);
        SuperficieProva s(false, A4);
        StampaSchede(s, m_id, true, false);
        QCOMPARE(s.Pagine(), 1);
        QCOMPARE(s.pagineChieste, 0);
        QCOMPARE(s.lavoriChiusi, 0);
        const RegistroDisegno& pagina = s.Pagina(0);
        QCOMPARE(pagina.Testi(),
                 QStringList({"Titolo:", "Disco 1", "Titolo:", "Disco 2", "Titolo:", "Disco 3"}));
        QVERIFY(pagina.linee.isEmpty());
        QCOMPARE(pagina.testi.at(2).punto.y() - pagina.testi.at(0).punto.y(), 2 * s.AltezzaRiga());
    }

    // Fields come in the order of their names, whatever their labels and tab order; a field with no
    // value row in a record is left out of it.
    void schedeInOrdineDiNome() {
        const qint32 zeta = AggiungiCampo(m_id, {{"nome", "Zeta"}, {"etichetta", "Primo"}, {"tabindex", 0}});
        const qint32 beta =
            AggiungiCampo(m_id, {{"nome", "beta"}, {"etichetta", "Secondo"}, {"tabindex", 1}});
        const qint32 alfa = AggiungiCampo(m_id, {{"nome", "Alfa"}, {"tabindex", 2}});
        ScriviValore(zeta, 1, "z1");
        ScriviValore(beta, 1, "b1");
        ScriviValore(alfa, 1, "a1");
        ScriviValore(zeta, 2, "z2");
        ScriviValore(alfa, 2, "");
        SuperficieProva s(true, A4);
        StampaSchede(s, m_id, false, false);
        QCOMPARE(s.Pagine(), 2);
        QCOMPARE(s.Pagina(0).Testi(), QStringList({"Alfa:", "a1", "Secondo:", "b1", "Primo:", "z1"}));
        QCOMPARE(s.Pagina(1).Testi(), QStringList({"Alfa:", "Primo:", "z2"}));
    }

    // An image field: its picture at the value column at its natural size, the next line moved down
    // by the picture's height in pixels; its path when pictures are off; its label only when empty.
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
        const QString percorso = vuoto ? QString() : Copertina();
        ConCopertina(percorso);
        SuperficieProva s(true, A4);
        StampaSchede(s, m_id, immagini, false);
        const RegistroDisegno& pagina = s.Pagina(0);
        const auto* etichetta = pagina.Cerca("Copertina:");
        const double alto = etichetta->punto.y();
        const double passo = pagina.Cerca("Zeta:")->punto.y() - alto;
        if (immagini && !vuoto) {
            QCOMPARE(pagina.Testi(), QStringList({"Copertina:", "Zeta:", "ultimo"}));
            QCOMPARE(pagina.figure.size(), 1);
            const QRectF dove = pagina.figure.at(0).dove;
            QCOMPARE(dove.size(), QSizeF(600, 450));
            QCOMPARE(dove.x(), 30 * s.LarghezzaColonna());
            QVERIFY(dove.y() < alto && alto - dove.y() < s.AltezzaRiga());
            QCOMPARE(passo, 30 + s.AltezzaRiga());
            return;
        }
        QVERIFY(pagina.figure.isEmpty());
        QCOMPARE(passo, s.AltezzaRiga());
        QCOMPARE(pagina.Testi(), vuoto ? QStringList({"Copertina:", "Zeta:", "ultimo"})
                                       : QStringList({"Copertina:", percorso, "Zeta:", "ultimo"}));
    }

    // A picture that cannot be read stops the sheet with a message that names it.
    void schedeImmagineMancante() {
        const QString percorso = m_archivio->Cartella() + QStringLiteral("/sparita.png");
        ConCopertina(percorso);
        SuperficieProva s(false, A4);
        try {
            StampaSchede(s, m_id, true, true);
            QFAIL("a missing picture was drawn");
        } catch (const std::runtime_error& errore) {
            QVERIFY2(QString::fromLocal8Bit(errore.what()).contains(percorso), errore.what());
        }
    }

    // The table: record 1's labels as heading at print columns 0, 25, 50..., a rule under them, one
    // line per record; an image field shows the file's name; a value wider than its column pushes the
    // next one to the following tab stop; a field record 1 lacks has no heading.
    void tabella() {
        const qint32 anno = AggiungiCampo(m_id, {{"nome", "Anno"}});
        const qint32 copertina = AggiungiCampo(m_id, {{"nome", "Copertina"}, {"tipo", "image"}});
        const qint32 titolo = AggiungiCampo(m_id, {{"nome", "titolo"}, {"etichetta", "Titolo del disco"}});
        const qint32 zeta = AggiungiCampo(m_id, {{"nome", "Zeta"}});
        const QString lungo = QStringLiteral("Un titolo lungo più di trentacinque lettere");
        ScriviValore(anno, 1, "1959");
        ScriviValore(copertina, 1, "C:\\dischi\\blu.bmp");
        ScriviValore(titolo, 1, "Kind of Blue");
        ScriviValore(anno, 2, "1961");
        ScriviValore(copertina, 2, "/home/io/dischi/verde.png");
        ScriviValore(titolo, 2, lungo);
        ScriviValore(zeta, 2, "z");
        SuperficieProva s(false, A4);
        StampaTabellare(s, m_id);
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
        QCOMPARE(s.pagineChieste, 0);
        QCOMPARE(s.lavoriChiusi, 0);
    }

    // On the printer a line that no longer fits starts a new page, at the same x; a picture box
    // draws no line below its bottom and stops at the first record that starts there.
    void tabellaAPagine_data() {
        QTest::addColumn<bool>("stampante");
        QTest::addColumn<QList<QStringList>>("pagine");
        QTest::newRow("printer") << true
                                 << QList<QStringList>{
                                        {"Titolo", "Disco 1", "Disco 2", "Disco 3"},
                                        {"Disco 4", "Disco 5", "Disco 6", "Disco 7", "Disco 8"},
                                        {"Disco 9", "Disco 10"}};
        QTest::newRow("picture box") << false
                                     << QList<QStringList>{
                                            {"Titolo", "Disco 1", "Disco 2", "Disco 3", "Disco 4"}};
    }

    void tabellaAPagine() {
        QFETCH(bool, stampante);
        QFETCH(QList<QStringList>, pagine);
        const qint32 titolo = AggiungiCampo(m_id, {{"nome", "Titolo"}});
        // From record 4 on, an empty value comes first: the title is the first text of the line.
        const qint32 vuoto = AggiungiCampo(m_id, {{"nome", "A"}});
        for (int i = 1; i <= 10; ++i) {
            ScriviValore(titolo, i, QStringLiteral("Disco %1").arg(i));
            if (i > 3)
                ScriviValore(vuoto, i, "");
        }
        SuperficieProva misura(stampante, A4);
        SuperficieProva s(stampante, QSizeF(A4.width(), misura.AltezzaRiga() * 5.5));
        StampaTabellare(s, m_id);
        QList<QStringList> trovate;
        for (int p = 0; p < s.Pagine(); ++p)
            trovate << s.Pagina(p).Testi();
        QCOMPARE(trovate, pagine);
        QCOMPARE(s.pagineChieste, stampante ? 2 : 0);
        QCOMPARE(s.lavoriChiusi, stampante ? 1 : 0);
        if (!stampante)
            return;
        for (int p = 0; p < s.Pagine(); ++p)
            for (const auto& testo : s.Pagina(p).testi)
                QVERIFY(testo.punto.y() < s.ScaleHeight());
        QCOMPARE(s.Pagina(1).Cerca("Disco 4")->punto.x(), 25 * s.LarghezzaColonna());
    }

    // An empty collection prints nothing; on the printer its empty job is still ended.
    void collezioneVuota() {
        SuperficieProva schede(true, A4);
        StampaSchede(schede, m_id, true, true);
        SuperficieProva tabella(true, A4);
        StampaTabellare(tabella, m_id);
        for (const SuperficieProva* s : {&schede, &tabella}) {
            QCOMPARE(s->Pagine(), 0);
            QCOMPARE(s->lavoriChiusi, 1);
        }
    }

    // In real pixels: the rule runs from x = 20 twips to the right edge, the picture is where the
    // value column starts, and the record number is written at the right.
    void schedeSuImmagine() {
        ConCopertina(Copertina());
        SuperficieImmagine s(QSize(700, 300));
        StampaSchede(s, m_id, true, true);
        const QImage immagine = s.Finita();
        // An antialiased rule between two pixel rows greys both.
        const int rigaPixel = static_cast<int>(s.AltezzaRiga() / Superficie::TwipPerPixel);
        int scure = 0;
        for (int x = 3; x < 697; ++x)
            scure +=
                std::min(qGray(immagine.pixel(x, rigaPixel)), qGray(immagine.pixel(x, rigaPixel + 1))) < 200;
        QVERIFY2(scure > 680, qPrintable(QString::number(scure)));
        const QPoint figura(qRound(30 * s.LarghezzaColonna() / 15) + 20,
                            qRound(3 * s.AltezzaRiga() / 15) + 10);
        QCOMPARE(immagine.pixelColor(figura), QColor(Qt::red));
        int testo = 0;
        for (int x = 600; x < 700; ++x)
            for (int y = 0; y < rigaPixel - 1; ++y)
                testo += qGray(immagine.pixel(x, y)) < 128 ? 1 : 0;
        QVERIFY(testo > 20);
        for (int y = 0; y < rigaPixel - 1; ++y)
            QCOMPARE(qGray(immagine.pixel(0, y)), 255);
    }

    // The two position routines on their own.
    void posizioni() {
        SuperficieProva s(false, A4);
        s.CurrentY = 300;
        LineaOrizzontale(s, 40);
        QCOMPARE(s.Pagina(0).linee, QList<QLineF>({QLineF(40, 300, A4.width(), 300)}));
        QCOMPARE(QPointF(s.CurrentX, s.CurrentY), QPointF(A4.width(), 300));
        AllineaADestra(s, "abc");
        s.Stampa("abc");
        QCOMPARE(s.CurrentX, A4.width());
    }
};

QTEST_MAIN(TestStampa)
#include "tst_stampa.moc"
