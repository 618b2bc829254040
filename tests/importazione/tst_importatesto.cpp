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

// Records the status lines and the collections created; `alVedere` may set `fermo` or look at the store.
class StatiRegistrati final : public Avanzamento, public Importatore {
public:
    void Stato(const QString& testo) override {
        stati << testo;
        if (alVedere)
            alVedere(testo);
    }
    bool Interrotta() const override { return fermo; }
    void CollezioneCreata(qint32 id, const QString& nome) override {
        create << QString::number(id) + ":" + nome;
    }
    QStringList stati;
    QStringList create;
    std::function<void(const QString&)> alVedere;
    bool fermo = false;
};

// "values/records" committed in the store, as a connection of its own sees them.
QString VistoDaFuori(const QString& percorso) {
    sqlite3* db = nullptr;
    sqlite3_open_v2(percorso.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr);
    const QByteArray chiave = Programma::PasswordArchivio().toUtf8();
    sqlite3_key(db, chiave.constData(), static_cast<int>(chiave.size()));
    sqlite3_stmt* stmt = nullptr;
    sqlite3_prepare_v2(db, "select count(*), count(distinct numerorecord) from valori", -1, &stmt, nullptr);
    QString esito = QStringLiteral("failed: ") + QString::fromUtf8(sqlite3_errmsg(db));
    if (stmt && sqlite3_step(stmt) == SQLITE_ROW)
        esito =
            QString::number(sqlite3_column_int(stmt, 0)) + '/' + QString::number(sqlite3_column_int(stmt, 1));
    sqlite3_finalize(stmt);
    sqlite3_close(db);
    return esito;
}

} // namespace

// The text import's core: decoding, lines, the collection, its fields and records in the store.
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

    EsitoImportazione Importa(const QByteArray& byte, const QString& separatore = ";") {
        return ImportaFileTesto(File(byte), separatore, "Importata", "desc", m_registro, m_registro);
    }

    qint32 Id() { return RigheSql("select id from collezioni where nome='Importata'").value(0).toInt(); }
    QStringList Campi(const QString& colonne) {
        return RigheSql("select " + colonne + " from campi where id_collezione=" + QString::number(Id()));
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
        for (int i = 0; i < 40; ++i)
            punti << d.Prossima();
        // 11 a column, then no third column
        QCOMPARE((QList<QPoint>{punti.at(0), punti.at(10), punti.at(11), punti.at(13), punti.last()}),
                 (QList<QPoint>{{30, 40}, {30, 440}, {250, 40}, {250, 120}, {250, 40 * 43}}));
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
        QCOMPARE(Campi("nome,etichetta,tipo,\"left\",top,width,height,tabindex,required,\"default\",formula,"
                       "special,tooltip"),
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

    void righe_corte_e_vuote() {
        Importa("a,b,c\r\n1,2,3\r\n\r\nsolo,due\r\n4,5,6,7\r\n8,,\r\n", ",");
        QCOMPARE(RecordCollezione(Id()), QStringList({"1|2|3", "4|5|6", "8||"}));
        QVERIFY(m_registro.stati.contains("Sto inserendo il record 3"));
        QVERIFY(!m_registro.stati.contains("Sto inserendo il record 4"));
    }

    // Both columns' values go to the first field of the name, looked up without regard to case.
    void nomi_uguali() {
        Importa("Nome;nome;Altro\nx;y;z\n");
        QStringList valori;
        for (const QString& campo : Campi("id"))
            valori << ValoriDelCampo(campo.toInt()).join(',');
        QCOMPARE(valori, QStringList({"1=x,1=y", "", "1=z"}));
    }

    // The engine's error; whole records before the failing one stay, it leaves nothing.
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
        QCOMPARE(Campi("count(*)"), QStringList{"2"});
        QCOMPARE(RecordCollezione(Id()), QStringList());
    }

    void una_colonna() {
        QCOMPARE(Importa("Titolo\nuno\n"), EsitoImportazione::FormatoNonValido);
        QCOMPARE(m_registro.create.size(), 1);
        QCOMPARE(Campi("count(*)"), QStringList{"0"});
        QCOMPARE(m_registro.stati, QStringList{"Sto Creando la collezione..."});
    }

    void nome_esistente() {
        CreaCollezione("Importata", QString());
        QCOMPARE(Importa("a;b\n"), EsitoImportazione::CollezioneNonCreata);
        QCOMPARE(m_registro.stati,
                 QStringList({"Sto Creando la collezione...", "Impossibile Creare la Collezione"}));
        QVERIFY(m_registro.create.isEmpty());
    }

    // A stop keeps the record being written and every one before it.
    void interruzione() {
        m_registro.alVedere = [this](const QString& t) {
            m_registro.fermo |= t == "Sto inserendo il record 5";
        };
        Importa("a;b\n1;2\n2;3\n3;4\n4;5\n5;6\n6;7\n7;8\n");
        QCOMPARE(ContaRecord(Id()), 5);
        QCOMPARE(m_registro.stati.last(), QString("Importazione interrotta: 5 record inseriti."));
    }

    // Mid-batch, another connection sees whole committed batches only; the part batch commits at the end.
    void lotti_visti_da_fuori() {
        const int lotto = ScritturaCollezione::DimensioneLotto;
        const int n = lotto * 2 + 17;
        QByteArray testo = "a;b;c\n";
        for (int i = 1; i <= n; ++i)
            testo += QByteArray::number(i) + ";x;y\n";
        QString visto;
        m_registro.alVedere = [&](const QString& t) {
            if (t == "Sto inserendo il record " + QString::number(lotto + lotto / 2))
                visto = VistoDaFuori(m_archivio->PercorsoArchivio());
        };
        Importa(testo);
        QCOMPARE(visto, QString::number(lotto * 3) + "/" + QString::number(lotto));
        QCOMPARE(ContaRecord(Id()), n);
        QCOMPARE(RigheSql("select count(*) from valori").value(0).toInt(), n * 3);
        QCOMPARE(RecordCollezione(Id()).at(n - 1), QString::number(n) + "|x|y");
    }
};

QTEST_APPLESS_MAIN(TestImportaTesto)
#include "tst_importatesto.moc"
