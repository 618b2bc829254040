#include "aprirecord.h"
#include "archivio.h"
#include "archiviotemporaneo.h"
#include "areamdi.h"
#include "campiprova.h"
#include "frmrecord.h"
#include "immagine.h"
#include "impostazioni.h"
#include "interazionescriptata.h"
#include "opzioniaspetto.h"
#include "routinesql.h"
#include "stampatesto.h"

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPrinter>
#include <QPrinterInfo>
#include <QToolBar>
#include <QtTest>
#include <memory>

// The record window's colours and background picture per collection, image fields, copy and print.
class TestAspettoRecord final : public QObject {
    Q_OBJECT

private:
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
        const QString percorso = Percorso(nome);
        return figura.save(percorso) ? percorso : QString();
    }

    void Apri(qint32 idCollezione) {
        ApriRecord(idCollezione, 1);
        QVERIFY(QTest::qWaitForWindowExposed(&F()));
    }

    // What the window draws at a point: the background picture, colours and controls together.
    QColor Pixel(const QPoint& punto) { return F().grab().toImage().pixelColor(punto); }
    QColor Angolo() { return Pixel(QPoint(F().width() - 3, F().height() - 3)); } // the window's background
    QColor SuEtichetta() { return Pixel(C<QLabel>("Label1(1)").geometry().topLeft() + QPoint(1, 1)); }

    // Another window of the frame is activated, then the record window again.
    void Riattiva() {
        QMdiSubWindow* record = m_area->activeSubWindow();
        QVERIFY(record && record->widget() == &F());
        std::unique_ptr<QWidget> altra(m_area->addSubWindow(new QWidget));
        altra->show();
        m_area->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(altra.get()));
        m_area->setActiveSubWindow(record);
    }

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_area = std::make_unique<AreaMdi>(QSize(640, 420));
        m_dischi = CreaCollezione("Dischi", QString());
        ScriviValore(AggiungiCampo(m_dischi, {{"nome", "Titolo"}, {"etichetta", "Titolo"}, {"top", 40}}), 1,
                     "Blue Train");
        ScriviValore(AggiungiCampo(m_dischi, {{"nome", "anno"}, {"tipo", "checkbox"}, {"top", 80}}), 1, "1");
        QVariantHash genere{{"nome", "Genere"}, {"etichetta", "Genere"}, {"tipo", "combo"}, {"top", 130}};
        genere.insert("special", "Jazz|Rock");
        ScriviValore(AggiungiCampo(m_dischi, genere), 1, "0");
        QVariantHash copertina{
            {"nome", "Copertina"}, {"etichetta", "Copertina"}, {"tipo", "image"}, {"special", "TRUE"}};
        copertina.insert({{"left", 200}, {"top", 40}, {"width", 90}, {"height", 90}});
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

    void menuOpzioni() {
        Apri(m_dischi);
        QStringList albero;
        for (QMenu* menu : {F().mnuOpzioni, F().mnuColori, F().mnuImmagineSfondo}) {
            QStringList voci;
            for (const QAction* azione : menu->actions())
                voci << azione->objectName() + ":" + azione->text();
            albero << menu->objectName() + " " + menu->title() + " > " + voci.join(", ");
        }
        QCOMPARE(albero,
                 (QStringList{"mnuOpzioni Opzioni > :Imposta Colori, :Immagine di Sfondo",
                              "mnuColori Imposta Colori > mnuColoreTestoEtichette:Colore Testo Etichette, "
                              "mnuColoreSfondoEtichette:Colore Sfondo Etichette, mnuColoreSfondo:Colore "
                              "Sfondo Finestra, mnuColoreTestoControlli:Colore Testo Controlli",
                              "mnuImmagineSfondo Immagine di Sfondo > mnuScegliImmagine:Imposta Immagine, "
                              "mnuRimuovi:Rimuovi Immagine"}));
        QCOMPARE(F().mnuOpzioni->actions().at(0)->menu(), F().mnuColori);
        QCOMPARE(F().mnuFile->actions().at(1)->text() + ", " + F().mnuFile->actions().at(2)->text(),
                 QString("Copia negli Appunti, Stampa"));
    }

    // Each colour menu stores the colour number under its lower-cased name and colours its controls.
    void colori_data() {
        QTest::addColumn<QString>("menu");
        QTest::addColumn<QColor>("colore");
        QTest::addColumn<QString>("numero");
        QTest::addColumn<int>("ruolo");
        QTest::addColumn<QStringList>("controlli");
        const QStringList etichette{"Label1(1)", "Check1(1)"};
        QTest::newRow("label text") << "mnuColoreTestoEtichette" << QColor(1, 2, 3) << "197121"
                                    << int(QPalette::WindowText) << etichette;
        QTest::newRow("label background, black")
            << "mnuColoreSfondoEtichette" << QColor(0, 0, 0) << "0" << int(QPalette::Window) << etichette;
        QTest::newRow("window, translucent white")
            << "mnuColoreSfondo" << QColor(255, 255, 255, 10) << "16777215" << 0 << QStringList();
        QTest::newRow("control text, blue") << "mnuColoreTestoControlli" << QColor(0, 0, 255) << "16711680"
                                            << int(QPalette::Text) << QStringList{"Text1(1)", "Combo1(1)"};
    }

    void colori() {
        QFETCH(QString, menu);
        QFETCH(QColor, colore);
        QFETCH(QString, numero);
        QFETCH(int, ruolo);
        QFETCH(QStringList, controlli);
        Apri(m_dischi);
        InterazioneScriptata script;
        script.Colore(colore);
        F().findChild<QAction*>(menu)->trigger();
        VERIFICA_SCRIPT(script);
        const QString chiave = menu.mid(3).toLower();
        QCOMPARE(ChiaviSezione(Sezione(m_dischi)), QStringList{chiave});
        QCOMPARE(GetSetting(Sezione(m_dischi), chiave), numero);
        const QColor atteso(colore.rgb()); // opaque
        for (const QString& controllo : controlli)
            QCOMPARE(F().Controllo(controllo)->palette().color(QPalette::ColorRole(ruolo)), atteso);
        const bool riempite = chiave == "coloresfondoetichette";
        QCOMPARE(QList<bool>({C<QLabel>("Label1(1)").autoFillBackground(),
                              C<QCheckBox>("Check1(1)").autoFillBackground()}),
                 QList<bool>({riempite, riempite}));
        if (riempite)
            QCOMPARE(SuEtichetta(), atteso);
        if (chiave == "coloresfondo")
            QCOMPARE(Angolo(), atteso);
    }

    void coloreAnnullato_nullaCambia() {
        Apri(m_dischi);
        const QColor prima = Angolo();
        InterazioneScriptata script;
        script.Colore(std::nullopt);
        F().mnuColoreSfondo->trigger();
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.Richieste().at(0).colore, QColor(Qt::black));
        QVERIFY(ChiaviSezione(Sezione(m_dischi)).isEmpty());
        QCOMPARE(Angolo(), prima);
    }

    // Stored by hand: 0 is black and applied; -1 and non-numbers keep the built colours.
    void zeroApplicato_menoUnoNo() {
        Apri(m_libri);
        const QColor sfondo = Angolo();
        const QPalette costruita = C<QLabel>("Label1(1)").palette();
        SaveSetting(Sezione(m_dischi), "coloresfondo", "-1");
        SaveSetting(Sezione(m_dischi), "coloresfondoetichette", "0");
        SaveSetting(Sezione(m_dischi), "coloretestoetichette", "verde");
        SaveSetting(Sezione(m_dischi), "coloretestocontrolli", "-16777216");
        Apri(m_dischi);
        QCOMPARE(Angolo(), sfondo);
        QVERIFY(C<QLabel>("Label1(1)").autoFillBackground());
        QCOMPARE(SuEtichetta(), QColor(Qt::black));
        QCOMPARE(C<QLabel>("Label1(1)").palette().color(QPalette::WindowText),
                 costruita.color(QPalette::WindowText));
        QCOMPARE(C<QLineEdit>("Text1(1)").palette().color(QPalette::Text), costruita.color(QPalette::Text));
    }

    // One window shows one collection after the other: each gets its own colours, none of the other's.
    void coloriPerCollezione() {
        SaveSetting(Sezione(m_dischi), "coloresfondo", QString::number(0x0000FF));
        SaveSetting(Sezione(m_libri), "coloretestoetichette", QString::number(0x00FF00));
        for (const qint32 id : {m_dischi, m_libri, m_dischi}) {
            Apri(id);
            QCOMPARE(Angolo() == QColor(255, 0, 0), id == m_dischi);
            QCOMPARE(C<QLabel>("Label1(1)").palette().color(QPalette::WindowText) == QColor(0, 255, 0),
                     id == m_libri);
        }
    }

    void immagineDiSfondo() {
        const QString figura = Figura("sfondo.png", QColor(200, 30, 30));
        Apri(m_dischi);
        InterazioneScriptata script;
        script.File(figura);
        F().mnuScegliImmagine->trigger();
        VERIFICA_SCRIPT(script);
        const RichiestaFile& richiesta = script.Richieste().at(0).file;
        QVERIFY(richiesta.apertura);
        QCOMPARE(richiesta.titolo, QString("Scegli Immagine..."));
        QCOMPARE(richiesta.cartellaIniziale, AppPath());
        QCOMPARE(richiesta.filtri, (QList<QPair<QString, QString>>{
                                       {"Immagini Supportate", "*.bmp;*.gif;*.jpg;*.jpeg;*.png;*.wmf"},
                                       {"Tutti i files", "*.*"}}));
        QCOMPARE(GetSetting(Sezione(m_dischi), "immaginesfondo"), figura);
        const QPoint sottoLaBarra(3, F().Toolbar1->height() + 2);
        QCOMPARE(Pixel(sottoLaBarra), QColor(200, 30, 30));

        Apri(m_libri);
        QVERIFY(F().ImmagineSfondo().isNull());
        Apri(m_dischi);
        QCOMPARE(F().ImmagineSfondo().size(), QSize(120, 80));

        F().mnuRimuovi->trigger();
        QVERIFY(F().ImmagineSfondo().isNull());
        QCOMPARE(GetSetting(Sezione(m_dischi), "immaginesfondo", "assente"), QString());
        QVERIFY(Pixel(sottoLaBarra) != QColor(200, 30, 30));
    }

    // As a person sees it: picture at its own size, window colour beyond, labels over it, image field.
    void finestraColorata() {
        QImage sfumatura(260, 200, QImage::Format_RGB32);
        for (int y = 0; y < sfumatura.height(); ++y)
            for (int x = 0; x < sfumatura.width(); ++x)
                sfumatura.setPixelColor(x, y, QColor(250 - y / 2, 220, 150 + x / 3));
        QVERIFY(sfumatura.save(Percorso("sfumatura.png")));
        SaveSetting(Sezione(m_dischi), "immaginesfondo", Percorso("sfumatura.png"));
        SaveSetting(Sezione(m_dischi), "coloresfondo", QString::number(NumeroColore(QColor(60, 80, 120))));
        SaveSetting(Sezione(m_dischi), "coloresfondoetichette",
                    QString::number(NumeroColore(QColor(255, 240, 200))));
        Database().Esegui(QStringLiteral("update valori set valore='%1' where id_campo=%2")
                              .arg(Figura("copertina.png", QColor(20, 90, 40)))
                              .arg(m_copertina));
        Apri(m_dischi);
        QCOMPARE(SuEtichetta(), QColor(255, 240, 200));
        QCOMPARE(Pixel(QPoint(3, F().Toolbar1->height() + 2)), sfumatura.pixelColor(3, 2));
        QCOMPARE(Angolo(), QColor(60, 80, 120));
        QCOMPARE(Pixel(C<Immagine>("Image1(1)").geometry().center()), QColor(20, 90, 40));
        if (const QString cartella = qEnvironmentVariable("ORVIX_SCHERMATE"); !cartella.isEmpty())
            QVERIFY(m_area->grab().save(QDir(cartella).filePath("frmrecord-colorata.png")));
    }

    // A picture that cannot be read is refused with a message naming it; nothing is stored.
    void immagineIllegibile() {
        const QString falsa = Percorso("disegno.wmf");
        QFile file(falsa);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("non un'immagine") > 0);
        file.close();
        Apri(m_dischi);
        InterazioneScriptata script;
        script.File(falsa).Rispondi(Risposta::Ok);
        F().mnuScegliImmagine->trigger();
        VERIFICA_SCRIPT(script);
        QVERIFY2(script.TestiMessaggi().at(0).startsWith("Impossibile caricare l'immagine \"" +
                                                         QDir::toNativeSeparators(falsa) +
                                                         "\": formato non riconosciuto"),
                 qPrintable(script.TestiMessaggi().at(0)));
        QVERIFY(ChiaviSezione(Sezione(m_dischi)).isEmpty());
        QVERIFY(F().ImmagineSfondo().isNull());
    }

    // A lost picture: one message per opening, not per activation; new colours show on activation.
    void immagineSparita() {
        SaveSetting(Sezione(m_dischi), "immaginesfondo", Percorso("sparita.png"));
        SaveSetting(Sezione(m_dischi), "coloresfondo", "255");
        InterazioneScriptata script;
        script.Rispondi(Risposta::Ok);
        Apri(m_dischi);
        QCOMPARE(Angolo(), QColor(255, 0, 0));
        SaveSetting(Sezione(m_dischi), "coloresfondo", "65280");
        QCOMPARE(Angolo(), QColor(255, 0, 0));
        Riattiva();
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.TestiMessaggi(),
                 QStringList{"Impossibile caricare l'immagine \"" +
                             QDir::toNativeSeparators(Percorso("sparita.png")) + "\": il file non esiste."});
        QVERIFY(F().isVisible());
        QCOMPARE(Angolo(), QColor(0, 255, 0));
        script.Rispondi(Risposta::Ok);
        Apri(m_dischi);
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.TestiMessaggi().size(), 2);
    }

    // Only a record being entered or edited takes a picture; the path is stored, the file stays put.
    void campoImmagine() {
        const QString figura = Figura("copertina.png", QColor(20, 90, 40));
        Apri(m_dischi);
        Immagine& copertina = C<Immagine>("Image1(1)");
        InterazioneScriptata script;
        QTest::mouseClick(&copertina, Qt::LeftButton);
        VERIFICA_SCRIPT(script);
        F().Toolbar1_ButtonClick("edit");
        script.File("");
        QTest::mouseClick(&copertina, Qt::LeftButton);
        VERIFICA_SCRIPT(script);
        QCOMPARE(copertina.property("Tag").toString(), QString());
        script.File(figura);
        QTest::mouseClick(&copertina, Qt::LeftButton);
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.Richieste().at(1).file.titolo, QString("Scegli Immagine..."));
        QCOMPARE(copertina.property("Tag").toString(), figura);
        QCOMPARE(copertina.pixmap().size(), QSize(120, 80));
        F().Toolbar1_ButtonClick("ok");
        QCOMPARE(ValoriDelCampo(m_copertina), QStringList{"1=" + figura});
        QCOMPARE(QDir(m_archivio->Cartella()).entryList({"*.png"}), QStringList{"copertina.png"});

        F().Toolbar1_ButtonClick("new");
        script.File(figura);
        QTest::mouseClick(&copertina, Qt::LeftButton);
        F().Toolbar1_ButtonClick("ok");
        VERIFICA_SCRIPT(script);
        QCOMPARE(ValoriDelCampo(m_copertina), (QStringList{"1=" + figura, "2=" + figura}));
    }

    void copiaNegliAppunti() {
        Apri(m_dischi);
        F().mnuClipBoard->trigger();
        QCOMPARE(QGuiApplication::clipboard()->text(),
                 QString("anno\tCopertina\tGenere\tTitolo\r\n1\t\t0\tBlue Train"));
    }

    // "Stampa" into a PDF read back as text; a record that does not exist prints nothing.
    void stampa() {
        const QString pdf = Percorso("record.pdf");
        ImpostaStampantePredefinita([pdf](QPrinter& stampante) {
            stampante.setOutputFormat(QPrinter::PdfFormat);
            stampante.setOutputFileName(pdf);
        });
        Apri(m_dischi);
        F().RecordCorrente = 7;
        F().mnuStampa->trigger();
        QVERIFY(!QFile::exists(pdf));
        F().RecordCorrente = 1;
        F().mnuStampa->trigger();
        QProcess pdftotext;
        pdftotext.start("pdftotext", {"-layout", pdf, "-"});
        QVERIFY(pdftotext.waitForFinished());
        const QStringList righe =
            QString::fromUtf8(pdftotext.readAllStandardOutput()).trimmed().split('\n', Qt::SkipEmptyParts);
        QCOMPARE(righe.size(), 2);
        QCOMPARE(righe.at(0).simplified() + " | " + righe.at(1).simplified(),
                 QString("anno Copertina Genere Titolo | 1 0 Blue Train"));
        QVERIFY(righe.at(1).indexOf("Blue") > righe.at(0).indexOf("Genere"));
    }

    void stampaSenzaStampante() {
        if (!QPrinterInfo::defaultPrinter().isNull())
            QSKIP("this machine has a default printer");
        Apri(m_dischi);
        InterazioneScriptata script;
        script.Rispondi(Risposta::Ok);
        F().mnuStampa->trigger();
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.TestiMessaggi(),
                 QStringList{"Impossibile stampare: non è installata una stampante predefinita."});
    }
};

QTEST_MAIN(TestAspettoRecord)
#include "tst_aspettorecord.moc"
