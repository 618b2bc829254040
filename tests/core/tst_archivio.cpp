#include "archiviotemporaneo.h"
#include "campiprova.h"

#include "archivio.h"
#include "erroredatabase.h"
#include "programma.h"
#include "routinesql.h"
#include "transazione.h"

#include <QDir>
#include <QFile>
#include <QtTest>

using namespace Qt::StringLiterals;

class TestArchivio final : public QObject {
    Q_OBJECT

private:
    static QStringList Colonne(const QString& tabella) {
        QStringList nomi;
        for (Recordset rs = Database().ApriRecordset(u"pragma table_info(%1)"_s.arg(tabella)); !rs.Fine();
             rs.Successivo())
            nomi << rs.Testo(u"name"_s);
        return nomi;
    }
    static qint64 Numero(const QString& sql) { return Database().ApriRecordset(sql).Campo(0).toLongLong(); }
    static qint64 Conta(const QString& tabella) { return Numero(u"select count(*) from "_s + tabella); }
    static QString ErroreDi(const std::function<void()>& azione) {
        try {
            azione();
        } catch (const ErroreDatabase& errore) {
            return errore.messaggio();
        }
        return {};
    }

private Q_SLOTS:
    void schemaHasTheThreeTablesInColumnOrder() {
        ArchivioTemporaneo archivio;
        QCOMPARE(Colonne(u"collezioni"_s), QStringList({"id", "nome", "descrizione", "data_creazione"}));
        QCOMPARE(Colonne(u"campi"_s),
                 QStringList({"id", "id_collezione", "nome", "etichetta", "tipo", "left", "top", "width",
                              "height", "tabindex", "tooltip", "formula", "default", "required", "special"}));
        QCOMPARE(Colonne(u"valori"_s),
                 QStringList({"id_campo", "valore", "data_ins", "data_mod", "numerorecord"}));
        QCOMPARE(Conta(u"collezioni"_s), 0);
    }

    void storeIsUnreadableWithoutTheKey() {
        ArchivioTemporaneo archivio;
        ChiudiDatabase();
        QFile file(archivio.PercorsoArchivio());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray contenuto = file.readAll();
        QVERIFY(!contenuto.startsWith("SQLite format 3"));
        QVERIFY(!contenuto.contains("collezioni"));
        Connessione connessione;
        const QString errore =
            ErroreDi([&] { connessione.Apri(archivio.PercorsoArchivio(), u"sbagliata"_s); });
        QVERIFY2(errore.contains(QLatin1String("encrypted")), qPrintable(errore));
        QVERIFY(!connessione.Aperta());
    }

    // A missing file is not created; a file that is not a store is refused before anything is written.
    void badFilesFailTheOpenAndStayByteIdentical_data() {
        QTest::addColumn<QByteArray>("contenuto");
        QTest::addColumn<QString>("errore");
        QTest::newRow("missing") << QByteArray("<missing>") << QString();
        QTest::newRow("zero bytes") << QByteArray() << u"non contiene un archivio"_s;
        QTest::newRow("random bytes") << QByteArray(4096, '\x5a') << u"not a database"_s;
        QTest::newRow("plain text") << QByteArray("nome;valore\r\n") << u"not a database"_s;
    }
    void badFilesFailTheOpenAndStayByteIdentical() {
        QFETCH(QByteArray, contenuto);
        QFETCH(QString, errore);
        QTemporaryDir cartella;
        QFile file(cartella.filePath(Programma::NomeArchivio()));
        const bool manca = contenuto == "<missing>";
        QVERIFY(manca || (file.open(QIODevice::WriteOnly) && file.write(contenuto) == contenuto.size()));
        file.close();
        const QString ricevuto = ErroreDi([&] { ApriDatabase(cartella.path()); });
        QVERIFY2(!ricevuto.isEmpty() && ricevuto.contains(errore), qPrintable(ricevuto));
        QVERIFY(!Database().Aperta());
        QCOMPARE(QDir(cartella.path()).entryList(QDir::Files),
                 manca ? QStringList() : QStringList({Programma::NomeArchivio()}));
        QVERIFY(manca || (file.open(QIODevice::ReadOnly) && file.readAll() == contenuto));
    }

    void appPathEndsWithOneSeparatorAndQuoteDoublesQuotes() {
        const QList<QPair<QString, QString>> casi{
            {"", ""}, {"l'album", "l''album"}, {"''", "''''"}, {"Dischi", "Dischi"}};
        for (const auto& [testo, atteso] : casi)
            QCOMPARE(Quote(testo), atteso);
        const QString sep = QDir::separator();
        QCOMPARE(ConSeparatoreFinale(u"/opt/orvix"_s), QDir::toNativeSeparators("/opt/orvix") + sep);
        QCOMPARE(ConSeparatoreFinale(u"/opt/orvix/"_s), QDir::toNativeSeparators("/opt/orvix/"));
        ArchivioTemporaneo archivio;
        QVERIFY(AppPath().endsWith(sep));
        QVERIFY(!AppPath().endsWith(sep + sep));
    }

    // Equal names in any case are refused; the name goes into the statement unquoted, so a quote breaks it.
    void createCollectionRefusesEqualNamesAndSplicesThemUnquoted() {
        ArchivioTemporaneo archivio;
        QVERIFY(CreaCollezione(u"Dischi"_s, u"i miei vinili"_s) > 0);
        QCOMPARE(CreaCollezione(u"Dischi"_s, QString()), -1);
        const QString errore = ErroreDi([] { CreaCollezione(u"L'album"_s, QString()); });
        QVERIFY2(errore.contains(QLatin1String("syntax error")), qPrintable(errore));
        QCOMPARE(Conta(u"collezioni"_s), 1);
        Recordset rs = Database().ApriRecordset(u"select * from collezioni"_s);
        QCOMPARE(rs.Testo(u"descrizione"_s), u"i miei vinili"_s);
        QCOMPARE(rs.Testo(u"data_creazione"_s), DataOggi());
    }

    void idsAreNeverReusedAndListsKeepInsertionOrder() {
        ArchivioTemporaneo archivio;
        const qint32 a = CreaCollezione(u"Zeta"_s, QString());
        const qint32 b = CreaCollezione(u"Alfa"_s, QString());
        Database().Esegui(u"delete from collezioni where id="_s + QString::number(b));
        const qint32 c = CreaCollezione(u"Mezzo"_s, QString());
        QVERIFY(c > b);
        const QList<VoceElenco> voci = ElencoCollezioni();
        QCOMPARE(voci.size(), 2);
        QCOMPARE(voci.at(0).id, a);
        QCOMPARE(voci.at(1).nome, u"Mezzo"_s);
        for (const char* nome : {"Titolo", "Autore", "Anno"})
            Database().Esegui(
                u"insert into campi (id_collezione,nome) values (%1,'%2')"_s.arg(c).arg(QLatin1String(nome)));
        QStringList nomi;
        for (const VoceElenco& voce : ElencoCampi(c))
            nomi << voce.nome;
        QCOMPARE(nomi, QStringList({"Titolo", "Autore", "Anno"}));
        QVERIFY(ElencoCampi(a).isEmpty());
    }

    // Typed columns refuse text that does not convert, naming the column. Positions and sizes are whole
    // pixels a window can place; other integers fit 64 bits; nothing typed turns into a real or an infinity.
    void typedColumnsRefuseTextThatDoesNotConvert_data() {
        QTest::addColumn<QString>("colonna");
        QTest::addColumn<QString>("valore");
        QTest::addColumn<bool>("accettato");
        const auto riga = [](const QString& caso, bool accettato) {
            QTest::newRow(qPrintable(caso.left(30)))
                << caso.section(u' ', 0, 0) << caso.section(u' ', 1) << accettato;
        };
        for (const char* caso : {"left '20'", "width '32767'", "width ' 0 '", "numerorecord '-5'",
                                 "required 'TRUE'", "required 'false'", "required '0'", "required '-1'"})
            riga(QString::fromUtf8(caso), true);
        for (const char* caso :
             {"width 32768", "width 'abc'", "width '1,5'", "width '1.000'", "width 12.0", "top '12,5'",
              "left '-1'", "tabindex ''", "required 'forse'", "data_ins '22/11/2026'",
              "width '99999999999999999999'", "numerorecord '99999999999999999999'"})
            riga(QString::fromUtf8(caso), false);
        riga("height '" + QString(10240, u'9') + "'", false);
    }
    void typedColumnsRefuseTextThatDoesNotConvert() {
        QFETCH(QString, colonna);
        QFETCH(QString, valore);
        QFETCH(bool, accettato);
        ArchivioTemporaneo archivio;
        const QString tabella = colonna == "numerorecord" || colonna == "data_ins" ? u"valori"_s : u"campi"_s;
        const QString errore = ErroreDi([&] {
            Database().Esegui(u"insert into %1 (\"%2\") values (%3)"_s.arg(tabella, colonna, valore));
        });
        QVERIFY2(accettato ? errore.isEmpty() : errore.contains(colonna + " deve essere"),
                 qPrintable(errore));
        QCOMPARE(Conta(tabella), accettato ? 1 : 0);
        if (colonna != "required" && colonna != "data_ins")
            QCOMPARE(
                Numero(u"select count(*) from %1 where typeof(\"%2\")<>'integer'"_s.arg(tabella, colonna)),
                0);
    }

    // A comment ends at its line break: what follows it is a second statement.
    void onlyOneStatementRuns() {
        ArchivioTemporaneo archivio;
        CreaCollezione(u"Dischi"_s, QString());
        for (const char* sql :
             {"insert into collezioni (nome) values ('x'); delete from collezioni",
              "insert into collezioni (nome) values ('y'); -- a note\ndelete from collezioni"})
            QVERIFY(!ErroreDi([&] { Database().Esegui(QString::fromUtf8(sql)); }).isEmpty());
        QVERIFY(!ErroreDi([] { Database().ApriRecordset(u"select 1; select 2"_s); }).isEmpty());
        Database().Esegui(u"delete from collezioni where nome='x';  -- nothing follows"_s);
        QCOMPARE(Conta(u"collezioni"_s), 1);
    }

    void recordsetStoresEveryCharacterIntact() {
        ArchivioTemporaneo archivio;
        const QString strano = u"l'\"album\" ; -- ü € 日本\n\tfine"_s;
        {
            Recordset rs = Database().ApriRecordset(u"select * from campi"_s);
            QVERIFY(rs.Fine());
            rs.NuovoRecord();
            rs.Imposta(u"nome"_s, strano);
            rs.Imposta(u"Left"_s, u"15"_s);
            rs.Imposta(u"default"_s, QString());
            rs.Salva();
        }
        Recordset rs = Database().ApriRecordset(u"select nome,\"left\" from campi where id=1"_s);
        QCOMPARE(rs.Testo(u"NOME"_s), strano);
        QCOMPARE(rs.Campo(u"left"_s).toLongLong(), 15);
        rs.Modifica();
        rs.Imposta(u"nome"_s, u"nuovo"_s);
        rs.Salva();
        QCOMPARE(rs.Testo(u"nome"_s), u"nuovo"_s);
        rs.Elimina();
        QCOMPARE(Conta(u"campi"_s), 0);
        QVERIFY(!ErroreDi([&] { rs.Campo(u"manca"_s); }).isEmpty());
        Recordset aggregato = Database().ApriRecordset(SqlMassimoRecord(1)); // read-only
        QVERIFY(!aggregato.Fine());
        QVERIFY(aggregato.Campo(0).isNull());
        QVERIFY(!ErroreDi([&] { aggregato.Modifica(); }).isEmpty());
    }

    void aTransactionStoresAllOrNothing() {
        ArchivioTemporaneo archivio;
        try {
            Transazione transazione(Database());
            CreaCollezione(u"Dischi"_s, QString());
            CreaCollezione(u"L'album"_s, QString()); // the unquoted name breaks the statement
            transazione.Conferma();
        } catch (const ErroreDatabase&) {
        }
        QCOMPARE(Conta(u"collezioni"_s), 0);
        {
            Transazione esterna(Database());
            CreaCollezione(u"Dischi"_s, QString());
            {
                Transazione interna(Database());
                CreaCollezione(u"Film"_s, QString());
            }
            esterna.Conferma();
        }
        QCOMPARE(Conta(u"collezioni"_s), 1);
        QCOMPARE(ElencoCollezioni().at(0).nome, u"Dischi"_s);
    }
};

QTEST_APPLESS_MAIN(TestArchivio)
#include "tst_archivio.moc"
