#include "archiviotemporaneo.h"

#include "aprirecord.h"
#include "caricamodello.h"
#include "cp1252.h"
#include "fileprofilo.h"
#include "frmrecord.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

QDir Spediti() {
    return QDir(QStringLiteral(ORVIX_MODELLI_SPEDITI));
}

QByteArray Contenuto(const QString& percorso) {
    QFile file(percorso);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

// What a person sees of an element: a label's text, not the whole width it is given.
QRect Visibile(const QWidget& elemento) {
    if (const auto* etichetta = qobject_cast<const QLabel*>(&elemento))
        return QRect(etichetta->pos(), QSize(etichetta->sizeHint().width(), etichetta->height()));
    return elemento.geometry();
}

} // namespace

// The templates shipped beside the program: written by the program's own writer, in the format's
// code page and line ends, and laid out so that the record window they give is tidy.
class TestModelliSpediti final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    // The program's writer gives the same bytes; between them the templates show every kind of control.
    void rigenerati_uguali() {
        QTemporaryDir uscita;
        QCOMPARE(QProcess::execute(QStringLiteral(ORVIX_CREAMODELLI), {uscita.path()}), 0);
        const QStringList file = Spediti().entryList({"*.wzd"}, QDir::Files, QDir::Name);
        QCOMPARE(file, (QStringList{"Film.wzd", "Libri.wzd", "Monete.wzd"}));
        QCOMPARE(QDir(uscita.path()).entryList(QDir::Files, QDir::Name), file);
        QSet<QString> tipi;
        for (const QString& nome : file) {
            QVERIFY2(Contenuto(uscita.filePath(nome)) == Contenuto(Spediti().filePath(nome)),
                     qPrintable(nome));
            const FileProfilo profilo(Spediti().filePath(nome));
            for (int i = 1; i <= profilo.Leggi("campi", "n").toInt(); ++i)
                tipi << profilo.Leggi("campi", u"tipo%1"_s.arg(i));
        }
        QCOMPARE(tipi.size(), 7);
    }

    void modello_data() {
        QTest::addColumn<QString>("file");
        for (const QString& nome : Spediti().entryList({"*.wzd"}, QDir::Files, QDir::Name))
            QTest::newRow(qPrintable(nome)) << Spediti().filePath(nome);
    }
    void modello() {
        QFETCH(QString, file);
        const QByteArray byte = Contenuto(file);
        QVERIFY(!LettoComeUtf8(byte));
        QVERIFY(byte.endsWith("\r\n"));
        QCOMPARE(byte.count('\n'), byte.count("\r\n"));
        QCOMPARE(byte.count('\r'), byte.count("\r\n"));
        const FileProfilo profilo(file);
        QVERIFY(!profilo.Leggi("tabella", "descrizione").isEmpty());
        const int campi = profilo.Leggi("campi", "n").toInt();
        QVERIFY(campi >= 10);

        ArchivioTemporaneo archivio;
        const std::optional<VoceElenco> creata = CaricaModello(file);
        QVERIFY(creata);
        QCOMPARE(creata->nome, profilo.Leggi("tabella", "nome"));
        ApriRecord(creata->id, 1);
        frmRecord& finestra = FinestraRecord();
        QCOMPARE(finestra.ControlliCampo().size(), campi);
        QList<const QWidget*> visti;
        for (const QWidget* elemento : finestra.Elementi()) {
            if (elemento->isHidden())
                continue;
            const QRect area = Visibile(*elemento);
            QVERIFY2(finestra.rect().contains(area), qPrintable(elemento->objectName()));
            for (const QWidget* altro : std::as_const(visti))
                QVERIFY2(!area.intersects(Visibile(*altro)),
                         qPrintable(elemento->objectName() + " / " + altro->objectName()));
            visti << elemento;
            // Labels and check boxes show their whole text.
            if (qobject_cast<const QLabel*>(elemento) || qobject_cast<const QCheckBox*>(elemento))
                QVERIFY2(elemento->sizeHint().width() <= elemento->width(),
                         qPrintable(elemento->objectName()));
        }
        delete &finestra;
    }
};

QTEST_MAIN(TestModelliSpediti)
#include "tst_modellispediti.moc"
