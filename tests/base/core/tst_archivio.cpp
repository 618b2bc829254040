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
    static QString ErroreDi(const std::function<void()>& azione) {
        try {
            azione();
        } catch (const ErroreDatabase& errore) {
            return errore.messaggio();
        }
        return {};
    }

private Q_SLOTS:
    void storeIsUnreadableWithoutTheKey() {
        ArchivioTemporaneo archivio;
        ChiudiDatabase();
        QFile file(archivio.PercorsoArchivio());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray contenuto = file.readAll();
        QVERIFY(!contenuto.startsWith("SQLite format 3") && !contenuto.contains("collezioni"));
        Connessione connessione;
        const QString errore = ErroreDi([&] { connessione.Apri(archivio.PercorsoArchivio(), u"x"_s); });
        QVERIFY2(errore.startsWith(Connessione::ChiaveRifiutata()) && !connessione.Aperta(),
                 qPrintable(errore));
    }

    // A missing file is not created; a file that is not a store is refused before anything is written.
    void badFilesFailTheOpenAndStayByteIdentical() {
        for (const auto& [contenuto, errore] : std::initializer_list<std::pair<QByteArray, QString>>{
                 {"<missing>", {}},
                 {"", u"non contiene un archivio"_s},
                 {"nome;valore\r\n", Connessione::ChiaveRifiutata()}}) {
            QTemporaryDir cartella;
            QFile file(cartella.filePath(Programma::NomeArchivio()));
            const bool manca = contenuto == "<missing>";
            QVERIFY(manca || (file.open(QIODevice::WriteOnly) && file.write(contenuto) == contenuto.size()));
            file.close();
            const QString ricevuto = ErroreDi([&] { ApriDatabase(cartella.path()); });
            QVERIFY2(!ricevuto.isEmpty() && ricevuto.contains(errore) && !Database().Aperta(),
                     qPrintable(ricevuto));
            QCOMPARE(QDir(cartella.path()).entryList(QDir::Files).size(), manca ? 0 : 1);
            QVERIFY(manca || (file.open(QIODevice::ReadOnly) && file.readAll() == contenuto));
        }
    }

    void idsAreNeverReusedAndListsKeepInsertionOrder() {
        ArchivioTemporaneo archivio;
        const qint32 a = CreaCollezione(u"Zeta"_s, QString());
        const qint32 b = CreaCollezione(u"Alfa"_s, QString());
        Database().Esegui(u"delete from collezioni where id="_s + QString::number(b));
        const qint32 c = CreaCollezione(u"Mezzo"_s, QString());
        QVERIFY(c > b);
        QVERIFY(ElencoCollezioni().at(0).id == a && ElencoCollezioni().at(1).id == c);
    }

    // Typed columns refuse text that does not convert, naming the column ("+": accepted, and stored as an
    // integer). Positions and sizes are whole pixels a window can place; other integers fit 64 bits; a
    // whole number written with a point is that integer; nothing typed becomes a real.
    void typedColumnsRefuseTextThatDoesNotConvert() {
        ArchivioTemporaneo archivio;
        for (const QString& caso :
             u"+width '32767';+width ' 0 ';+numerorecord '-5';width 32768;+width 12.0;+height '12.0';"
             "width '1,5';width 12.5;top '12.5';top '1.2.0';left '-1';tabindex '';tabindex '.';"
             "required 'forse';+numerorecord 7.0;+id_collezione ' +3.00 ';numerorecord '-.5';numerorecord "
             "2.5;"
             "id_collezione '+-3';data_ins '22/11/2026';numerorecord '99999999999999999999'"_s.split(u';')) {
            const QString colonna = caso.section(u' ', 0, 0).remove(u'+');
            const QString tabella =
                colonna == "numerorecord" || colonna == "data_ins" ? u"valori"_s : u"campi"_s;
            const QString sql =
                u"insert into %1 (\"%2\") values (%3)"_s.arg(tabella, colonna, caso.section(u' ', 1));
            const QString errore = ErroreDi([&] { Database().Esegui(sql); });
            QVERIFY2(caso.startsWith(u'+') ? errore.isEmpty() : errore.contains(colonna + " deve essere"),
                     qPrintable(caso + u": "_s + errore));
            const QString righe =
                u"select count(*), sum(typeof(\"%1\")='integer') from %2"_s.arg(colonna, tabella);
            QCOMPARE(RigheSql(righe), QStringList{caso.startsWith(u'+') ? u"1|1"_s : u"0|"_s});
            Database().Esegui(u"delete from "_s + tabella);
        }
    }

    // A comment ends at its line break: what follows it is a second statement.
    void onlyOneStatementRuns() {
        ArchivioTemporaneo archivio;
        for (const char* sql :
             {"insert into collezioni (nome) values ('x'); delete from collezioni",
              "insert into collezioni (nome) values ('y'); -- a note\ndelete from collezioni"})
            QVERIFY(!ErroreDi([&] { Database().Esegui(QString::fromUtf8(sql)); }).isEmpty());
        QVERIFY(!ErroreDi([] { Database().ApriRecordset(u"select 1; select 2"_s); }).isEmpty());
        QCOMPARE(RigheSql(u"select count(*) from collezioni"_s), QStringList{"0"});
    }

    void recordsetStoresEveryCharacterIntact() {
        ArchivioTemporaneo archivio;
        const QString strano = u"l'\"album\" ; -- ü € 日本\n\tfine"_s;
        {
            Recordset rs = Database().ApriRecordset(u"select * from campi"_s);
            rs.NuovoRecord();
            rs.Imposta(u"nome"_s, strano);
            rs.Imposta(u"Left"_s, u"15"_s);
            rs.Salva();
        }
        Recordset rs = Database().ApriRecordset(u"select nome,\"left\" from campi where id=1"_s);
        QCOMPARE(rs.Testo(u"NOME"_s) + u'|' + rs.Testo(u"left"_s), strano + u"|15"_s);
        rs.Elimina();
        QCOMPARE(RigheSql(u"select count(*) from campi"_s), QStringList{"0"});
    }

    // All or nothing: a failure, or leaving without confirming, stores nothing.
    void aTransactionStoresAllOrNothing() {
        ArchivioTemporaneo archivio;
        QVERIFY(!ErroreDi([] {
                     Transazione transazione(Database());
                     CreaCollezione(u"Dischi"_s, QString());
                     CreaCollezione(u"L'album"_s, QString()); // the unquoted name breaks the statement
                     transazione.Conferma();
                 }).isEmpty());
        {
            Transazione senzaConferma(Database());
            CreaCollezione(u"Film"_s, QString());
        }
        QCOMPARE(RigheSql(u"select count(*) from collezioni"_s), QStringList{"0"});
    }
};

QTEST_APPLESS_MAIN(TestArchivio)
#include "tst_archivio.moc"
