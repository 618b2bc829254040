#include "archiviotemporaneo.h"
#include "campiprova.h"

#include "archivio.h"
#include "avanzamento.h"
#include "disposizione.h"
#include "erroredatabase.h"
#include "filetesto.h"
#include "importatesto.h"
#include "programma.h"
#include "routinesql.h"
#include "scritturacollezione.h"

#include <QFile>
#include <QtTest>
#include <memory>
#include <sqlcipher/sqlite3.h>

namespace {

class StatiRegistrati final : public Avanzamento, public Importatore {
public:
    void Stato(const QString& testo) override { stati << testo; }
    void CollezioneCreata(qint32 id, const QString& nome) override {
        create << QString::number(id) + ":" + nome;
    }
    QStringList stati;
    QStringList create;
};

// A user who stops the import once a given record count is shown.
class Impaziente final : public Avanzamento, public Importatore {
public:
    void Stato(const QString& testo) override {
        stati << testo;
        fermo = fermo || testo == QStringLiteral("Sto inserendo il record 5");
    }
    bool Interrotta() const override { return fermo; }
    void CollezioneCreata(qint32, const QString&) override {}

    QStringList stati;
    bool fermo = false;
};

// What another process sees of the store while an import writes: the values and the records
// committed so far, read through a connection of its own when a given record count is shown.
class Spettatore final : public Avanzamento, public Importatore {
public:
    Spettatore(QString percorso, QString quando)
        : m_percorso(std::move(percorso))
        , m_quando(std::move(quando)) {}

    void Stato(const QString& testo) override {
        if (testo == m_quando)
            visto = Conta();
    }
    void CollezioneCreata(qint32, const QString&) override {}

    QString visto;

private:
    QString Conta() const {
        sqlite3* db = nullptr;
        sqlite3_open_v2(m_percorso.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr);
        const QByteArray chiave = Programma::PasswordArchivio().toUtf8();
        sqlite3_key(db, chiave.constData(), static_cast<int>(chiave.size()));
        sqlite3_stmt* stmt = nullptr;
        sqlite3_prepare_v2(db, "select count(*), count(distinct numerorecord) from valori", -1, &stmt,
                           nullptr);
        QString esito = QStringLiteral("failed: ") + QString::fromUtf8(sqlite3_errmsg(db));
        if (stmt && sqlite3_step(stmt) == SQLITE_ROW)
            esito = QString::number(sqlite3_column_int(stmt, 0)) + QLatin1Char('/') +
                    QString::number(sqlite3_column_int(stmt, 1));
        sqlite3_finalize(stmt);
        sqlite3_close(db);
        return esito;
    }

    QString m_percorso;
    QString m_quando;
};

} // namespace

// The text import's core: the file read as UTF-8 or Windows-1252, the collection and its fields
// written, one record per long enough line, in the store.
class TestImportaTesto final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    StatiRegistrati m_registro;

    QString File(const QByteArray& byte) {
        const QString percorso = m_archivio->Cartella() + "/sorgente.txt";
        QFile file(percorso);
        file.open(QIODevice::WriteOnly | QIODevice::Truncate);
        file.write(byte);
        return percorso;
    }

    EsitoImportazione Importa(const QByteArray& byte, const QString& separatore = ";",
                              const QString& nome = "Importata") {
        return ImportaFileTesto(File(byte), separatore, nome, "desc", m_registro, m_registro);
    }

    qint32 Id(const QString& nome = "Importata") {
        return RigheSql("select id from collezioni where nome='" + nome + "'").value(0).toInt();
    }

private Q_SLOTS:
    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_registro = {};
    }
    void cleanup() { m_archivio.reset(); }

    void posizioni() {
        Disposizione d;
        QList<QPoint> punti;
        for (int i = 0; i < 14; ++i)
            punti << d.Prossima();
        QCOMPARE(punti.at(0), QPoint(30, 40));
        QCOMPARE(punti.at(10), QPoint(30, 440));
        QCOMPARE(punti.at(11), QPoint(250, 40));
        QCOMPARE(punti.at(13), QPoint(250, 120));
        for (int i = 0; i < 40; ++i)
            punti << d.Prossima();
        QCOMPARE(punti.last(), QPoint(250, 40 * 43)); // no third column
    }

    void decodifica_data() {
        QTest::addColumn<QByteArray>("byte");
        QTest::addColumn<QString>("testo");
        QTest::newRow("utf-8") << QByteArray("caff\xC3\xA8 \xE2\x82\xAC") << QString::fromUtf8("caffè €");
        QTest::newRow("utf-8 with its mark") << QByteArray("\xEF\xBB\xBF"
                                                           "Citt\xC3\xA0")
                                             << QString::fromUtf8("Città");
        QTest::newRow("windows-1252")
            << QByteArray("caff\xE8 \x80 \x93\x9C") << QString::fromUtf8("caffè € “œ");
        QTest::newRow("undefined bytes kept")
            << QByteArray("a\x81\x8D") << QString::fromUtf8("a\u0081\u008D");
    }

    void decodifica() {
        QFETCH(QByteArray, byte);
        QFETCH(QString, testo);
        QCOMPARE(DecodificaTesto(byte), testo);
    }

    void righe() {
        FileTesto file(File("a;b\r\nuno;due\n\r\ntre\rx;y"));
        QStringList righe;
        while (!file.Fine())
            righe << file.ProssimaRiga();
        QCOMPARE(righe, QStringList({"a;b", "uno;due", "", "tre\rx;y"}));
    }

    void solo_intestazione() {
        QCOMPARE(Importa("Titolo;Autore;Anno\r\n"), EsitoImportazione::Completata);
        const qint32 id = Id();
        QCOMPARE(m_registro.create, QStringList{QString::number(id) + ":Importata"});
        QCOMPARE(
            RigheSql("select nome,etichetta,tipo,\"left\",top,width,height,tabindex,required,\"default\","
                     "formula,special,tooltip from campi where id_collezione=" +
                     QString::number(id)),
            QStringList({"Titolo|Titolo|textbox|30|40|200|20|0|false||||",
                         "Autore|Autore|textbox|30|80|200|20|1|false||||",
                         "Anno|Anno|textbox|30|120|200|20|2|false||||"}));
        QCOMPARE(RecordCollezione(id), QStringList());
        QCOMPARE(m_registro.stati,
                 QStringList({"Sto Creando la collezione...", "Sto creando il campo: Titolo",
                              "Sto creando il campo: Autore", "Sto creando il campo: Anno",
                              "Inserimento Completato."}));
        QCOMPARE(RigheSql("select descrizione from collezioni where id=" + QString::number(id)),
                 QStringList{"desc"});
    }

    void dodici_nomi() {
        QStringList nomi;
        for (int i = 1; i <= 12; ++i)
            nomi << "c" + QString::number(i);
        Importa(nomi.join('\t').toUtf8() + "\n", "\t");
        QCOMPARE(RigheSql("select \"left\",top from campi where nome='c12'"), QStringList{"250|40"});
        QCOMPARE(RigheSql("select \"left\",top from campi where nome='c11'"), QStringList{"30|440"});
    }

    void righe_corte_e_vuote() {
        Importa("a,b,c\r\n1,2,3\r\n\r\nsolo,due\r\n4,5,6,7\r\n8,,\r\n", ",");
        QCOMPARE(RecordCollezione(Id()), QStringList({"1|2|3", "4|5|6", "8||"}));
        QVERIFY(m_registro.stati.contains("Sto inserendo il record 3"));
        QVERIFY(!m_registro.stati.contains("Sto inserendo il record 4"));
    }

    // Both columns' values go to the first field of the name, looked up without regard to case.
    void nomi_uguali() {
        Importa("Nome;nome;Altro\nx;y;z\n");
        const qint32 id = Id();
        const QStringList campi = RigheSql("select id from campi where id_collezione=" + QString::number(id));
        QCOMPARE(campi.size(), 3);
        QCOMPARE(ValoriDelCampo(campi.at(0).toInt()), QStringList({"1=x", "1=y"}));
        QCOMPARE(ValoriDelCampo(campi.at(1).toInt()), QStringList());
        QCOMPARE(ValoriDelCampo(campi.at(2).toInt()), QStringList({"1=z"}));
    }

    // The spliced statement fails with the engine's text; the whole records before it stay, the
    // failing one leaves nothing, and the status line stops at it.
    void apice_in_un_valore() {
        QByteArray testo = "a;b\n";
        for (int i = 1; i <= ScritturaCollezione::DimensioneLotto + 2; ++i)
            testo += "v" + QByteArray::number(i) + ";w\n";
        testo += "buono;l'apice\nmai;letto\n";
        try {
            Importa(testo);
            QFAIL("the quote did not fail");
        } catch (const ErroreDatabase& errore) {
            QCOMPARE(errore.messaggio(), QString("near \"apice\": syntax error"));
        }
        const QStringList record = RecordCollezione(Id());
        QCOMPARE(record.size(), ScritturaCollezione::DimensioneLotto + 2);
        QCOMPARE(record.last(), QString("v1002|w"));
        QCOMPARE(m_registro.stati.last(), QString("Sto inserendo il record 1003"));
        QCOMPARE(ContaRecord(Id()), 1002);
    }

    // A quote that still makes valid SQL stores what the spliced statement stores.
    void apice_che_resta_sql() {
        Importa("a;b\nx'||'y;z\n");
        QCOMPARE(RecordCollezione(Id()), QStringList{"xy|z"});
    }

    void apice_in_un_nome() {
        QVERIFY_THROWS_EXCEPTION(ErroreDatabase, Importa("l'autore;b\nx;y\n"));
        QCOMPARE(RigheSql("select count(*) from campi where id_collezione=" + QString::number(Id())),
                 QStringList{"2"});
        QCOMPARE(RecordCollezione(Id()), QStringList());
    }

    void una_colonna() {
        QCOMPARE(Importa("Titolo\nuno\n"), EsitoImportazione::FormatoNonValido);
        QCOMPARE(m_registro.create.size(), 1);
        QCOMPARE(RigheSql("select count(*) from campi where id_collezione=" + QString::number(Id())),
                 QStringList{"0"});
        QCOMPARE(m_registro.stati, QStringList{"Sto Creando la collezione..."});
    }

    void nome_esistente() {
        CreaCollezione("Importata", QString());
        QCOMPARE(Importa("a;b\n"), EsitoImportazione::CollezioneNonCreata);
        QCOMPARE(m_registro.stati,
                 QStringList({"Sto Creando la collezione...", "Impossibile Creare la Collezione"}));
        QVERIFY(m_registro.create.isEmpty());
    }

    void codifiche_data() {
        QTest::addColumn<QByteArray>("byte");
        QTest::newRow("windows-1252, CR LF") << QByteArray("Citt\xE0;Prezzo\r\nForl\xEC;12\x80\r\n");
        QTest::newRow("utf-8 with its mark, LF")
            << QByteArray("\xEF\xBB\xBF"
                          "Citt\xC3\xA0;Prezzo\nForl\xC3\xAC;12\xE2\x82\xAC\n");
        QTest::newRow("utf-8, no trailing line end")
            << QByteArray("Citt\xC3\xA0;Prezzo\nForl\xC3\xAC;12\xE2\x82\xAC");
    }

    void codifiche() {
        QFETCH(QByteArray, byte);
        Importa(byte);
        QCOMPARE(RigheSql("select nome from campi where id_collezione=" + QString::number(Id())),
                 QStringList({QString::fromUtf8("Città"), "Prezzo"}));
        QCOMPARE(RecordCollezione(Id()), QStringList{QString::fromUtf8("Forlì|12€")});
    }

    // A stop keeps the record being written and every one before it.
    void interruzione() {
        Impaziente impaziente;
        ImportaFileTesto(File("a;b\n1;2\n2;3\n3;4\n4;5\n5;6\n6;7\n7;8\n"), ";", "Importata", QString(),
                         impaziente, impaziente);
        QCOMPARE(ContaRecord(Id()), 5);
        QCOMPARE(impaziente.stati.last(), QString("Importazione interrotta: 5 record inseriti."));
    }

    // A kill in the middle of a batch leaves what another connection sees then: whole records of
    // the batches committed, nothing of the batch in progress.
    void visto_da_fuori() {
        QByteArray testo = "a;b;c\n";
        for (int i = 1; i <= 1600; ++i)
            testo += QByteArray::number(i) + ";x;y\n";
        Spettatore spettatore(m_archivio->PercorsoArchivio(), "Sto inserendo il record 1500");
        ImportaFileTesto(File(testo), ";", "Importata", QString(), spettatore, spettatore);
        const int lotto = ScritturaCollezione::DimensioneLotto;
        QCOMPARE(spettatore.visto, QString::number(lotto * 3) + "/" + QString::number(lotto));
        QCOMPARE(ContaRecord(Id()), 1600);
    }

    // Every record commits whole in its batch: after a full batch and a part of the next, the store
    // holds them all, and the part batch is committed when the import ends.
    void lotti() {
        QByteArray testo = "a;b;c\n";
        const int n = ScritturaCollezione::DimensioneLotto * 2 + 17;
        for (int i = 1; i <= n; ++i)
            testo += QByteArray::number(i) + ";x;y\n";
        Importa(testo);
        QCOMPARE(ContaRecord(Id()), n);
        QCOMPARE(RigheSql("select count(*) from valori").value(0).toInt(), n * 3);
        QCOMPARE(RecordCollezione(Id()).at(n - 1), QString::number(n) + "|x|y");
    }
};

QTEST_APPLESS_MAIN(TestImportaTesto)
#include "tst_importatesto.moc"
