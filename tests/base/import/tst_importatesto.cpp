#include "archiviotemporaneo.h"
#include "campiprova.h"

#include "avanzamento.h"
#include "erroredatabase.h"
#include "filetesto.h"
#include "importatesto.h"
#include "programma.h"
#include "scritturacollezione.h"

#include <QFile>
#include <QtTest>
#include <sqlcipher/sqlite3.h>

namespace {

// "values/records" committed in the store, as a connection of its own sees them.
QString VistoDaFuori(const QString& percorso) {
    sqlite3* db = nullptr;
    sqlite3_open_v2(percorso.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr);
    const QByteArray chiave = Programma::PasswordArchivio().toUtf8();
    sqlite3_key(db, chiave.constData(), static_cast<int>(chiave.size()));
    sqlite3_stmt* stmt = nullptr;
    sqlite3_prepare_v2(db, "select count(*), count(distinct numerorecord) from valori", -1, &stmt, nullptr);
    sqlite3_step(stmt);
    const QString esito = QString("%1/%2").arg(sqlite3_column_int(stmt, 0)).arg(sqlite3_column_int(stmt, 1));
    sqlite3_finalize(stmt);
    sqlite3_close(db);
    return esito;
}

} // namespace

// The text import's core: decoding, lines, the collection, its fields and records in the store. The test
// is the import's progress and importer: it records the status lines and the collections created.
class TestImportaTesto final : public QObject, public Avanzamento, public Importatore {
    Q_OBJECT

    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    QStringList m_stati, m_create;
    std::function<void(const QString&)> m_alVedere; // may set m_fermo or look at the store
    bool m_fermo = false;

public:
    void Stato(const QString& testo) override {
        m_stati << testo;
        if (m_alVedere)
            m_alVedere(testo);
    }
    bool Interrotta() const override { return m_fermo; }
    void CollezioneCreata(qint32 id, const QString& nome) override { m_create << QString::number(id) + nome; }

private:
    EsitoImportazione Importa(const QByteArray& byte, const QString& separatore = ";") {
        QFile file(m_archivio->Cartella() + "/sorgente.txt");
        file.open(QIODevice::WriteOnly);
        file.write(byte);
        file.close();
        return ImportaFileTesto(file.fileName(), separatore, "Importata", "desc", *this, *this);
    }
    qint32 Id() { return RigheSql("select id from collezioni where nome='Importata'").value(0).toInt(); }

private Q_SLOTS:
    void init() { m_archivio = std::make_unique<ArchivioTemporaneo>(); }
    void cleanup() { m_archivio.reset(); }

    void decodifica() {
        QCOMPARE(DecodificaTesto(QByteArray("\xEF\xBB\xBF") + "Città"), QString("Città"));
        QCOMPARE(DecodificaTesto("caff\xE8 \x80 \x93\x9C"), QString::fromUtf8("caffè € “œ"));
    }

    void solo_intestazione() {
        QCOMPARE(Importa("Titolo;Autore\r\n"), EsitoImportazione::Completata);
        QCOMPARE(m_create, QStringList{QString::number(Id()) + "Importata"});
        QCOMPARE(RigheSql("select nome,tipo,tabindex from campi"),
                 QStringList({"Titolo|textbox|0", "Autore|textbox|1"}));
        QCOMPARE(RecordCollezione(Id()), QStringList());
        QCOMPARE(Importa("a;b\n"), EsitoImportazione::CollezioneNonCreata); // the name is taken
    }

    // LF or CR LF ends a line, a lone CR does not; empty and short lines are skipped, long ones cut.
    void righe_corte_e_vuote() {
        Importa("a,b,c\r\n1,2,3\n\r\nsolo,due\r\n4,5,6,7\r\n8,\rx,\r\n", ",");
        QCOMPARE(RecordCollezione(Id()), QStringList({"1|2|3", "4|5|6", "8|\rx|"}));
    }

    // The engine's error; whole records before the failing one stay, it leaves nothing.
    void apice_in_un_valore() {
        QByteArray testo = "a;b\n";
        for (int i = 1; i <= ScritturaCollezione::DimensioneLotto + 2; ++i)
            testo += "v" + QByteArray::number(i) + ";w\n";
        try {
            Importa(testo + "buono;l'apice\nmai;letto\n");
            QFAIL("the quote did not fail");
        } catch (const ErroreDatabase& errore) {
            QCOMPARE(errore.messaggio(), QString("near \"apice\": syntax error"));
        }
        QCOMPARE(RecordCollezione(Id()).mid(1000), QStringList({"v1001|w", "v1002|w"}));
    }

    // Mid-batch, another connection sees whole committed batches only; a stop keeps the record being
    // written and every one before it, the part batch included.
    void lotti_visti_da_fuori() {
        const int lotto = ScritturaCollezione::DimensioneLotto, n = lotto * 2 + 17;
        QByteArray testo = "a;b;c\n";
        for (int i = 1; i <= n; ++i)
            testo += QByteArray::number(i) + ";x;y\n";
        QString visto;
        m_alVedere = [&](const QString& t) {
            if (t == "Sto inserendo il record " + QString::number(lotto + lotto / 2))
                visto = VistoDaFuori(m_archivio->PercorsoArchivio());
            m_fermo |= t == "Sto inserendo il record " + QString::number(n - 5);
        };
        Importa(testo);
        QCOMPARE(visto, QString::number(lotto * 3) + "/" + QString::number(lotto));
        QCOMPARE(RecordCollezione(Id()).last(), QString::number(n - 5) + "|x|y");
        QCOMPARE(m_stati.last(), QString("Importazione interrotta: %1 record inseriti.").arg(n - 5));
    }
};

QTEST_APPLESS_MAIN(TestImportaTesto)
#include "tst_importatesto.moc"
