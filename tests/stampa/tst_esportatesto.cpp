#include "archivio.h"
#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "cp1252.h"
#include "esportatesto.h"
#include "routinesql.h"
#include "testorecord.h"
#include "transazione.h"

#include <QDir>
#include <QFile>
#include <QtTest>
#include <memory>
#include <stdexcept>

// The text export and the record text, read back byte by byte from real files of a real store.
class TestEsportaTesto final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ArchivioTemporaneo> m_archivio;

    QString Percorso(const QString& nome) const { return QDir(m_archivio->Cartella()).filePath(nome); }

    static QByteArray Leggi(const QString& percorso) {
        QFile file(percorso);
        if (!file.open(QIODevice::ReadOnly))
            return "<unreadable>";
        return file.readAll();
    }

    QByteArray Esporta(qint32 idCollezione) {
        const QString file = Percorso(QStringLiteral("esportato.txt"));
        EsportaTesto(idCollezione, file);
        return Leggi(file);
    }

    // A collection whose fields are given by name, each followed by its values of records 1, 2, ...
    static qint32 Collezione(const QList<QPair<QString, QStringList>>& campi) {
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

    void collezioneVuota_fileDiZeroByte() {
        const qint32 id = Collezione({{"Titolo", {}}});
        const QString file = Percorso("vecchio.txt");
        QFile vecchio(file);
        QVERIFY(vecchio.open(QIODevice::WriteOnly));
        vecchio.write("contenuto precedente\r\n");
        vecchio.close();
        EsportaTesto(id, file);
        QCOMPARE(Leggi(file), QByteArray());
        QVERIFY(QFile::exists(file));
    }

    void intestazioneERighe() {
        // Created titolo first: the file still lists Anno first, the store's case-blind name order.
        const qint32 id = Collezione({{"titolo", {"I promessi sposi", "", "Città e €"}},
                                      {"Anno", {"1840", "1881", "1900"}},
                                      {"autore", {"Kupleir", "Plibenat", "x"}}});
        QCOMPARE(Esporta(id), QByteArray("Anno\tautore\ttitolo\r\n"
                                         "1840\tKupleir\tI promessi sposi\r\n"
                                         "1881\tPlibenat\t\r\n"
                                         "1900\tx\tCitt\xe0 e \x80\r\n"));
    }

    // One character outside Windows-1252, however late in the file, turns the whole file into UTF-8
    // with a byte-order mark: nothing becomes "?", and the program's own import reads it back.
    void aCharacterWindows1252LacksWritesUtf8() {
        const qint32 id = Collezione({{"Nome", {"Città", "Łódź", "ā"}}});
        const QByteArray byte = Esporta(id);
        QCOMPARE(byte, QByteArray("\xEF\xBB\xBF") + QString("Nome\r\nCittà\r\nŁódź\r\nā\r\n").toUtf8());
        QCOMPARE(DaCp1252OUtf8(byte), QChar(0xFEFF) + QString("Nome\r\nCittà\r\nŁódź\r\nā\r\n"));
    }

    void valoriScrittiComeSono() {
        const qint32 id = Collezione({{"B", {"due\tcolonne", "riga\nnuova"}}, {"A", {"1", "2"}}});
        QCOMPARE(Esporta(id), QByteArray("A\tB\r\n1\tdue\tcolonne\r\n2\triga\nnuova\r\n"));
    }

    void unCampo_valoriNudi() {
        const qint32 id = Collezione({{"Nome", {"uno", "", "tre"}}});
        QCOMPARE(Esporta(id), QByteArray("Nome\r\nuno\r\n\r\ntre\r\n"));
    }

    void dueVolte_stessiByte() {
        const qint32 id = Collezione({{"Nome", {"uno", "due"}}, {"Voto", {"3", "4"}}});
        const QByteArray prima = Esporta(id);
        QCOMPARE(Esporta(id), prima);
        QCOMPARE(prima, QByteArray("Nome\tVoto\r\nuno\t3\r\ndue\t4\r\n"));
    }

    // Other collections' values, NULL values and record numbers below 1 stay out of the file.
    void soloLaCollezione() {
        const qint32 altra = Collezione({{"Nome", {"altro"}}});
        const qint32 id = Collezione({{"Nome", {"mio"}}});
        const qint32 campo = AggiungiCampo(id, {{"nome", "Zeta"}});
        Database().Esegui(
            QStringLiteral("insert into valori (id_campo, valore, numerorecord) values (%1, NULL, 1)")
                .arg(campo));
        Database().Esegui(
            QStringLiteral("insert into valori (id_campo, valore, numerorecord) values (%1, 'fuori', 0)")
                .arg(campo));
        QCOMPARE(Esporta(id), QByteArray("Nome\tZeta\r\nmio\t\r\n"));
        QCOMPARE(Esporta(altra), QByteArray("Nome\r\naltro\r\n"));
    }

    // Every line of a file of several blocks is the record text of its record: the one-pass
    // export and the per-record statement agree.
    void fileGrande_comeTestoRecord() {
        const qint32 id = CreaCollezione(QStringLiteral("Grande"), QString());
        const qint32 titolo = AggiungiCampo(id, {{"nome", "titolo"}});
        const qint32 anno = AggiungiCampo(id, {{"nome", "Anno"}});
        const qint32 note = AggiungiCampo(id, {{"nome", "Note"}});
        constexpr int record = 3000;
        Transazione transazione(Database());
        for (int n = 1; n <= record; ++n) {
            ScriviValore(titolo, n, QStringLiteral("Titolo %1 è").arg(n));
            ScriviValore(anno, n, QString::number(1900 + n % 100));
            ScriviValore(note, n, QString(400, QChar(u'a' + n % 26)));
        }
        transazione.Conferma();
        const QByteArray file = Esporta(id);
        QVERIFY(file.size() > 1 << 20);
        QByteArray atteso = InCp1252(TestoRecord(id, 1).section(QStringLiteral("\r\n"), 0, 0)) + "\r\n";
        for (int n = 1; n <= record; ++n)
            atteso += InCp1252(TestoRecord(id, n).section(QStringLiteral("\r\n"), 1)) + "\r\n";
        QCOMPARE(file.size(), atteso.size());
        QVERIFY(file == atteso);
    }

    void testoRecord() {
        const qint32 id =
            Collezione({{"titolo", {"I promessi sposi", "Mastro\tdon"}}, {"Anno", {"1840", ""}}});
        QCOMPARE(TestoRecord(id, 1), QString("Anno\ttitolo\r\n1840\tI promessi sposi"));
        QCOMPARE(TestoRecord(id, 2), QString("Anno\ttitolo\r\n\tMastro\tdon"));
        QCOMPARE(TestoRecord(id, 3), QString());
        QCOMPARE(TestoRecord(id + 1, 1), QString());
        const qint32 solo = Collezione({{"Nome", {"uno"}}});
        QCOMPARE(TestoRecord(solo, 1), QString("Nome\r\nuno"));
    }

    void testoRecord_erroreDatabaseDaTestoVuoto() {
        const qint32 id = Collezione({{"Nome", {"uno"}}});
        Database().Esegui(QStringLiteral("drop table valori"));
        QCOMPARE(TestoRecord(id, 1), QString());
    }

    void fileNonScrivibile() {
        const qint32 id = Collezione({{"Nome", {"uno"}}});
        const QString mancante = Percorso("manca/esportato.txt");
        QString messaggio = Fallimento(id, mancante);
        QVERIFY2(messaggio.startsWith("Impossibile creare il file \"" + QDir::toNativeSeparators(mancante) +
                                      "\": "),
                 qPrintable(messaggio));
        QVERIFY(!QFile::exists(mancante));

        const QString bloccato = Percorso("bloccato.txt");
        QFile file(bloccato);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("resta");
        file.close();
        QVERIFY(file.setPermissions(QFileDevice::ReadOwner));
        if (QFile(bloccato).open(QIODevice::WriteOnly))
            QSKIP("running with rights that write into read-only files");
        messaggio = Fallimento(id, bloccato);
        QVERIFY2(messaggio.startsWith("Impossibile creare il file"), qPrintable(messaggio));
        QCOMPARE(Leggi(bloccato), QByteArray("resta"));
    }

    void discoPieno() {
        if (!QFile::exists("/dev/full"))
            QSKIP("no /dev/full here");
        const qint32 id = Collezione({{"Nome", {"uno", "due"}}});
        const QString messaggio = Fallimento(id, "/dev/full");
        QVERIFY2(messaggio.startsWith("Impossibile scrivere il file \"/dev/full\": "), qPrintable(messaggio));
    }
};

QTEST_GUILESS_MAIN(TestEsportaTesto)
#include "tst_esportatesto.moc"
