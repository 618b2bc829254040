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

// The text export and the record text, read back byte by byte from real files of a real store.
class TestEsportaTesto final : public QObject {
    Q_OBJECT

    std::unique_ptr<ArchivioTemporaneo> m_archivio;

    static QByteArray Leggi(const QString& percorso) {
        QFile file(percorso);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : "<unreadable>";
    }

    static bool Scrivi(const QString& percorso, const QByteArray& contenuto) {
        QFile file(percorso);
        return file.open(QIODevice::WriteOnly) && file.write(contenuto) == contenuto.size();
    }

    // The export's bytes, written over an older file.
    QByteArray Esporta(qint32 id) {
        const QString file = m_archivio->Cartella() + "/esportato.txt";
        return Scrivi(file, "vecchio\r\n") ? (EsportaTesto(id, file), Leggi(file)) : "<not written>";
    }

    // Fields by name, each with its values of records 1, 2, ...
    static qint32 Collezione(const QList<QPair<QString, QStringList>>& campi) {
        const qint32 id = CreaCollezione(campi.value(0).first, QString()); // names must differ
        for (const auto& [nome, valori] : campi) {
            const qint32 campo = AggiungiCampo(id, {{"nome", nome}});
            for (int i = 0; i < valori.size(); ++i)
                ScriviValore(campo, i + 1, valori.at(i));
        }
        return id;
    }

private Q_SLOTS:
    void init() { m_archivio = std::make_unique<ArchivioTemporaneo>(); }
    void cleanup() { m_archivio.reset(); }

    // Case-blind name order, values as they are, other collections left out, UTF-8 with a mark only when
    // needed, zero bytes for no records.
    void contenuto() {
        QCOMPARE(Esporta(Collezione({{"Titolo", {}}})), QByteArray());
        QCOMPARE(Esporta(Collezione({{"Z", {"a\tb", "", "Città €"}}, {"b", {"1840", "1881\n", "1900"}}})),
                 QByteArray("b\tZ\r\n1840\ta\tb\r\n1881\n\t\r\n1900\tCitt\xe0 \x80\r\n"));
        QCOMPARE(Esporta(Collezione({{"N", {"Łódź"}}})), "\xEF\xBB\xBF" + QString("N\r\nŁódź\r\n").toUtf8());
    }

    // Several blocks of fields agree line by line with the per-record text;
    // a NULL value and a record number below 1 stay out.
    void fileGrande_comeTestoRecord() {
        QStringList titoli, note;
        for (int n = 1; n <= 3000; ++n) {
            titoli << QStringLiteral("Titolo %1 è").arg(n);
            note << QString(400, QChar(u'a' + n % 26));
        }
        Transazione transazione(Database());
        const qint32 id = Collezione({{"titolo", titoli}, {"Note", note}, {"Zeta", {}}});
        transazione.Conferma();
        Database().Esegui("insert into valori (id_campo, valore, numerorecord) select max(id), NULL, 1 from "
                          "campi union all select max(id), 'fuori', 0 from campi");
        QByteArray atteso = "Note\ttitolo\tZeta\r\n";
        for (int n = 1; n <= 3000; ++n)
            atteso += InCp1252(TestoRecord(id, n).section(QStringLiteral("\r\n"), 1)) + "\r\n";
        QVERIFY(atteso.size() > 1 << 20 && Esporta(id) == atteso);
    }

    // A file that cannot be written fails; one that cannot be opened is left as it was.
    void fileNonScrivibile() {
        const qint32 id = Collezione({{"Nome", {"uno"}}});
        if (QFile::exists("/dev/full"))
            QVERIFY_THROWS_EXCEPTION(std::runtime_error, EsportaTesto(id, "/dev/full"));
        const QString bloccato = m_archivio->Cartella() + "/bloccato.txt";
        QVERIFY(Scrivi(bloccato, "resta"));
        QVERIFY(QFile::setPermissions(bloccato, QFileDevice::ReadOwner));
        if (QFile(bloccato).open(QIODevice::WriteOnly))
            QSKIP("running with rights that write into read-only files");
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, EsportaTesto(id, bloccato));
        QCOMPARE(Leggi(bloccato), QByteArray("resta"));
    }
};

QTEST_GUILESS_MAIN(TestEsportaTesto)
#include "tst_esportatesto.moc"
