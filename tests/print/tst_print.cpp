#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "interazionescriptata.h"
#include "registrodisegno.h"

#include "archivio.h"
#include "casellafigura.h"
#include "form1.h"
#include "frmpreview.h"
#include "listecontrolli.h"
#include "routinesql.h"

#include <QAction>
#include <QCheckBox>
#include <QListWidget>
#include <QMenu>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QtTest>
#include <memory>

namespace {

// What Pic1 holds, replayed onto a recording device.
std::unique_ptr<RegistroDisegno> Registro(CasellaFigura& casella) {
    auto registro = std::make_unique<RegistroDisegno>();
    QPainter pittore(registro.get());
    for (const QPicture& disegno : casella.Disegni())
        pittore.drawPicture(0, 0, disegno);
    return registro;
}

QStringList Disegnati(CasellaFigura& casella) {
    return Registro(casella)->Testi();
}

qsizetype Figure(CasellaFigura& casella) {
    return Registro(casella)->figure.size();
}

// The PDF's text as poppler reads it, pages separated by form feeds.
QString TestoPdf(const QString& pdf) {
    QProcess lettore;
    lettore.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
    if (!lettore.waitForFinished(30000) || lettore.exitCode() != 0)
        return QStringLiteral("pdftotext failed: ") + QString::fromLocal8Bit(lettore.readAllStandardError());
    return QString::fromUtf8(lettore.readAllStandardOutput());
}

} // namespace

// "Stampa..." from the collections window, the preview and its options, and real printing to PDF
// through the printer that "Imposta Stampante" sets up.
class TestPrint final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    std::unique_ptr<Form1> m_form;
    qint32 m_id = -1;
    QString m_copertina;

    // `n` records of "Dischi": a title, a year, and for record 1 a cover picture.
    void Dischi(int n) {
        const qint32 titolo = AggiungiCampo(m_id, {{"nome", "Titolo"}, {"etichetta", "Titolo del disco"}});
        const qint32 anno = AggiungiCampo(m_id, {{"nome", "Anno"}});
        const qint32 copertina = AggiungiCampo(m_id, {{"nome", "Copertina"}, {"tipo", "image"}});
        for (int i = 1; i <= n; ++i) {
            ScriviValore(titolo, i, QStringLiteral("Disco %1").arg(i));
            ScriviValore(anno, i, QString::number(1950 + i));
            ScriviValore(copertina, i, i == 1 ? m_copertina : QString());
        }
    }

    void Seleziona() {
        CaricaCollezioniInLista(*m_form->List1);
        m_form->List1->setCurrentRow(0);
    }

    // With ORVIX_SCHERMATE set to a folder, the preview and the printed PDFs are kept there for review.
    static void Guarda(QWidget& finestra, const QString& nome) {
        QCoreApplication::processEvents(); // the scroll area lays out the sheet it shows
        if (const QString cartella = qEnvironmentVariable("ORVIX_SCHERMATE"); !cartella.isEmpty())
            QVERIFY(finestra.grab().save(QDir(cartella).filePath(nome)));
    }
    static void Conserva(const QString& pdf) {
        if (const QString cartella = qEnvironmentVariable("ORVIX_SCHERMATE"); !cartella.isEmpty()) {
            QFile::remove(QDir(cartella).filePath(QFileInfo(pdf).fileName()));
            QVERIFY(QFile::copy(pdf, QDir(cartella).filePath(QFileInfo(pdf).fileName())));
        }
    }

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_id = CreaCollezione("Dischi", QString());
        QImage copertina(120, 90, QImage::Format_RGB32);
        copertina.fill(QColor(40, 90, 160));
        m_copertina = m_archivio->Cartella() + QStringLiteral("/copertina.png");
        QVERIFY(copertina.save(m_copertina));
        m_form = std::make_unique<Form1>();
    }

    void cleanup() {
        m_form.reset();
        m_archivio.reset();
    }

    // "Stampa..." sits before the separator that precedes "Esegui Ricerca", and refuses to work
    // without a selected collection.
    void menuSenzaCollezione() {
        QStringList voci;
        for (const QAction* voce : m_form->mnuCollezioni->actions())
            voci << voce->objectName();
        QCOMPARE(voci.indexOf("mnuStampa") + 1, voci.indexOf("mnusep4"));
        QCOMPARE(m_form->mnuStampa->text(), QString("Stampa..."));
        InterazioneScriptata script;
        script.Rispondi(Risposta::Ok);
        m_form->mnuStampa->trigger();
        VERIFICA_SCRIPT(script);
        QCOMPARE(Descrivi(script.Richieste().at(0).messaggio),
                 QString("Selezionare una Collezione dall'apposita Lista! | Orvix | 1"));
    }

    // The preview opens on the sheets with pictures and record numbers; the boxes redraw it, and
    // the table disables the two options that do not apply to it.
    void anteprimaEOpzioni() {
        Dischi(3);
        Seleziona();
        InterazioneScriptata script;
        script.Modale([copertina = m_copertina](QDialog& dialogo) {
            auto& f = dynamic_cast<frmPreview&>(dialogo);
            QCOMPARE(f.windowTitle(), QString("Anteprima di Stampa..."));
            QCOMPARE(f.Immagini->text(), QString("Stampa Immagini"));
            QCOMPARE(f.NumeroRecord->text(), QString("Stampa Numero Record"));
            QCOMPARE(f.Tabulare->text(), QString("Stampa Tabulare"));
            QCOMPARE(f.cmdStampa->text(), QString("STAMPA"));
            QCOMPARE(f.cmdImpostaStampante->text(), QString("Imposta Stampante"));
            QCOMPARE(f.cmdAnnulla->text(), QString("Annulla"));
            QVERIFY(f.Immagini->isChecked() && f.NumeroRecord->isChecked() && !f.Tabulare->isChecked());
            const QStringList schede{
                "Record 1di 3", "Anno:", "1951", "Copertina:", "Titolo del disco:", "Disco 1",
                "Record 2di 3", "Anno:", "1952", "Copertina:", "Titolo del disco:", "Disco 2",
                "Record 3di 3", "Anno:", "1953", "Copertina:", "Titolo del disco:", "Disco 3"};
            QCOMPARE(Disegnati(*f.Pic1), schede);
            QCOMPARE(Figure(*f.Pic1), 1);
            Guarda(f, QStringLiteral("anteprima-schede.png"));

            f.Tabulare->click();
            QVERIFY(!f.Immagini->isEnabled() && !f.NumeroRecord->isEnabled());
            QCOMPARE(Disegnati(*f.Pic1),
                     QStringList({"Anno", "Copertina", "Titolo del disco", "1951", "copertina.png", "Disco 1",
                                  "1952", "Disco 2", "1953", "Disco 3"}));
            QCOMPARE(Figure(*f.Pic1), 0);
            Guarda(f, QStringLiteral("anteprima-tabella.png"));

            f.Tabulare->click();
            QVERIFY(f.Immagini->isEnabled() && f.NumeroRecord->isEnabled());
            QCOMPARE(Disegnati(*f.Pic1), schede);
            f.NumeroRecord->click();
            f.Immagini->click();
            QCOMPARE(Disegnati(*f.Pic1).mid(0, 4), QStringList({"Anno:", "1951", "Copertina:", copertina}));
            QCOMPARE(Figure(*f.Pic1), 0);
            f.cmdAnnulla->click();
        });
        m_form->mnuStampa->trigger();
        VERIFICA_SCRIPT(script);
    }

    // Only what can be seen is drawn: the first records of a long collection; scrolled to the
    // bottom, the box grows and the records below are drawn.
    void soloCioCheSiVede() {
        Dischi(300);
        frmPreview f;
        f.IdCollezione = m_id;
        f.Ridisegna();
        f.show();
        const QStringList primi = Disegnati(*f.Pic1);
        QVERIFY(primi.contains("Record 1di 300"));
        const int visti = static_cast<int>(primi.count("Anno:"));
        QVERIFY2(visti > 2 && visti < 20, qPrintable(QString::number(visti)));
        QVERIFY(f.Pic1->Piena());
        const int alta = f.Pic1->height();
        QScrollBar* barra = f.Scorrimento->verticalScrollBar();
        QTRY_VERIFY(barra->maximum() > 0);
        barra->setValue(barra->maximum());
        QCOMPARE(f.Pic1->height(), 2 * alta);
        const QStringList poi = Disegnati(*f.Pic1);
        QVERIFY(poi.count("Anno:") > visti);
        QCOMPARE(poi.mid(0, primi.size()), primi);
        QVERIFY(!poi.contains("Record 300di 300"));
        // Painting replays only the pieces of the drawing in sight: what is in sight is all there.
        QTRY_VERIFY(barra->maximum() > alta);
        barra->setValue(barra->maximum() * 3 / 4);
        Guarda(f, QStringLiteral("anteprima-scorsa.png"));
        const QImage vista = f.Scorrimento->viewport()->grab().toImage();
        int scuri = 0;
        for (int y = 0; y < vista.height(); ++y)
            for (int x = 0; x < vista.width(); ++x)
                scuri += qGray(vista.pixel(x, y)) < 100;
        QVERIFY2(scuri > 2000, qPrintable(QString::number(scuri)));
    }

    // "STAMPA" prints to the printer the set-up chose; a PDF read back: one page per record, nothing
    // blank at the end; the table on one page, on a landscape page that the preview follows.
    void stampaInPdf() {
        Dischi(3);
        frmPreview f;
        f.IdCollezione = m_id;
        f.Ridisegna();
        const QString schede = m_archivio->Cartella() + QStringLiteral("/schede.pdf");
        InterazioneScriptata script;
        script.Stampante(true, [&](QPrinter& stampante) {
            stampante.setOutputFormat(QPrinter::PdfFormat);
            stampante.setOutputFileName(schede);
        });
        f.cmdImpostaStampante->click();
        f.cmdStampa->click();
        Conserva(schede);
        const QString testo = TestoPdf(schede);
        QCOMPARE(testo.count(QLatin1Char('\f')), 3);
        const QStringList pagine = testo.split(QLatin1Char('\f'));
        for (int p = 0; p < 3; ++p) {
            const QString n = QString::number(p + 1);
            QVERIFY2(pagine.at(p).contains("Record " + n + "di 3"), qPrintable(pagine.at(p)));
            QVERIFY(pagine.at(p).contains("Disco " + n));
            QVERIFY(pagine.at(p).contains("Titolo del disco:"));
        }

        const QString tabella = m_archivio->Cartella() + QStringLiteral("/tabella.pdf");
        const int verticale = f.Pic1->width();
        script.Stampante(true, [&](QPrinter& stampante) {
            stampante.setPageOrientation(QPageLayout::Landscape);
            stampante.setOutputFileName(tabella);
        });
        f.cmdImpostaStampante->click();
        QVERIFY(f.Pic1->width() > verticale);
        f.Tabulare->click();
        f.cmdStampa->click();
        VERIFICA_SCRIPT(script);
        Conserva(tabella);
        const QString righe = TestoPdf(tabella);
        QCOMPARE(righe.count(QLatin1Char('\f')), 1);
        QVERIFY2(QRegularExpression("Anno +Copertina +Titolo del disco").match(righe).hasMatch(),
                 qPrintable(righe));
        QVERIFY(QRegularExpression("1951 +copertina.png +Disco 1").match(righe).hasMatch());
        QVERIFY(QRegularExpression("1953 +Disco 3").match(righe).hasMatch());
    }

    // "STAMPA" into a PDF, answering the one message it shows: that message, described.
    static QString StampaConMessaggio(frmPreview& f, const QString& pdf) {
        f.Stampante().setOutputFormat(QPrinter::PdfFormat);
        f.Stampante().setOutputFileName(pdf);
        InterazioneScriptata script;
        script.Rispondi(Risposta::Ok);
        f.cmdStampa->click();
        const QStringList errori = script.Errori();
        return errori.isEmpty() ? Descrivi(script.Richieste().at(0).messaggio)
                                : errori.join(QLatin1Char('\n'));
    }

    // A picture that cannot be read stops the printing with its name; what was printed before it is
    // abandoned, not left as a half document.
    void immagineMancanteInStampa() {
        Dischi(2);
        const QString sparita = m_archivio->Cartella() + QStringLiteral("/sparita.png");
        Database().Esegui(QStringLiteral("update valori set valore='") + sparita +
                          QStringLiteral("' where numerorecord=2 and valore=''"));
        frmPreview f;
        f.IdCollezione = m_id;
        const QString pdf = m_archivio->Cartella() + QStringLiteral("/schede.pdf");
        QVERIFY(
            StampaConMessaggio(f, pdf).startsWith("Impossibile caricare l'immagine \"" + sparita + "\": "));
        QVERIFY(!QFile::exists(pdf));
    }

    // A printer that cannot start says so; the dialog stays and prints once it can.
    void stampanteNonPronta() {
        Dischi(1);
        frmPreview f;
        f.IdCollezione = m_id;
        QCOMPARE(
            StampaConMessaggio(f, m_archivio->Cartella() + QStringLiteral("/nessuna/cartella.pdf")),
            QString("Impossibile avviare la stampa: scegliere una stampante con \"Imposta Stampante\". | "
                    "Orvix | 11"));
        const QString buona = m_archivio->Cartella() + QStringLiteral("/buona.pdf");
        f.Stampante().setOutputFileName(buona);
        f.cmdStampa->click();
        QVERIFY(TestoPdf(buona).contains("Disco 1"));
    }
};

QTEST_MAIN(TestPrint)
#include "tst_print.moc"
