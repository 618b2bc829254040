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
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QtTest>
#include <memory>

namespace {

// The texts Pic1 holds, replayed onto a recording device, then how many pictures.
QStringList Disegnati(CasellaFigura& casella) {
    RegistroDisegno registro;
    QPainter pittore(&registro);
    for (const QPicture& disegno : casella.Disegni())
        pittore.drawPicture(0, 0, disegno);
    pittore.end();
    return registro.Testi() << QString::number(registro.figure.size());
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

// "Stampa..." from the collections window, the preview and its options, printing to PDF.
class TestPrint final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    std::unique_ptr<Form1> m_form;
    qint32 m_id = -1;
    QString m_copertina;

    QString Percorso(const QString& nome) const { return m_archivio->Cartella() + "/" + nome; }

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

    std::unique_ptr<frmPreview> Anteprima(bool disegnata = true) {
        auto f = std::make_unique<frmPreview>();
        f->IdCollezione = m_id;
        if (disegnata)
            f->Ridisegna();
        return f;
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

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_id = CreaCollezione("Dischi", QString());
        QImage copertina(120, 90, QImage::Format_RGB32);
        copertina.fill(QColor(40, 90, 160));
        m_copertina = Percorso("copertina.png");
        QVERIFY(copertina.save(m_copertina));
        m_form = std::make_unique<Form1>();
    }

    void cleanup() {
        m_form.reset();
        m_archivio.reset();
    }

    // "Stampa..." sits just before the separator ahead of "Esegui Ricerca" and needs a selected collection.
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

    // The preview opens on the sheets; its boxes redraw it; the table disables the options it ignores.
    void anteprimaEOpzioni() {
        Dischi(3);
        CaricaCollezioniInLista(*m_form->List1);
        m_form->List1->setCurrentRow(0);
        InterazioneScriptata script;
        script.Modale([copertina = m_copertina](QDialog& dialogo) {
            auto& f = dynamic_cast<frmPreview&>(dialogo);
            QStringList testi{f.windowTitle()};
            for (const QAbstractButton* pulsante :
                 QList<QAbstractButton*>{f.Immagini, f.NumeroRecord, f.Tabulare, f.cmdStampa,
                                         f.cmdImpostaStampante, f.cmdAnnulla})
                testi << pulsante->text() + (pulsante->isChecked() ? "+" : "");
            QCOMPARE(testi,
                     QStringList({"Anteprima di Stampa...", "Stampa Immagini+", "Stampa Numero Record+",
                                  "Stampa Tabulare", "STAMPA", "Imposta Stampante", "Annulla"}));
            QStringList schede;
            for (const QString& n : QStringList{"1", "2", "3"})
                schede += {"Record " + n + "di 3", "Anno:",     "195" + n, "Copertina:",
                           "Titolo del disco:",    "Disco " + n};
            QCOMPARE(Disegnati(*f.Pic1), schede + QStringList{"1"});

            f.Tabulare->click();
            QVERIFY(!f.Immagini->isEnabled() && !f.NumeroRecord->isEnabled());
            QCOMPARE(Disegnati(*f.Pic1),
                     QStringList({"Anno", "Copertina", "Titolo del disco", "1951", "copertina.png", "Disco 1",
                                  "1952", "Disco 2", "1953", "Disco 3", "0"}));

            f.Tabulare->click();
            QVERIFY(f.Immagini->isEnabled() && f.NumeroRecord->isEnabled());
            QCOMPARE(Disegnati(*f.Pic1), schede + QStringList{"1"});
            f.NumeroRecord->click();
            f.Immagini->click();
            const QStringList senza = Disegnati(*f.Pic1);
            QCOMPARE(senza.mid(0, 4) << senza.last(),
                     QStringList({"Anno:", "1951", "Copertina:", copertina, "0"}));
            f.cmdAnnulla->click();
        });
        m_form->mnuStampa->trigger();
        VERIFICA_SCRIPT(script);
    }

    // Only what can be seen is drawn; scrolled down, the box grows and the records below are drawn.
    void soloCioCheSiVede() {
        Dischi(300);
        const auto f = Anteprima();
        f->show();
        const QStringList primi = Disegnati(*f->Pic1);
        QVERIFY(primi.contains("Record 1di 300"));
        const int visti = static_cast<int>(primi.count("Anno:"));
        QVERIFY2(visti > 2 && visti < 20, qPrintable(QString::number(visti)));
        QVERIFY(f->Pic1->Piena());
        const int alta = f->Pic1->height();
        QScrollBar* barra = f->Scorrimento->verticalScrollBar();
        QTRY_VERIFY(barra->maximum() > 0);
        barra->setValue(barra->maximum());
        QCOMPARE(f->Pic1->height(), 2 * alta);
        const QStringList poi = Disegnati(*f->Pic1);
        QVERIFY(poi.count("Anno:") > visti);
        QCOMPARE(poi.mid(0, primi.size() - 1), primi.mid(0, primi.size() - 1));
        QVERIFY(!poi.contains("Record 300di 300"));
        // Painting replays only the pieces of the drawing in sight: what is in sight is all there.
        QTRY_VERIFY(barra->maximum() > alta);
        barra->setValue(barra->maximum() * 3 / 4);
        QCoreApplication::processEvents(); // the scroll area lays out the sheet it shows
        const QImage vista = f->Scorrimento->viewport()->grab().toImage();
        int scuri = 0;
        for (int y = 0; y < vista.height(); ++y)
            for (int x = 0; x < vista.width(); ++x)
                scuri += qGray(vista.pixel(x, y)) < 100;
        QVERIFY2(scuri > 2000, qPrintable(QString::number(scuri)));
    }

    // A PDF page per record, no blank page; the table on one landscape page, which the preview follows.
    void stampaInPdf() {
        Dischi(3);
        const auto f = Anteprima();
        InterazioneScriptata script;
        script.Stampante(true, [pdf = Percorso("schede.pdf")](QPrinter& stampante) {
            stampante.setOutputFormat(QPrinter::PdfFormat);
            stampante.setOutputFileName(pdf);
        });
        f->cmdImpostaStampante->click();
        f->cmdStampa->click();
        const QStringList pagine = TestoPdf(Percorso("schede.pdf")).split(QLatin1Char('\f'));
        QCOMPARE(pagine.size(), 4);
        for (const QString& n : QStringList{"1", "2", "3"})
            QVERIFY2(QRegularExpression("Record " + n + "di 3.*Titolo del disco: +Disco " + n + "\\b",
                                        QRegularExpression::DotMatchesEverythingOption)
                         .match(pagine.at(n.toInt() - 1))
                         .hasMatch(),
                     qPrintable(pagine.join("\n---\n")));

        const int verticale = f->Pic1->width();
        script.Stampante(true, [pdf = Percorso("tabella.pdf")](QPrinter& stampante) {
            stampante.setPageOrientation(QPageLayout::Landscape);
            stampante.setOutputFileName(pdf);
        });
        f->cmdImpostaStampante->click();
        QVERIFY(f->Pic1->width() > verticale);
        f->Tabulare->click();
        f->cmdStampa->click();
        VERIFICA_SCRIPT(script);
        const QString righe = TestoPdf(Percorso("tabella.pdf"));
        QCOMPARE(righe.count(QLatin1Char('\f')), 1);
        QVERIFY2(
            QRegularExpression("Anno +Copertina +Titolo del disco\n+ *1951 +copertina.png +Disco 1\n+ *1952 +"
                               "Disco 2\n+ *1953 +Disco 3")
                .match(righe)
                .hasMatch(),
            qPrintable(righe));
    }

    // Printer and picture failures are told and leave no half document; the dialog then prints.
    void stampaNonRiuscita() {
        Dischi(2);
        const QString sparita = Percorso("sparita.png");
        Database().Esegui("update valori set valore='" + sparita + "' where numerorecord=2 and valore=''");
        const auto f = Anteprima(false);
        QCOMPARE(
            StampaConMessaggio(*f, Percorso("nessuna/cartella.pdf")),
            QString("Impossibile avviare la stampa: scegliere una stampante con \"Imposta Stampante\". | "
                    "Orvix | 11"));
        const QString pdf = Percorso("schede.pdf");
        QVERIFY(
            StampaConMessaggio(*f, pdf).startsWith("Impossibile caricare l'immagine \"" + sparita + "\": "));
        QVERIFY(!QFile::exists(pdf));
        Database().Esegui("update valori set valore='' where valore='" + sparita + "'");
        f->cmdStampa->click();
        QVERIFY(TestoPdf(pdf).contains("Disco 2"));
    }
};

QTEST_MAIN(TestPrint)
#include "tst_print.moc"
