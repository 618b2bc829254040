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
    // The lines a FileTesto reads from these bytes.
    QStringList Righe(const QByteArray& byte) {
        QFile file(m_archivio->Cartella() + "/righe.txt");
        file.open(QIODevice::WriteOnly);
        file.write(byte);
        file.close();
        FileTesto testo(file.fileName());
        QStringList righe;
        while (!testo.Fine())
            righe << testo.ProssimaRiga();
        return righe;
    }
    qint32 Id() { return RigheSql("select id from collezioni where nome='Importata'").value(0).toInt(); }

private Q_SLOTS:
    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_create.clear();
    }
    void cleanup() { m_archivio.reset(); }

    // The encoding is decided on every byte of the file, read a block at a time: a character cut by
    // a block's end, a byte-order mark, a Windows-1252 byte far into the file or at its very end.
    void codifica() {
        const QByteArray pieno(FileTesto::Blocco - 4, 'a');
        QCOMPARE(Righe("\xEF\xBB\xBF" + pieno + "\xC3\xA8\n\xE2\x82\xAC"),
                 QStringList({QString::fromLatin1(pieno) + QString::fromUtf8("è"), QString::fromUtf8("€")}));
        QCOMPARE(Righe(pieno + "\xF0\x9F\x98\x80!"),
                 QStringList{QString::fromLatin1(pieno) + QString::fromUtf8("😀!")});
        QCOMPARE(Righe(pieno + "\n" + pieno + "caff\xE8 \x80 \x93\x9C"),
                 QStringList({QString::fromLatin1(pieno),
                              QString::fromLatin1(pieno) + QString::fromUtf8("caffè € “œ")}));
        QCOMPARE(Righe("\xEF\xBB\xBF"
                       "Citt\xC3\xA0\n\xC3"),
                 QStringList({QString::fromUtf8("ï»¿CittÃ") + QChar(0xA0), QString::fromUtf8("Ã")}));
    }

    // LF, CR LF and a lone CR each end a line, also when a block ends between the CR and the LF.
    void fine_riga() {
        const QByteArray pieno(FileTesto::Blocco - 2, 'b');
        QCOMPARE(Righe("uno\rdue\r\ntre\n\rcinque\r"), QStringList({"uno", "due", "tre", "", "cinque"}));
        QCOMPARE(Righe("x" + pieno + "\r\nfine"), QStringList({"x" + QString::fromLatin1(pieno), "fine"}));
        QCOMPARE(Righe(""), QStringList());
    }

    // Eleven fields fill the first column, from the twelfth on the second.
    void disposizione() {
        QStringList nomi;
        for (int k = 1; k <= 13; ++k)
            nomi << "c" + QString::number(k);
        Importa(nomi.join(';').toUtf8() + "\n");
        QStringList attese;
        for (int k = 1; k <= 11; ++k)
            attese << QString("c%1|30|%2").arg(k).arg(40 * k);
        attese << "c12|250|40"
               << "c13|250|80";
        QCOMPARE(RigheSql("select nome,left,top from campi order by tabindex"), attese);
    }

    void solo_intestazione() {
        QCOMPARE(Importa("Titolo;Autore\r\n"), EsitoImportazione::Completata);
        QCOMPARE(m_create, QStringList{QString::number(Id()) + "Importata"});
        QCOMPARE(RigheSql("select nome,tipo,tabindex from campi"),
                 QStringList({"Titolo|textbox|0", "Autore|textbox|1"}));
        QCOMPARE(RecordCollezione(Id()), QStringList());
        QCOMPARE(Importa("a;b\n"), EsitoImportazione::CollezioneNonCreata); // the name is taken
    }

    // Empty and short lines are skipped, long ones cut; no field name keeps a CR.
    void righe_corte_e_vuote() {
        Importa("a,b,c\r1,2,3\n\r\nsolo,due\r\n4,5,6,7\r\n8,\rx,\r\n9,,\r10,11,12", ",");
        QCOMPARE(RigheSql("select nome from campi"), QStringList({"a", "b", "c"}));
        QCOMPARE(RecordCollezione(Id()), QStringList({"1|2|3", "4|5|6", "9||", "10|11|12"}));
    }

    // A NUL character cannot be stored: the message names the record and the field, or the field
    // whose name holds it; the records before it stay.
    void carattere_nullo() {
        const auto errore = [this](const QByteArray& testo) -> QString {
            try {
                Importa(testo);
            } catch (const ErroreDatabase& e) {
                return e.messaggio();
            }
            return {};
        };
        QCOMPARE(errore(QByteArray("a;b;c\n1;2;3\n4;5\n6;x\0y;z\n7;8;9\n", 30)),
                 QString("Il record 2 non può essere memorizzato: il campo \"b\" contiene un carattere nullo "
                         "(codice 0)."));
        QCOMPARE(RecordCollezione(Id()), QStringList{"1|2|3"});
        cleanup();
        init();
        QCOMPARE(
            errore(QByteArray("a;b\0;c\n1;2;3\n", 13)),
            QString("Il campo 2 non può essere creato: il suo nome contiene un carattere nullo (codice 0)."));
        QCOMPARE(RigheSql("select count(*) from campi"), QStringList{"0"});
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
