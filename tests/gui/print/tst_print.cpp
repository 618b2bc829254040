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
#include <QPrinter>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QtTest>
#include <memory>

// The texts Pic1 holds, replayed onto a recording device, then how many pictures.
static QStringList Disegnati(CasellaFigura& casella) {
    RegistroDisegno registro;
    QPainter pittore(&registro);
    for (const QPicture& disegno : casella.Disegni())
        pittore.drawPicture(0, 0, disegno);
    return registro.Testi() << QString::number(registro.figure.size());
}

// The text of a PDF, page after page, each page ended by a form feed.
static QString TestoPdf(const QString& pdf) {
    QProcess lettore;
    lettore.start("pdftotext", {"-layout", pdf, "-"});
    if (!lettore.waitForFinished(30000) || lettore.exitCode() != 0)
        return QStringLiteral("pdftotext: ") + QString::fromLocal8Bit(lettore.readAllStandardError());
    return QString::fromUtf8(lettore.readAllStandardOutput());
}

// "Stampa..." from the collections window, the preview and its options, printing to PDF.
class TestPrint final : public QObject {
    Q_OBJECT

    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    qint32 m_id = -1;

    QString Percorso(const QString& nome) const { return m_archivio->Cartella() + "/" + nome; }

    // `n` records of "Dischi": a title, and for record 1 a cover picture.
    void Dischi(int n) {
        QImage copertina(120, 90, QImage::Format_RGB32);
        copertina.fill(QColor(40, 90, 160));
        QVERIFY(copertina.save(Percorso("copertina.png")));
        const qint32 titolo = AggiungiCampo(m_id, {{"nome", "Titolo"}});
        const qint32 figura = AggiungiCampo(m_id, {{"nome", "Copertina"}, {"tipo", "image"}});
        for (int i = 1; i <= n; ++i) {
            ScriviValore(titolo, i, QStringLiteral("Disco %1").arg(i));
            ScriviValore(figura, i, i == 1 ? Percorso("copertina.png") : QString());
        }
    }

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_id = CreaCollezione("Dischi", QString());
    }

    void cleanup() { m_archivio.reset(); }

    // The preview opens on the sheets; the table disables the options it ignores.
    void anteprimaDalMenu() {
        Dischi(2);
        Form1 form;
        InterazioneScriptata script;
        CaricaCollezioniInLista(*form.List1);
        form.List1->setCurrentRow(0);
        script.Modale([](QDialog& dialogo) {
            auto& f = dynamic_cast<frmPreview&>(dialogo);
            QCOMPARE(Disegnati(*f.Pic1),
                     QStringList({"Record 1di 2", "Copertina:", "Titolo:", "Disco 1", "Record 2di 2",
                                  "Copertina:", "Titolo:", "Disco 2", "1"}));
            f.Tabulare->click();
            QVERIFY(!f.Immagini->isEnabled() && !f.NumeroRecord->isEnabled());
            QCOMPARE(Disegnati(*f.Pic1),
                     QStringList({"Copertina", "Titolo", "copertina.png", "Disco 1", "Disco 2", "0"}));
            f.cmdAnnulla->click();
        });
        form.mnuStampa->trigger();
        VERIFICA_SCRIPT(script);
    }

    // Only what can be seen is drawn; moved anywhere, by the bar, a page or Ctrl+End, the preview
    // draws from that record on and nothing before it.
    void soloCioCheSiVede() {
        Dischi(300);
        frmPreview f;
        f.IdCollezione = m_id;
        f.Ridisegna();
        f.show();
        QVERIFY(QTest::qWaitForWindowActive(&f));
        const QStringList primi = Disegnati(*f.Pic1);
        const auto visti = primi.count("Titolo:");
        QVERIFY2(visti > 2 && visti < 20, qPrintable(QString::number(visti)));
        QCOMPARE(primi.first(), "Record 1di 300");
        QCOMPARE(f.Sfoglia->maximum(), 299);
        f.Sfoglia->setValue(149);
        QCOMPARE(Disegnati(*f.Pic1).first(), "Record 150di 300");
        QCOMPARE(Disegnati(*f.Pic1).count("Titolo:"), visti);
        f.Sfoglia->triggerAction(QAbstractSlider::SliderPageStepAdd);
        QCOMPARE(Disegnati(*f.Pic1).first(), QStringLiteral("Record %1di 300").arg(150 + visti - 1));
        QTest::keyClick(&f, Qt::Key_End, Qt::ControlModifier);
        QCOMPARE(Disegnati(*f.Pic1),
                 QStringList({"Record 300di 300", "Copertina:", "Titolo:", "Disco 300", "0"}));
        f.Tabulare->click();
        QCOMPARE(Disegnati(*f.Pic1), QStringList({"Disco 300", "0"}));
    }

    // A picture failure is told and leaves no half document; then a PDF page per record, no blank page.
    void stampaInPdf() {
        Dischi(2);
        frmPreview f;
        f.IdCollezione = m_id;
        const QString pdf = Percorso("schede.pdf");
        f.Stampante().setOutputFormat(QPrinter::PdfFormat);
        f.Stampante().setOutputFileName(pdf);
        Database().Esegui("update valori set valore='" + Percorso("sparita.png") + "' where valore=''");
        InterazioneScriptata script;
        script.Rispondi(Risposta::Ok);
        f.cmdStampa->click();
        VERIFICA_SCRIPT(script);
        QVERIFY(script.TestiMessaggi().value(0).startsWith("Impossibile caricare l'immagine \""));
        QVERIFY(!QFile::exists(pdf));
        Database().Esegui("update valori set valore='' where valore='" + Percorso("sparita.png") + "'");
        f.cmdStampa->click();
        QCOMPARE(TestoPdf(pdf).count('\f'), 2);
    }

    // The lines of a memo each start a line on the sheet, and those past the page's end go on the next.
    void memoRigaPerRiga() {
        const qint32 note = AggiungiCampo(m_id, {{"nome", "Note"}, {"tipo", "memo"}});
        QStringList righe{"Prima riga del memo", "Seconda riga"};
        for (int i = 1; i <= 90; ++i)
            righe << QStringLiteral("Riga %1").arg(i);
        ScriviValore(note, 1, righe.join("\r\n"));
        frmPreview f;
        f.IdCollezione = m_id;
        const QString pdf = Percorso("memo.pdf");
        f.Stampante().setOutputFormat(QPrinter::PdfFormat);
        f.Stampante().setOutputFileName(pdf);
        f.NumeroRecord->setChecked(false);
        f.cmdStampa->click();
        const QString testo = TestoPdf(pdf);
        QVERIFY(testo.count('\f') >= 2);
        QStringList stampate;
        for (const QString& riga : testo.split('\n'))
            stampate << riga.simplified();
        stampate.removeAll(QString());
        QCOMPARE(stampate.value(0), "Note: Prima riga del memo");
        QCOMPARE(stampate.mid(1), righe.mid(1));
    }

    // "STAMPA" refused for want of a printer; PDF chosen then in "Imposta Stampante" prints.
    void stampaDopoUnRifiuto() {
        Dischi(1);
        frmPreview f;
        f.IdCollezione = m_id;
        f.Stampante().setOutputFormat(QPrinter::PdfFormat); // what a machine without printers offers
        f.Stampante().setOutputFileName(QString());
        InterazioneScriptata script;
        script.Rispondi(Risposta::Ok);
        f.cmdStampa->click();
        const QString pdf = Percorso("dopo.pdf");
        script.Stampante(true, [pdf](QPrinter& stampante) {
            stampante.setOutputFormat(QPrinter::PdfFormat);
            stampante.setOutputFileName(pdf);
        });
        f.cmdImpostaStampante->click();
        f.cmdStampa->click();
        VERIFICA_SCRIPT(script);
        QVERIFY(script.TestiMessaggi().value(0).startsWith("Impossibile avviare la stampa"));
        QVERIFY(TestoPdf(pdf).contains("Disco 1"));
    }
};

QTEST_MAIN(TestPrint)
#include "tst_print.moc"
