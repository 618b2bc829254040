#include "archiviotemporaneo.h"

#include "aprirecord.h"
#include "caricamodello.h"
#include "cp1252.h"
#include "fileprofilo.h"
#include "frmrecord.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace {

QByteArray Contenuto(const QString& percorso) {
    QFile file(percorso);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

} // namespace

// The templates shipped beside the program: the bytes its own writer makes now, in the format's code
// page and line ends, each giving a record window with all its fields.
class TestModelliSpediti final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    void modelli() {
        const QDir spediti(QStringLiteral(ORVIX_MODELLI_SPEDITI));
        QTemporaryDir uscita;
        QCOMPARE(QProcess::execute(QStringLiteral(ORVIX_CREAMODELLI), {uscita.path()}), 0);
        const QStringList file = spediti.entryList({"*.wzd"}, QDir::Files, QDir::Name);
        QCOMPARE(QDir(uscita.path()).entryList(QDir::Files, QDir::Name), file);
        QVERIFY(!file.isEmpty());
        for (const QString& nome : file) {
            const QByteArray byte = Contenuto(spediti.filePath(nome));
            QVERIFY2(Contenuto(uscita.filePath(nome)) == byte && !LettoComeUtf8(byte) &&
                         byte.endsWith("\r\n") &&
                         byte.count('\r') + byte.count('\n') == 2 * byte.count("\r\n"),
                     qPrintable(nome));
            ArchivioTemporaneo archivio;
            ApriRecord(CaricaModello(spediti.filePath(nome)).value().id, 1);
            frmRecord& finestra = FinestraRecord();
            QCOMPARE(finestra.ControlliCampo().size(),
                     FileProfilo(spediti.filePath(nome)).Leggi("campi", "n").toInt());
            delete &finestra;
        }
    }
};

QTEST_MAIN(TestModelliSpediti)
#include "tst_modellispediti.moc"
