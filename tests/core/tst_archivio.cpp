#include "archiviotemporaneo.h"

#include "archivio.h"
#include "erroredatabase.h"
#include "programma.h"
#include "routinesql.h"
#include "transazione.h"

#include <QDir>
#include <QFile>
#include <QtTest>

class TestArchivio final : public QObject {
    Q_OBJECT

private:
    static QStringList Colonne(const QString& tabella) {
        QStringList nomi;
        for (Recordset rs = Database().ApriRecordset(QStringLiteral("pragma table_info(%1)").arg(tabella));
             !rs.Fine(); rs.Successivo())
            nomi << rs.Testo(QStringLiteral("name"));
        return nomi;
    }

    static qint64 Numero(const QString& sql) { return Database().ApriRecordset(sql).Campo(0).toLongLong(); }

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
        QCOMPARE(Colonne(QStringLiteral("collezioni")),
                 QStringList({"id", "nome", "descrizione", "data_creazione"}));
        QCOMPARE(Colonne(QStringLiteral("campi")),
                 QStringList({"id", "id_collezione", "nome", "etichetta", "tipo", "left", "top", "width",
                              "height", "tabindex", "tooltip", "formula", "default", "required", "special"}));
        QCOMPARE(Colonne(QStringLiteral("valori")),
                 QStringList({"id_campo", "valore", "data_ins", "data_mod", "numerorecord"}));
        QCOMPARE(Numero(QStringLiteral("select count(*) from collezioni")), 0);
        QCOMPARE(ControlTypes(),
                 QStringList({"textbox", "combo", "checkbox", "slider", "memo", "list", "image"}));
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
            ErroreDi([&] { connessione.Apri(archivio.PercorsoArchivio(), QStringLiteral("sbagliata")); });
        QVERIFY2(errore.contains(QLatin1String("encrypted")), qPrintable(errore));
        QVERIFY(!connessione.Aperta());
    }

    void missingFileFailsAndIsNotCreated() {
        QTemporaryDir vuota;
        QVERIFY(!ErroreDi([&] { ApriDatabase(vuota.path()); }).isEmpty());
        QVERIFY(!QFile::exists(vuota.filePath(Programma::NomeArchivio())));
        QVERIFY(!Database().Aperta());
    }

    // A file that is not a store is refused before anything is written to it.
    void badFilesFailTheOpenAndStayByteIdentical_data() {
        QTest::addColumn<QByteArray>("contenuto");
        QTest::addColumn<QString>("errore");
        QTest::newRow("zero bytes") << QByteArray() << QStringLiteral("non contiene un archivio");
        QTest::newRow("random bytes") << QByteArray(4096, '\x5a') << QStringLiteral("not a database");
        QTest::newRow("plain text") << QByteArray("nome;valore\r\n") << QStringLiteral("not a database");
    }
    void badFilesFailTheOpenAndStayByteIdentical() {
        QFETCH(QByteArray, contenuto);
        QFETCH(QString, errore);
        QTemporaryDir cartella;
        QFile file(cartella.filePath(Programma::NomeArchivio()));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(contenuto);
        file.close();
        const QString ricevuto = ErroreDi([&] { ApriDatabase(cartella.path()); });
        QVERIFY2(ricevuto.contains(errore), qPrintable(ricevuto));
        QVERIFY(!Database().Aperta());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), contenuto);
        QCOMPARE(QDir(cartella.path()).entryList(QDir::Files), QStringList({Programma::NomeArchivio()}));
    }

    void appPathEndsWithOneSeparator() {
        const QString sep = QDir::separator();
        QCOMPARE(ConSeparatoreFinale(QStringLiteral("/opt/orvix")),
                 QDir::toNativeSeparators("/opt/orvix") + sep);
        QCOMPARE(ConSeparatoreFinale(QStringLiteral("/opt/orvix/")), QDir::toNativeSeparators("/opt/orvix/"));
        ArchivioTemporaneo archivio;
        QVERIFY(AppPath().endsWith(sep));
        QVERIFY(!AppPath().endsWith(sep + sep));
    }

    void quoteDoublesSingleQuotes_data() {
        QTest::addColumn<QString>("testo");
        QTest::addColumn<QString>("atteso");
        QTest::newRow("empty") << QString() << QString();
        QTest::newRow("one quote") << "l'album"
                                   << "l''album";
        QTest::newRow("only quotes") << "''"
                                     << "''''";
        QTest::newRow("none") << "Dischi"
                              << "Dischi";
    }
    void quoteDoublesSingleQuotes() {
        QFETCH(QString, testo);
        QFETCH(QString, atteso);
        QCOMPARE(Quote(testo), atteso);
    }

    void createCollectionRefusesEqualNamesInAnyCase() {
        ArchivioTemporaneo archivio;
        const qint32 dischi = CreaCollezione(QStringLiteral("Dischi"), QStringLiteral("i miei vinili"));
        QVERIFY(dischi > 0);
        QCOMPARE(CreaCollezione(QStringLiteral("Dischi"), QString()), -1);
        QCOMPARE(CreaCollezione(QStringLiteral("DISCHI"), QString()), -1);
        QCOMPARE(Numero(QStringLiteral("select count(*) from collezioni")), 1);
        Recordset rs = Database().ApriRecordset(QStringLiteral("select * from collezioni"));
        QCOMPARE(rs.Testo(QStringLiteral("descrizione")), QStringLiteral("i miei vinili"));
        QCOMPARE(rs.Testo(QStringLiteral("data_creazione")), DataOggi());
    }

    void createCollectionSplicesTheNameUnquoted() {
        ArchivioTemporaneo archivio;
        const QString errore = ErroreDi([] { CreaCollezione(QStringLiteral("L'album"), QString()); });
        QVERIFY2(errore.contains(QLatin1String("syntax error")), qPrintable(errore));
        QCOMPARE(Numero(QStringLiteral("select count(*) from collezioni")), 0);
    }

    void idsAreNeverReusedAndListsKeepInsertionOrder() {
        ArchivioTemporaneo archivio;
        const qint32 a = CreaCollezione(QStringLiteral("Zeta"), QString());
        const qint32 b = CreaCollezione(QStringLiteral("Alfa"), QString());
        Database().Esegui(QStringLiteral("delete from collezioni where id=") + QString::number(b));
        const qint32 c = CreaCollezione(QStringLiteral("Mezzo"), QString());
        QVERIFY(c > b);
        const QList<VoceElenco> voci = ElencoCollezioni();
        QCOMPARE(voci.size(), 2);
        QCOMPARE(voci.at(0).id, a);
        QCOMPARE(voci.at(1).nome, QStringLiteral("Mezzo"));

        for (const char* nome : {"Titolo", "Autore", "Anno"})
            Database().Esegui(QStringLiteral("insert into campi (id_collezione,nome) values (%1,'%2')")
                                  .arg(c)
                                  .arg(QLatin1String(nome)));
        QStringList nomi;
        for (const VoceElenco& voce : ElencoCampi(c))
            nomi << voce.nome;
        QCOMPARE(nomi, QStringList({"Titolo", "Autore", "Anno"}));
        QVERIFY(ElencoCampi(a).isEmpty());
    }

    void typedColumnsRefuseTextThatDoesNotConvert() {
        ArchivioTemporaneo archivio;
        Database().Esegui(
            QStringLiteral("insert into campi (nome,\"left\",required) values ('a','20','False')"));
        QCOMPARE(Database()
                     .ApriRecordset(QStringLiteral("select typeof(\"left\") from campi"))
                     .Campo(0)
                     .toString(),
                 QStringLiteral("integer"));
        QString errore = ErroreDi(
            [] { Database().Esegui(QStringLiteral("insert into campi (nome,width) values ('b','abc')")); });
        QVERIFY2(errore.contains(QLatin1String("width deve essere un numero intero")), qPrintable(errore));
        errore =
            ErroreDi([] { Database().Esegui(QStringLiteral("insert into campi (top) values ('12,5')")); });
        QVERIFY2(errore.contains(QLatin1String("top")), qPrintable(errore));
        for (const char* valido : {"TRUE", "false", "0", "-1"})
            Database().Esegui(
                QStringLiteral("insert into campi (required) values ('%1')").arg(QLatin1String(valido)));
        errore = ErroreDi(
            [] { Database().Esegui(QStringLiteral("insert into campi (required) values ('forse')")); });
        QVERIFY2(errore.contains(QLatin1String("required")), qPrintable(errore));
        errore = ErroreDi(
            [] { Database().Esegui(QStringLiteral("insert into valori (data_ins) values ('22/11/2026')")); });
        QVERIFY2(errore.contains(QLatin1String("data_ins")), qPrintable(errore));
        QCOMPARE(Numero(QStringLiteral("select count(*) from campi")), 5);
    }

    // Positions and sizes are whole pixels a window can place; other integers fit 64 bits. Nothing
    // typed ever turns into a real or an infinity.
    void integerColumnsHoldOnlyWholeNumbersInRange_data() {
        QTest::addColumn<QString>("colonna");
        QTest::addColumn<QString>("valore");
        QTest::addColumn<bool>("accettato");
        QTest::newRow("width 32767") << "width"
                                     << "'32767'" << true;
        QTest::newRow("width blanks around") << "width"
                                             << "' 0 '" << true;
        QTest::newRow("width 32768") << "width"
                                     << "32768" << false;
        QTest::newRow("width twenty digits") << "width"
                                             << "'99999999999999999999'" << false;
        QTest::newRow("width decimal comma") << "width"
                                             << "'1,5'" << false;
        QTest::newRow("width thousands") << "width"
                                         << "'1.000'" << false;
        QTest::newRow("width real") << "width"
                                    << "12.0" << false;
        QTest::newRow("left negative") << "\"left\""
                                       << "'-1'" << false;
        QTest::newRow("tabindex empty") << "tabindex"
                                        << "''" << false;
        QTest::newRow("height 10240 digits") << "height"
                                             << "'" + QString(10240, u'9') + "'" << false;
        QTest::newRow("record number twenty digits") << "numerorecord"
                                                     << "'99999999999999999999'" << false;
        QTest::newRow("record number negative") << "numerorecord"
                                                << "'-5'" << true;
    }
    void integerColumnsHoldOnlyWholeNumbersInRange() {
        QFETCH(QString, colonna);
        QFETCH(QString, valore);
        QFETCH(bool, accettato);
        ArchivioTemporaneo archivio;
        const QString tabella =
            colonna == "numerorecord" ? QStringLiteral("valori") : QStringLiteral("campi");
        const QString errore = ErroreDi([&] {
            Database().Esegui(
                QStringLiteral("insert into %1 (%2) values (%3)").arg(tabella, colonna, valore));
        });
        QCOMPARE(errore.isEmpty(), accettato);
        QCOMPARE(
            Numero(
                QStringLiteral("select count(*) from %1 where typeof(%2)<>'integer'").arg(tabella, colonna)),
            0);
    }

    void onlyOneStatementRuns() {
        ArchivioTemporaneo archivio;
        CreaCollezione(QStringLiteral("Dischi"), QString());
        const QString errore = ErroreDi([] {
            Database().Esegui(
                QStringLiteral("insert into collezioni (nome) values ('x'); delete from collezioni"));
        });
        QVERIFY(!errore.isEmpty());
        QCOMPARE(Numero(QStringLiteral("select count(*) from collezioni")), 1);
        Database().Esegui(QStringLiteral("delete from collezioni where nome='x';  -- nothing follows"));
        QVERIFY(!ErroreDi([] { Database().ApriRecordset(QStringLiteral("select 1; select 2")); }).isEmpty());
        // A comment ends at its line break: what follows it is a second statement.
        QVERIFY(!ErroreDi([] {
                     Database().Esegui(QStringLiteral(
                         "insert into collezioni (nome) values ('y'); -- a note\ndelete from collezioni"));
                 }).isEmpty());
        QCOMPARE(Numero(QStringLiteral("select count(*) from collezioni")), 1);
    }

    void recordCountIsTheLargestRecordNumber() {
        ArchivioTemporaneo archivio;
        const qint32 id = CreaCollezione(QStringLiteral("Vuota"), QString());
        QCOMPARE(ContaRecord(id), 0);
        Database().Esegui(QStringLiteral("insert into campi (id_collezione,nome) values (%1,'x')").arg(id));
        const qint64 campo = Numero(QStringLiteral("select max(id) from campi"));
        for (int r : {1, 2, 3})
            Database().Esegui(QStringLiteral("insert into valori (id_campo,numerorecord) values (%1,%2)")
                                  .arg(campo)
                                  .arg(r));
        QCOMPARE(ContaRecord(id), 3);
        QCOMPARE(ContaRecord(id + 1), 0);
    }

    void recordsetStoresEveryCharacterIntact() {
        ArchivioTemporaneo archivio;
        const QString strano = QStringLiteral("l'\"album\" ; -- ü € 日本\n\tfine");
        {
            Recordset rs = Database().ApriRecordset(QStringLiteral("select * from campi"));
            QVERIFY(rs.Fine());
            rs.NuovoRecord();
            rs.Imposta(QStringLiteral("nome"), strano);
            rs.Imposta(QStringLiteral("Left"), QStringLiteral("15"));
            rs.Imposta(QStringLiteral("default"), QString());
            rs.Salva();
        }
        Recordset rs = Database().ApriRecordset(QStringLiteral("select nome,\"left\" from campi where id=1"));
        QCOMPARE(rs.Testo(QStringLiteral("NOME")), strano);
        QCOMPARE(rs.Campo(QStringLiteral("left")).toLongLong(), 15);
        rs.Modifica();
        rs.Imposta(QStringLiteral("nome"), QStringLiteral("nuovo"));
        rs.Salva();
        QCOMPARE(rs.Testo(QStringLiteral("nome")), QStringLiteral("nuovo"));
        rs.Elimina();
        QCOMPARE(Numero(QStringLiteral("select count(*) from campi")), 0);
        QVERIFY(!ErroreDi([&] { rs.Campo(QStringLiteral("manca")); }).isEmpty());
    }

    void aTransactionStoresAllOrNothing() {
        ArchivioTemporaneo archivio;
        try {
            Transazione transazione(Database());
            CreaCollezione(QStringLiteral("Dischi"), QString());
            CreaCollezione(QStringLiteral("L'album"), QString()); // the unquoted name breaks the statement
            transazione.Conferma();
        } catch (const ErroreDatabase&) {
        }
        QCOMPARE(Numero(QStringLiteral("select count(*) from collezioni")), 0);
        {
            Transazione esterna(Database());
            CreaCollezione(QStringLiteral("Dischi"), QString());
            {
                Transazione interna(Database());
                CreaCollezione(QStringLiteral("Film"), QString());
            }
            esterna.Conferma();
        }
        QCOMPARE(Numero(QStringLiteral("select count(*) from collezioni")), 1);
        QCOMPARE(ElencoCollezioni().at(0).nome, QStringLiteral("Dischi"));
    }

    void aggregateResultsAreReadOnly() {
        ArchivioTemporaneo archivio;
        Recordset rs = Database().ApriRecordset(SqlMassimoRecord(1));
        QVERIFY(!rs.Fine());
        QVERIFY(rs.Campo(0).isNull());
        QVERIFY(!ErroreDi([&] { rs.Modifica(); }).isEmpty());
    }
};

QTEST_APPLESS_MAIN(TestArchivio)
#include "tst_archivio.moc"
