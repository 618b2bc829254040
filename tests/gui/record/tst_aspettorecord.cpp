#include "aprirecord.h"
#include "archiviotemporaneo.h"
#include "areamdi.h"
#include "campiprova.h"
#include "frmrecord.h"
#include "immagine.h"
#include "impostazioni.h"
#include "interazionescriptata.h"
#include "routinesql.h"
#include "stampatesto.h"

#include <QAction>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QPrinterInfo>
#include <QToolBar>
#include <QtTest>
#include <memory>

// The record window's colours and background picture per collection, image fields, copy and print.
class TestAspettoRecord final : public QObject {
    Q_OBJECT

    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    std::unique_ptr<AreaMdi> m_area;
    qint32 m_dischi = 0;
    qint32 m_libri = 0;
    qint32 m_copertina = 0;

    frmRecord& F() { return FinestraRecord(); }
    template <typename T> T& C(const QString& chiave) { return *qobject_cast<T*>(F().Controllo(chiave)); }
    QString Percorso(const QString& nome) const { return QDir(m_archivio->Cartella()).filePath(nome); }
    static QString Sezione(qint32 id) { return "opzioni" + QString::number(id); }

    QString Figura(const QString& nome, const QColor& colore) const {
        QImage figura(120, 80, QImage::Format_RGB32);
        figura.fill(colore);
        return figura.save(Percorso(nome)) ? Percorso(nome) : QString();
    }

    void Apri(qint32 idCollezione) {
        ApriRecord(idCollezione, 1);
        QVERIFY(QTest::qWaitForWindowExposed(&F()));
    }

    // What the window draws at a point: the background picture, colours and controls together.
    QColor Pixel(const QPoint& punto) { return F().grab().toImage().pixelColor(punto); }
    QColor Angolo() { return Pixel(QPoint(F().width() - 3, F().height() - 3)); } // the window's background

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_area = std::make_unique<AreaMdi>(QSize(640, 420));
        m_dischi = CreaCollezione("Dischi", QString());
        ScriviValore(AggiungiCampo(m_dischi, {{"nome", "Titolo"}, {"etichetta", "Titolo"}, {"top", 40}}), 1,
                     "Blue Train");
        QVariantHash copertina{{"nome", "Copertina"}, {"tipo", "image"}, {"special", "TRUE"}, {"left", 200}};
        copertina.insert({{"top", 40}, {"width", 90}, {"height", 90}});
        m_copertina = AggiungiCampo(m_dischi, copertina);
        ScriviValore(m_copertina, 1, "");
        m_libri = CreaCollezione("Libri", QString());
        ScriviValore(AggiungiCampo(m_libri, {{"nome", "Editore"}, {"etichetta", "Editore"}}), 1, "Sellerio");
    }

    void cleanup() {
        ImpostaStampantePredefinita({});
        m_area.reset();
        m_archivio.reset();
    }

    // A colour menu stores the colour number (red in the low byte, no alpha) under its lower-cased name
    // and colours its controls; cancelled, it stores nothing.
    void colori() {
        Apri(m_dischi);
        InterazioneScriptata script;
        script.Colore(std::nullopt).Colore(QColor(0, 0, 255, 10));
        F().mnuColoreTestoControlli->trigger();
        QVERIFY(ChiaviSezione(Sezione(m_dischi)).isEmpty());
        F().mnuColoreTestoControlli->trigger();
        VERIFICA_SCRIPT(script);
        QCOMPARE(GetSetting(Sezione(m_dischi), "coloretestocontrolli"), QString("16711680"));
        QCOMPARE(C<QLineEdit>("Text1(1)").palette().color(QPalette::Text), QColor(0, 0, 255));
    }

    // Each collection gets its own colours, none of the other's; stored by hand, 0 is black and applied,
    // -1 keeps the built colour.
    void coloriPerCollezione() {
        Apri(m_dischi);
        const QColor sfondo = Angolo();
        SaveSetting(Sezione(m_libri), "coloresfondo", QString::number(0x0000FF));
        SaveSetting(Sezione(m_dischi), "coloresfondo", "-1");
        SaveSetting(Sezione(m_dischi), "coloresfondoetichette", "0");
        Apri(m_libri);
        QCOMPARE(Angolo(), QColor(255, 0, 0));
        Apri(m_dischi);
        QCOMPARE(Angolo(), sfondo);
        QCOMPARE(Pixel(C<QLabel>("Label1(1)").geometry().topLeft() + QPoint(1, 1)), QColor(Qt::black));
    }

    // An unreadable picture is refused with a message naming it; a good one is stored, drawn and kept to
    // its collection; lost, it is told and the window opens all the same; removed, it is forgotten.
    void immagineDiSfondo() {
        const QString falsa = QCoreApplication::applicationFilePath();
        const QString figura = Figura("sfondo.png", QColor(200, 30, 30));
        Apri(m_dischi);
        InterazioneScriptata script;
        script.File(falsa).Rispondi(Risposta::Ok).File(figura);
        F().mnuScegliImmagine->trigger();
        QVERIFY(
            script.TestiMessaggi().value(0).startsWith("Impossibile caricare l'immagine \"" + falsa + "\""));
        QVERIFY(ChiaviSezione(Sezione(m_dischi)).isEmpty());
        F().mnuScegliImmagine->trigger();
        VERIFICA_SCRIPT(script);
        QCOMPARE(GetSetting(Sezione(m_dischi), "immaginesfondo"), figura);
        QCOMPARE(Pixel(QPoint(3, F().Toolbar1->height() + 2)), QColor(200, 30, 30));
        Apri(m_libri);
        QVERIFY(F().ImmagineSfondo().isNull());
        QVERIFY(QFile::remove(figura));
        script.Rispondi(Risposta::Ok);
        Apri(m_dischi);
        VERIFICA_SCRIPT(script);
        QVERIFY(script.TestiMessaggi().value(1).endsWith(figura + "\": il file non esiste."));
        QVERIFY(F().isVisible());
        F().mnuRimuovi->trigger();
        QCOMPARE(GetSetting(Sezione(m_dischi), "immaginesfondo", "assente"), QString());
    }

    // On activation the background picture comes before the colours: while its failure is told, the
    // window still has its own colour; the colour follows once the message is closed.
    void sfondoPrimaDeiColori() {
        SaveSetting(Sezione(m_dischi), "immaginesfondo", Percorso("persa.png"));
        SaveSetting(Sezione(m_dischi), "coloresfondo", QString::number(0x00FF00));
        InterazioneScriptata script;
        bool colorataPrima = true;
        script.Rispondi(Risposta::Ok, [&] { colorataPrima = F().autoFillBackground(); });
        Apri(m_dischi);
        VERIFICA_SCRIPT(script);
        QVERIFY(script.TestiMessaggi().value(0).endsWith("persa.png\": il file non esiste."));
        QVERIFY(!colorataPrima);
        QCOMPARE(F().palette().color(QPalette::Window), QColor(0, 255, 0));
    }

    // Only a record being edited takes a picture; cancelling keeps none; the path is stored, the file stays.
    void campoImmagine() {
        const QString figura = Figura("copertina.png", QColor(20, 90, 40));
        Apri(m_dischi);
        Immagine& copertina = C<Immagine>("Image1(1)");
        InterazioneScriptata script;
        QTest::mouseClick(&copertina, Qt::LeftButton);
        VERIFICA_SCRIPT(script);
        F().Toolbar1_ButtonClick("edit");
        script.File("").File(figura);
        QTest::mouseClick(&copertina, Qt::LeftButton);
        QCOMPARE(copertina.property("Tag").toString(), QString());
        QTest::mouseClick(&copertina, Qt::LeftButton);
        VERIFICA_SCRIPT(script);
        F().Toolbar1_ButtonClick("ok");
        QCOMPARE(ValoriDelCampo(m_copertina), QStringList{"1=" + figura});
        QCOMPARE(QDir(m_archivio->Cartella()).entryList({"*.png"}), QStringList{"copertina.png"});
    }

    // Copy and print give the record's text; no default printer is told; a missing record prints nothing.
    void copiaEStampa() {
        Apri(m_dischi);
        F().mnuClipBoard->trigger();
        QCOMPARE(QGuiApplication::clipboard()->text(), QString("Copertina\tTitolo\r\n\tBlue Train"));
        if (QPrinterInfo::defaultPrinter().isNull()) {
            InterazioneScriptata script;
            script.Rispondi(Risposta::Ok);
            F().mnuStampa->trigger();
            VERIFICA_SCRIPT(script);
            QCOMPARE(script.TestiMessaggi(),
                     QStringList{"Impossibile stampare: non è installata una stampante predefinita."});
        }
        const QString pdf = Percorso("record.pdf");
        ImpostaStampantePredefinita([pdf](QPrinter& stampante) {
            stampante.setOutputFormat(QPrinter::PdfFormat);
            stampante.setOutputFileName(pdf);
        });
        F().RecordCorrente = 7;
        F().mnuStampa->trigger();
        QVERIFY(!QFile::exists(pdf));
        F().RecordCorrente = 1;
        F().mnuStampa->trigger();
        QProcess pdftotext;
        pdftotext.start("pdftotext", {"-layout", pdf, "-"});
        QVERIFY(pdftotext.waitForFinished());
        QCOMPARE(QString::fromUtf8(pdftotext.readAllStandardOutput()).simplified(),
                 QString("Copertina Titolo Blue Train"));
    }
};

QTEST_MAIN(TestAspettoRecord)
#include "tst_aspettorecord.moc"
