#include "archiviojetprova.h"
#include "archiviotemporaneo.h"

#include "archiviojet.h"
#include "erroredatabase.h"
#include "importaarchivio.h"
#include "intestazionejet.h"
#include "scritturacollezione.h"

#include <QFile>
#include <QProcess>
#include <QtEndian>
#include <QtTest>

namespace {

QString Esegui(const QString& programma, const QStringList& argomenti) {
    QProcess processo;
    processo.start(programma, argomenti);
    if (!processo.waitForFinished(30000) || processo.exitCode() != 0)
        return "FAILED: " + QString::fromUtf8(processo.readAllStandardError());
    return QString::fromUtf8(processo.readAllStandardOutput());
}

QString Lungo(int n) {
    QString testo;
    for (int i = 0; testo.size() < n; ++i)
        testo += QString::number(i) + QString::fromUtf8(" è lungo; ");
    return testo.left(n);
}

TabellaProva Film() {
    TabellaProva t{"film",
                   {{"Titolo", TipoJet::Testo, true},
                    {"Anno", TipoJet::Lungo},
                    {"Prezzo", TipoJet::Doppio},
                    {"Uscita", TipoJet::DataOra},
                    {"Visto", TipoJet::Booleano},
                    {"Trama", TipoJet::Memo},
                    {"Durata", TipoJet::Intero}},
                   {}};
    t.righe << QVariantList{"L'ultimo", 1987,
                            12.5,       QDateTime(QDate(1987, 10, 23), QTime(0, 0)),
                            true,       QString::fromUtf8("Città — ☂"),
                            95};
    t.righe << QVariantList{QString(), QVariant(), QVariant(), QVariant(), false, QVariant(), QVariant()};
    t.righe << QVariantList{"",   -3,          1234567.25, QDateTime(QDate(2001, 2, 3), QTime(14, 30, 5)),
                            true, Lungo(3000), 0};
    t.righe << QVariantList{"lungo", 0, 0.1, 0.25, false, Lungo(40000), 1};
    for (int i = 0; i < 600; ++i)
        t.righe << QVariantList{QString("riga %1").arg(i), i, i / 4.0, QVariant(), i % 2 == 0, QVariant(), i};
    return t;
}

// The message of the ErroreDatabase that `azione` throws, or "" when none.
QString Errore(const std::function<void()>& azione) {
    try {
        azione();
    } catch (const ErroreDatabase& errore) {
        return errore.messaggio();
    }
    return {};
}

QByteArray Leggi(const QString& percorso) {
    QFile file(percorso);
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}

void Scrivi(const QString& percorso, const QByteArray& byte) {
    QFile file(percorso);
    file.open(QIODevice::WriteOnly | QIODevice::Truncate);
    file.write(byte);
}

// A Jet 3 header page with a password written as the format keeps it: clear text under RC4.
QByteArray IntestazioneJet3(const QByteArray& password) {
    QByteArray h(2048, '\0');
    h[1] = 1;
    std::memcpy(h.data() + 4, "Standard Jet DB\0", 16);
    qToLittleEndian<quint16>(1252, h.data() + 0x3C);
    std::memcpy(h.data() + 0x42, password.constData(), static_cast<size_t>(password.size()));
    Rc4(QByteArrayView("\xC7\xDA\x39\x6B", 4), h.data() + 0x18, 126);
    return h;
}

} // namespace

// The test Jet 4 files, checked with mdbtools' own programs, and the archive reader over them.
class TestArchivioJet final : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_cartella;

    QString Percorso(const QString& nome) const { return m_cartella.filePath(nome); }

private Q_SLOTS:
    void initTestCase() {
        UsaLocaleItaliano();
        ScriviArchivioJet4(Percorso("film.dat"),
                           {Film(), {"canzoni", {{"Titolo", TipoJet::Testo}}, {{"Volare"}}}});
        ScriviArchivioJet4(Percorso("chiuso.dat"), {{"t", {{"a", TipoJet::Testo}}, {{"x"}}}},
                           QString::fromUtf8("Pässwort €"));
    }

    void letto_da_mdbtools() {
        QCOMPARE(Esegui("mdb-tables", {"-1", Percorso("film.dat")}), QString("film\ncanzoni\n"));
        const QStringList righe =
            Esegui("mdb-export", {"-T", "%Y-%m-%d %H:%M:%S", Percorso("film.dat"), "film"})
                .split('\n', Qt::SkipEmptyParts);
        QCOMPARE(righe.size(), 1 + 4 + 600);
        QCOMPARE(righe.at(0), QString("Titolo,Anno,Prezzo,Uscita,Visto,Trama,Durata"));
        QCOMPARE(righe.at(1),
                 QString::fromUtf8("\"L'ultimo\",1987,12.5,\"1987-10-23 00:00:00\",1,\"Città — ☂\",95"));
        QCOMPARE(righe.at(2), QString(",,,,0,,"));
        QCOMPARE(righe.last(), QString("\"riga 599\",599,149.75,,0,,599"));
        const QString proprieta = Esegui("mdb-prop", {Percorso("film.dat"), "film"});
        QVERIFY2(proprieta.contains("name: Titolo\n\tRequired: yes"), qPrintable(proprieta));
        QVERIFY2(proprieta.contains("name: Anno\n\tRequired: no"), qPrintable(proprieta));
        QCOMPARE(Esegui("mdb-tables", {"-1", Percorso("chiuso.dat")}), QString("t\n"));
    }

    void password_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("digitata");
        QTest::addColumn<bool>("accettata");
        QTest::newRow("none stored, none typed") << "film.dat" << QString() << true;
        QTest::newRow("none stored, one typed") << "film.dat"
                                                << "qualcosa" << true;
        QTest::newRow("right") << "chiuso.dat" << QString::fromUtf8("Pässwort €") << true;
        QTest::newRow("other case") << "chiuso.dat" << QString::fromUtf8("pässwort €") << false;
        QTest::newRow("longer") << "chiuso.dat" << QString::fromUtf8("Pässwort €!") << false;
        QTest::newRow("empty") << "chiuso.dat" << QString() << false;
    }

    void password() {
        QFETCH(QString, file);
        QFETCH(QString, digitata);
        QFETCH(bool, accettata);
        const IntestazioneJet intestazione = LeggiIntestazioneJet(Leggi(Percorso(file)));
        QCOMPARE(intestazione.versione, VersioneJet::Jet4);
        QCOMPARE(PasswordAccettata(intestazione, digitata), accettata);
        QCOMPARE(Errore([&] { QVERIFY(!ArchivioJet(Percorso(file), digitata).Tabelle().isEmpty()); }),
                 accettata ? QString() : "Password non valida: " + Percorso(file));
    }

    void password_jet3() {
        const IntestazioneJet vuota = LeggiIntestazioneJet(IntestazioneJet3({}));
        QCOMPARE(vuota.versione, VersioneJet::Jet3);
        QCOMPARE(vuota.password, QString());
        const IntestazioneJet piena = LeggiIntestazioneJet(IntestazioneJet3("P\xE4sswort \x80"));
        QCOMPARE(piena.password, QString::fromUtf8("Pässwort €"));
        QVERIFY(PasswordAccettata(piena, QString::fromUtf8("Pässwort €")));
        QVERIFY(!PasswordAccettata(piena, "Passwort"));
        const IntestazioneJet venti = LeggiIntestazioneJet(IntestazioneJet3("abcdefghijklmnopqrst"));
        QCOMPARE(venti.password, QString("abcdefghijklmnopqrst"));
    }

    void file_non_validi_data() {
        QTest::addColumn<QByteArray>("byte");
        QTest::addColumn<QString>("messaggio");
        const QByteArray buono = Leggi(Percorso("film.dat"));
        QByteArray ace = buono;
        std::memcpy(ace.data() + 4, "Standard ACE DB\0", 16);
        QByteArray catalogoRotto = buono;
        catalogoRotto[2 * 4096] = 7;
        QTest::newRow("empty") << QByteArray() << "Il file non è un archivio di Tarvino";
        QTest::newRow("text") << QByteArray(4096, 'x') << "Il file non è un archivio di Tarvino";
        QTest::newRow("accdb")
            << ace << "L'archivio è nel formato di Access 2007 o successivo, che non può essere importato";
        QTest::newRow("header only") << buono.left(4096)
                                     << "L'archivio è danneggiato: il suo catalogo non si legge";
        QTest::newRow("catalog page broken")
            << catalogoRotto << "L'archivio è danneggiato: il suo catalogo non si legge";
    }

    void file_non_validi() {
        QFETCH(QByteArray, byte);
        QFETCH(QString, messaggio);
        Scrivi(Percorso("rotto.dat"), byte);
        QCOMPARE(Errore([&] { ArchivioJet(Percorso("rotto.dat"), QString()); }),
                 messaggio + ": " + Percorso("rotto.dat"));
    }

    void tabella_rotta() {
        QByteArray byte = Leggi(Percorso("film.dat"));
        byte[3 * 4096] = 9; // the first table's definition page
        Scrivi(Percorso("rotto.dat"), byte);
        ArchivioJet archivio(Percorso("rotto.dat"), QString());
        QCOMPARE(archivio.Tabelle(), QStringList({"film", "canzoni"}));
        QVERIFY_THROWS_EXCEPTION(ErroreDatabase, archivio.ApriTabella("film"));
        QCOMPARE(archivio.ApriTabella("canzoni")->Colonne().size(), 1);
    }

    void colonne() {
        ArchivioJet archivio(Percorso("film.dat"), QString());
        const auto tabella = archivio.ApriTabella("FILM");
        QStringList colonne;
        for (const ColonnaJet& c : tabella->Colonne())
            colonne << c.nome + ":" + QString::number(c.tipo) + (c.required ? "!" : "");
        QCOMPARE(colonne, QStringList({"Titolo:10!", "Anno:4", "Prezzo:7", "Uscita:8", "Visto:1", "Trama:12",
                                       "Durata:3"}));
    }

    // The first rule that fits wins: picture, Boolean, mark, genre, long text, text box.
    void tipi_data() {
        QTest::addColumn<QString>("colonna");
        QTest::addColumn<int>("tipo");
        QTest::addColumn<QString>("tabella");
        QTest::addColumn<QString>("atteso");
        const auto riga = [](const char* nome, const QString& colonna, TipoJet tipo, const QString& tabella,
                             const QString& atteso) {
            QTest::newRow(nome) << colonna << static_cast<int>(tipo) << tabella << atteso;
        };
        riga("picture", "IMMAGINE", TipoJet::Testo, "x", "image:true");
        riga("Boolean picture", "immagine", TipoJet::Booleano, "x", "image:true");
        riga("Boolean", "Visto", TipoJet::Booleano, "x", "checkbox:");
        riga("Boolean mark", "giudizio", TipoJet::Booleano, "x", "checkbox:");
        riga("mark", "Giudizio", TipoJet::Lungo, "x", "slider:1|10");
        riga("film genres", "Genere", TipoJet::Testo, "Film",
             "list:Thriller|Commedia|Sentimentale|Drammatico|Storico|Avventura|Sexy|Horror");
        riga("song genres", "genere", TipoJet::Lungo, "CANZONI",
             "list:Pop|Rock|Dance|Classica|Blues|Rap|R&B|Altro");
        riga("game genres", "genere", TipoJet::Testo, "dischi",
             "list:Sparatutto|Simulazione|Arcade|Avventura|Strategico|Sport|Altro");
        riga("Boolean genre", "genere", TipoJet::Booleano, "film", "checkbox:");
        riga("notes as memo", "Note", TipoJet::Memo, "x", "memo:");
        riga("plot as text", "TRAMA", TipoJet::Testo, "x", "memo:");
        riga("summary as date", "riassunto", TipoJet::DataOra, "x", "memo:");
        riga("notes as number", "note", TipoJet::Lungo, "x", "textbox:");
        riga("other", "Titolo", TipoJet::Memo, "x", "textbox:");
    }

    void tipi() {
        QFETCH(QString, colonna);
        QFETCH(int, tipo);
        QFETCH(QString, tabella);
        QFETCH(QString, atteso);
        const CampoImportato campo = CampoDaColonna({colonna, tipo, true}, 4, tabella);
        QCOMPARE(campo.tipo + ":" + campo.special, atteso);
        QCOMPARE(QStringList({campo.nome, campo.etichetta, campo.required, QString::number(campo.tabindex)}),
                 QStringList({colonna, colonna, "true", "4"}));
    }

    void valori() {
        ArchivioJet archivio(Percorso("film.dat"), QString());
        const auto tabella = archivio.ApriTabella("film");
        QList<QStringList> righe;
        QStringList valori;
        while (tabella->ProssimaRiga(valori))
            righe << valori;
        QCOMPARE(righe.size(), 604);
        QCOMPARE(righe.at(0), QStringList({"L'ultimo", "1987", "12,5", "23/10/1987", "1",
                                           QString::fromUtf8("Città — ☂"), "95"}));
        QCOMPARE(righe.at(1), QStringList({"", "", "", "", "0", "", ""}));
        QCOMPARE(righe.at(2),
                 QStringList({"", "-3", "1234567,25", "03/02/2001 14:30:05", "1", Lungo(3000), "0"}));
        QCOMPARE(righe.at(3).mid(0, 5), QStringList({"lungo", "0", "0,1", "06:00:00", "0"}));
        QCOMPARE(righe.at(3).at(5), Lungo(40000)); // a long value over chained pages
        QCOMPARE(righe.last(), QStringList({"riga 599", "599", "149,75", "", "0", "", "599"}));
    }
};

QTEST_APPLESS_MAIN(TestArchivioJet)
#include "tst_archiviojet.moc"
