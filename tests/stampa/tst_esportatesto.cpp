#include "archivio.h"
#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "cp1252.h"
#include "esportatesto.h"
#include "routinesql.h"
#include "testorecord.h"
#include "transazione.h"

#include <QtTest>
#include <memory>
#include <stdexcept>

// Fields by name, each with its values of records 1, 2, ...
using Campi = QList<QPair<QString, QStringList>>;

// The text export and the record text, read back byte by byte from real files of a real store.
class TestEsportaTesto final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ArchivioTemporaneo> m_archivio;

    QString Percorso(const QString& nome) const { return QDir(m_archivio->Cartella()).filePath(nome); }

    static QByteArray Leggi(const QString& percorso) {
        QFile file(percorso);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : "<unreadable>";
    }

    // Writes `contenuto` into a new file at `percorso`.
    static void Scrivi(const QString& percorso, const QByteArray& contenuto) {
        QFile file(percorso);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(contenuto) == contenuto.size());
    }

    // The export's bytes, written over an older file.
    QByteArray Esporta(qint32 idCollezione) {
        const QString file = Percorso(QStringLiteral("esportato.txt"));
        Scrivi(file, "contenuto precedente\r\n");
        EsportaTesto(idCollezione, file);
        return Leggi(file);
    }

    static qint32 Collezione(const Campi& campi) {
        const qint32 id = CreaCollezione(QStringLiteral("Prova"), QString());
        for (const auto& [nome, valori] : campi) {
            const qint32 campo = AggiungiCampo(id, {{"nome", nome}});
            for (int i = 0; i < valori.size(); ++i)
                ScriviValore(campo, i + 1, valori.at(i));
        }
        return id;
    }

    // Message of the failure EsportaTesto throws; empty when it did not fail.
    static QString Fallimento(qint32 id, const QString& file) {
        try {
            EsportaTesto(id, file);
        } catch (const std::runtime_error& errore) {
            return QString::fromLocal8Bit(errore.what());
        }
        return {};
    }

private Q_SLOTS:
    void init() { m_archivio = std::make_unique<ArchivioTemporaneo>(); }
    void cleanup() { m_archivio.reset(); }

    // Case-blind name order, values as they are, UTF-8 with a mark only when needed, stable bytes.
    void contenuto_data() {
        QTest::addColumn<Campi>("campi");
        QTest::addColumn<QByteArray>("atteso");
        QTest::newRow("empty collection: zero bytes") << Campi{{"Titolo", {}}} << QByteArray();
        QTest::newRow("Windows-1252, name order")
            << Campi{{"titolo", {"I promessi sposi", "", "Città e €"}},
                     {"Anno", {"1840", "1881", "1900"}},
                     {"autore", {"Kupleir", "Plibenat", "x"}}}
            << QByteArray("Anno\tautore\ttitolo\r\n1840\tKupleir\tI promessi sposi\r\n1881\tPlibenat\t\r\n"
                          "1900\tx\tCitt\xe0 e \x80\r\n");
        QTest::newRow("tabs and newlines kept")
            << Campi{{"B", {"due\tcolonne", "riga\nnuova"}}, {"A", {"1", "2"}}}
            << QByteArray("A\tB\r\n1\tdue\tcolonne\r\n2\triga\nnuova\r\n");
        QTest::newRow("one field") << Campi{{"Nome", {"uno", "", "tre"}}}
                                   << QByteArray("Nome\r\nuno\r\n\r\ntre\r\n");
        QTest::newRow("UTF-8") << Campi{{"Nome", {"Città", "Łódź", "ā"}}}
                               << "\xEF\xBB\xBF" + QString("Nome\r\nCittà\r\nŁódź\r\nā\r\n").toUtf8();
    }

    void contenuto() {
        QFETCH(Campi, campi);
        QFETCH(QByteArray, atteso);
        const qint32 id = Collezione(campi);
        QCOMPARE(Esporta(id), atteso);
        QCOMPARE(Esporta(id), atteso);
    }

    // Other collections' values, NULL values and record numbers below 1 stay out of the file.
    void soloLaCollezione() {
        const qint32 altra = Collezione({{"Nome", {"altro"}}});
        const qint32 id = Collezione({{"Nome", {"mio"}}});
        const qint32 campo = AggiungiCampo(id, {{"nome", "Zeta"}});
        for (const char* riga : {"NULL, 1", "'fuori', 0"})
            Database().Esegui(
                QStringLiteral("insert into valori (id_campo, valore, numerorecord) values (%1, %2)")
                    .arg(campo)
                    .arg(QString::fromLatin1(riga)));
        QCOMPARE(Esporta(id), QByteArray("Nome\tZeta\r\nmio\t\r\n"));
        QCOMPARE(Esporta(altra), QByteArray("Nome\r\naltro\r\n"));
    }

    // A file of several blocks agrees line by line with the per-record statement.
    void fileGrande_comeTestoRecord() {
        const qint32 id = CreaCollezione(QStringLiteral("Grande"), QString());
        const qint32 campi[] = {AggiungiCampo(id, {{"nome", "titolo"}}),
                                AggiungiCampo(id, {{"nome", "Anno"}}), AggiungiCampo(id, {{"nome", "Note"}})};
        Transazione transazione(Database());
        for (int n = 1; n <= 3000; ++n) {
            ScriviValore(campi[0], n, QStringLiteral("Titolo %1 è").arg(n));
            ScriviValore(campi[1], n, QString::number(1900 + n % 100));
            ScriviValore(campi[2], n, QString(400, QChar(u'a' + n % 26)));
        }
        transazione.Conferma();
        const QByteArray file = Esporta(id);
        QVERIFY(file.size() > 1 << 20);
        QByteArray atteso = InCp1252(TestoRecord(id, 1).section(QStringLiteral("\r\n"), 0, 0)) + "\r\n";
        for (int n = 1; n <= 3000; ++n)
            atteso += InCp1252(TestoRecord(id, n).section(QStringLiteral("\r\n"), 1)) + "\r\n";
        QVERIFY(file == atteso);
    }

    // Heading and values of one record; empty for a missing record or collection and on a database error.
    void testoRecord() {
        const qint32 id =
            Collezione({{"titolo", {"I promessi sposi", "Mastro\tdon"}}, {"Anno", {"1840", ""}}});
        QCOMPARE(TestoRecord(id, 1), QString("Anno\ttitolo\r\n1840\tI promessi sposi"));
        QCOMPARE(TestoRecord(id, 2), QString("Anno\ttitolo\r\n\tMastro\tdon"));
        QCOMPARE(TestoRecord(id, 3), QString());
        QCOMPARE(TestoRecord(id + 1, 1), QString());
        const qint32 solo = Collezione({{"Nome", {"uno"}}});
        QCOMPARE(TestoRecord(solo, 1), QString("Nome\r\nuno"));
        Database().Esegui(QStringLiteral("drop table valori"));
        QCOMPARE(TestoRecord(solo, 1), QString());
    }

    // Files that cannot be created or written fail with their name and are left as they were.
    void fileNonScrivibile() {
        const qint32 id = Collezione({{"Nome", {"uno", "due"}}});
        const QString mancante = Percorso("manca/esportato.txt");
        QString messaggio = Fallimento(id, mancante);
        QVERIFY2(messaggio.startsWith("Impossibile creare il file \"" + QDir::toNativeSeparators(mancante) +
                                      "\": "),
                 qPrintable(messaggio));
        QVERIFY(!QFile::exists(mancante));
        if (QFile::exists("/dev/full")) {
            messaggio = Fallimento(id, "/dev/full");
            QVERIFY2(messaggio.startsWith("Impossibile scrivere il file \"/dev/full\": "),
                     qPrintable(messaggio));
        }
        const QString bloccato = Percorso("bloccato.txt");
        Scrivi(bloccato, "resta");
        QVERIFY(QFile::setPermissions(bloccato, QFileDevice::ReadOwner));
        if (QFile(bloccato).open(QIODevice::WriteOnly))
            QSKIP("running with rights that write into read-only files");
        messaggio = Fallimento(id, bloccato);
        QVERIFY2(messaggio.startsWith("Impossibile creare il file"), qPrintable(messaggio));
        QCOMPARE(Leggi(bloccato), QByteArray("resta"));
    }
};

QTEST_GUILESS_MAIN(TestEsportaTesto)
#include "tst_esportatesto.moc"
