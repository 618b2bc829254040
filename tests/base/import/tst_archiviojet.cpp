#include "archiviojetprova.h"
#include "archiviotemporaneo.h"

#include "archiviojet.h"
#include "erroredatabase.h"
#include "importaarchivio.h"
#include "intestazionejet.h"
#include "scritturacollezione.h"

#include <QFile>
#include <QtTest>
#include <cstring>

namespace {

// A Jet 3 header page keeping a password as the format does: clear text under RC4.
QByteArray IntestazioneJet3(const QByteArray& password) {
    QByteArray h(2048, '\0');
    h[1] = 1;
    std::memcpy(h.data() + 4, "Standard Jet DB\0", 16);
    std::memcpy(h.data() + 0x42, password.constData(), static_cast<size_t>(password.size()));
    Rc4(QByteArrayView("\xC7\xDA\x39\x6B", 4), h.data() + 0x18, 126);
    return h;
}

QString Lungo(int n) {
    QString testo;
    for (int i = 0; testo.size() < n; ++i)
        testo += QString::number(i) + QString::fromUtf8(" è lungo; ");
    return testo.left(n);
}

TabellaProva Film() {
    TabellaProva t{"film", {}, {}};
    for (const auto& [nome, tipo] : {std::pair{"Titolo", TipoJet::Testo},
                                     {"Anno", TipoJet::Lungo},
                                     {"Prezzo", TipoJet::Doppio},
                                     {"Uscita", TipoJet::DataOra},
                                     {"Visto", TipoJet::Booleano},
                                     {"Trama", TipoJet::Memo}})
        t.colonne << ColonnaProva{QString::fromLatin1(nome), tipo};
    const double uscita = 32073, ora = 36925 + 52205 / 86400.0; // 23/10/1987, 03/02/2001 14:30:05
    t.righe << QVariantList{"L'ultimo", 1987, 12.5, uscita, true, QString::fromUtf8("Città — ☂")};
    t.righe << QVariantList{QString(), QVariant(), QVariant(), QVariant(), false, QVariant()};
    t.righe << QVariantList{"", -3, 1234567.25, ora, true, Lungo(3000)};
    t.righe << QVariantList{"lungo", 0, 0.1, 0.25, false, Lungo(40000)};
    for (int i = 0; i < 600; ++i)
        t.righe << QVariantList{QString("riga %1").arg(i), i, i / 4.0, QVariant(), i % 2 == 0, QVariant()};
    return t;
}

// The message of the ErroreDatabase that opening the archive throws, or "" when none.
QString Errore(const QString& percorso, const QString& password) {
    try {
        ArchivioJet(percorso, password);
    } catch (const ErroreDatabase& errore) {
        return errore.messaggio();
    }
    return {};
}

QByteArray Byte(const QString& percorso) {
    QFile file(percorso);
    file.open(QIODevice::ReadOnly);
    return file.readAll();
}

void Scrivi(const QString& percorso, const QByteArray& byte) {
    QFile file(percorso);
    file.open(QIODevice::WriteOnly | QIODevice::Truncate);
    file.write(byte);
}

} // namespace

// The archive reader over test Jet files: passwords, broken files, values, and field types.
class TestArchivioJet final : public QObject {
    Q_OBJECT

    QTemporaryDir m_cartella;

    QString Percorso(const QString& nome) const { return m_cartella.filePath(nome); }

private Q_SLOTS:
    // No Jet 3 file was at hand: its password is checked on header bytes alone.
    void password_jet3() {
        QCOMPARE(LeggiIntestazioneJet(IntestazioneJet3({})).password, QString());
        const IntestazioneJet piena = LeggiIntestazioneJet(IntestazioneJet3("P\xE4sswort \x80"));
        QCOMPARE(piena.versione, VersioneJet::Jet3);
        QVERIFY(PasswordAccettata(piena, QString::fromUtf8("Pässwort €")));
        QVERIFY(!PasswordAccettata(piena, "Passwort"));
    }

    void initTestCase() {
        UsaLocaleItaliano();
        ScriviArchivioJet4(Percorso("film.dat"), {Film(), {"canzoni", {{"Titolo"}}, {{"Volare"}}}});
        ScriviArchivioJet4(Percorso("chiuso.dat"), {{"t", {{"a"}}, {{"x"}}}},
                           QString::fromUtf8("Pässwort €"));
    }

    void password() {
        const QString chiuso = Percorso("chiuso.dat"), giusta = QString::fromUtf8("Pässwort €");
        const auto no = [&](QString p) { return Errore(chiuso, p) == "Password non valida: " + chiuso; };
        QCOMPARE(Errore(chiuso, giusta), QString());
        QVERIFY(no(QString::fromUtf8("pässwort €")));
        QVERIFY(no(giusta + "!"));
        QCOMPARE(Errore(Percorso("film.dat"), "qualcosa"), QString()); // none stored, any typed
    }

    void file_non_validi() {
        QFile film(Percorso("film.dat"));
        film.open(QIODevice::ReadOnly);
        QByteArray buono = film.readAll(), catalogo = buono, tabella = buono;
        catalogo[2 * 4096] = 7;
        tabella[3 * 4096] = 9;
        const auto errore = [this](const QByteArray& byte) {
            QFile file(Percorso("rotto.dat"));
            file.open(QIODevice::WriteOnly);
            file.write(byte);
            file.close();
            return Errore(file.fileName(), QString()).replace(": " + file.fileName(), "");
        };
        QCOMPARE(errore({}), QString("Il file non è un archivio di Tarvino"));
        QCOMPARE(errore(catalogo), QString("L'archivio è danneggiato: il suo catalogo non si legge"));
        errore(tabella); // the first table's definition page is broken: that table alone is refused
        ArchivioJet archivio(Percorso("rotto.dat"), QString());
        QVERIFY_THROWS_EXCEPTION(ErroreDatabase, archivio.ApriTabella("film"));
        QCOMPARE(archivio.ApriTabella("canzoni")->Colonne().size(), 1);
    }

    void valori() {
        ArchivioJet archivio(Percorso("film.dat"), QString());
        const auto tabella = archivio.ApriTabella("FILM");
        QList<QStringList> righe;
        QStringList valori;
        while (tabella->ProssimaRiga(valori))
            righe << valori;
        QCOMPARE(righe.size(), 604);
        QCOMPARE(righe.at(0), QStringList({"L'ultimo", "1987", "12,5", "23/10/1987", "1",
                                           QString::fromUtf8("Città — ☂")}));
        QCOMPARE(righe.at(1), QStringList({"", "", "", "", "0", ""}));
        QCOMPARE(righe.at(2), QStringList({"", "-3", "1234567,25", "03/02/2001 14:30:05", "1", Lungo(3000)}));
        // a time alone, and a long value over chained pages
        QCOMPARE(righe.at(3), QStringList({"lungo", "0", "0,1", "06:00:00", "0", Lungo(40000)}));
        QCOMPARE(righe.last(), QStringList({"riga 599", "599", "149,75", "", "0", ""}));
    }

    // The first rule that fits wins: picture, Boolean, mark, genre, long text, text box.
    void tipi() {
        const auto campo = [](const QString& colonna, TipoJet tipo, const QString& tabella) -> QString {
            const CampoImportato c = CampoDaColonna({colonna, static_cast<int>(tipo), true}, 4, tabella);
            return c.tipo + ":" + c.special;
        };
        QCOMPARE(campo("immagine", TipoJet::Booleano, "x"), QString("image:true"));
        QCOMPARE(campo("genere", TipoJet::Booleano, "film"), QString("checkbox:"));
        QCOMPARE(campo("riassunto", TipoJet::DataOra, "x"), QString("memo:"));
        QCOMPARE(campo("Titolo", TipoJet::Memo, "x"), QString("textbox:"));
        // The genres follow the table's name whatever its case.
        QCOMPARE(campo("Genere", TipoJet::Testo, "Film"),
                 QString("list:Thriller|Commedia|Sentimentale|Drammatico|Storico|Avventura|Sexy|Horror"));
        QCOMPARE(campo("genere", TipoJet::Testo, "CANZONI"),
                 QString("list:Pop|Rock|Dance|Classica|Blues|Rap|R&B|Altro"));
        QCOMPARE(campo("genere", TipoJet::Testo, "Films"),
                 QString("list:Sparatutto|Simulazione|Arcade|Avventura|Strategico|Sport|Altro"));
    }

    // A data page libmdb cannot use is skipped by it without a word: the rows read fall short of the
    // table's count, and the reader says so once the readable rows are out.
    void righe_mancanti() {
        QByteArray byte = Byte(Percorso("film.dat"));
        byte[17 * 4096 + 4] = 0x7F; // the second data page of "film" now names another owner
        Scrivi(Percorso("pagina.dat"), byte);
        ArchivioJet archivio(Percorso("pagina.dat"), QString());
        const auto tabella = archivio.ApriTabella("film");
        QStringList valori;
        int lette = 0;
        try {
            while (tabella->ProssimaRiga(valori))
                ++lette;
            QFAIL("the missing rows went unnoticed");
        } catch (const ErroreDatabase& errore) {
            QCOMPARE(
                errore.messaggio(),
                QString("La tabella film dell'archivio è danneggiata: lette %1 righe su 604.").arg(lette));
        }
        QVERIFY(lette > 0 && lette < 604);
    }

    // A file cut short, wherever, is reported as damaged rather than read as an archive without tables.
    void troncato() {
        const QByteArray byte = Byte(Percorso("film.dat"));
        for (const qsizetype lunghezza : {byte.size() - 100, byte.size() - 4096, qsizetype{6 * 4096}}) {
            Scrivi(Percorso("troncato.dat"), byte.first(lunghezza));
            QVERIFY2(Errore(Percorso("troncato.dat"), QString()).startsWith("L'archivio è danneggiato"),
                     qPrintable(QString::number(lunghezza)));
        }
    }
};

QTEST_APPLESS_MAIN(TestArchivioJet)
#include "tst_archiviojet.moc"
