#include "cp1252.h"
#include "fileprofilo.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

// Profile files as the template commands use them, on real files in a temporary folder, and the
// Windows-1252 code page they are written in.
class TestFileProfilo final : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_cartella;
    QString m_file;

    void Scrivi(const QByteArray& byte) {
        QFile file(m_file);
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(byte);
    }
    QByteArray Letto() {
        QFile file(m_file);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
    }

private Q_SLOTS:
    void init() {
        m_file = m_cartella.filePath("prova.wzd");
        QFile::remove(m_file);
    }

    // Every byte comes back itself; a character without a byte is written '?'; a text is read as UTF-8
    // only when it is valid UTF-8.
    void cp1252() {
        QByteArray tutti;
        for (int b = 0; b < 256; ++b)
            tutti.append(static_cast<char>(b));
        QCOMPARE(InCp1252(DaCp1252(tutti)), tutti);
        QVERIFY(Cp1252Contiene(u"Città 5 € “sì”"_s) && !Cp1252Contiene(u"a\u0080b"_s) &&
                !Cp1252Contiene(u"😀"_s));
        QCOMPARE(InCp1252(u"Łó😀"_s), QByteArray("?\xF3?"));
        QCOMPARE(DaCp1252OUtf8("Gi\xC3\xA0") + DaCp1252OUtf8("Gi\xC3"), u"GiàGiÃ"_s);
        QVERIFY(LettoComeUtf8("\xEF\xBB\xBFx") && !LettoComeUtf8("\xC0\xAF") &&
                !LettoComeUtf8("\xED\xA0\x80"));
    }

    // With any line end: case and blanks around names and values do not count, the first of two keys
    // or sections wins, comments and keys outside sections are not read, '=' may be in a value.
    void lettura() {
        for (const QString& fine : {u"\r\n"_s, u"\n"_s, u"\r"_s}) {
            Scrivi(InCp1252(u"chiave=fuori|[Tabella]|; commento=no|Nome =  Libri  |[campi]|n=2|n=3|[TABELLA]|"
                            "altro=nella seconda| [altra] ; nota|x = y = z"_s.replace(u'|', fine)));
            QCOMPARE((QStringList{LeggiIni("TABELLA", "NOME", m_file), LeggiIni("campi", "n", m_file),
                                  LeggiIni("tabella", "altro", m_file), LeggiIni("tabella", "chiave", m_file),
                                  LeggiIni("tabella", "; commento", m_file), LeggiIni("altra", "x", m_file)}),
                     (QStringList{"Libri", "2", "", "", "", "y = z"}));
        }
    }

    // Only the value of the key changes: every other byte, line end and comment stays.
    void scrittura_in_posto() {
        const QByteArray prima =
            "; modello di prova\r\n\r\n[sconosciuta]\nnome=da non toccare\r\n[Tabella]\r\n"
            "  Nome = Libri   \ndescrizione=Mia\r\n\r\n[campi]\r\nn=2";
        Scrivi(prima);
        QVERIFY(ScriviIni("tabella", "NOME", "Dischi", m_file));
        QVERIFY(ScriviIni("campi", "n", "5", m_file));
        QCOMPARE(Letto(),
                 QByteArray(prima).replace("  Nome = Libri   \n", "  Nome =Dischi\n").replace("n=2", "n=5"));
    }

    // A new file is written in CR LF and Windows-1252, never in a missing folder; a new key goes after the
    // section's last line that is not blank.
    void chiavi_nuove() {
        QVERIFY(ScriviIni("tabella", "nome", "Città €", m_file));
        QCOMPARE(Letto(), QByteArray("[tabella]\r\nnome=Citt\xE0 \x80\r\n"));
        QVERIFY(!ScriviIni("tabella", "nome", "x", m_cartella.filePath("manca/prova.wzd")));
        QVERIFY(!QFile::exists(m_cartella.filePath("manca")));
        Scrivi("[tabella]\r\nnome=Libri\r\n; nota\r\n\r\n\r\n[campi]\r\nnome1=Titolo");
        QVERIFY(ScriviIni("Tabella", "descrizione", "Mia", m_file));
        QVERIFY(ScriviIni("campi", "tipo1", "textbox", m_file));
        QCOMPARE(Letto(), QByteArray("[tabella]\r\nnome=Libri\r\n; nota\r\ndescrizione=Mia\r\n\r\n\r\n"
                                     "[campi]\r\nnome1=Titolo\r\ntipo1=textbox\r\n"));
    }

    // Nothing is escaped: the break ends the value on reading, and what follows it is a line of its own,
    // in memory as on the disk.
    void valore_con_a_capo() {
        FileProfilo profilo(m_file);
        profilo.Scrivi("campi", "default1", "uno\r\ndue=2");
        QCOMPARE(profilo.Leggi("campi", "default1") + profilo.Leggi("campi", "due"), u"uno2"_s);
        QVERIFY(profilo.Salva());
        QVERIFY(ScriviIni("campi", "default1", "tre", m_file));
        QCOMPARE(Letto(), QByteArray("[campi]\r\ndefault1=tre\r\ndue=2\r\n"));
    }

    // Windows-1252 while it holds the text; else the whole file in UTF-8, which reads back the same;
    // a byte order mark stays.
    void codifica_del_file() {
        for (const auto& [prima, valore, dopo] :
             std::initializer_list<std::tuple<QByteArray, QString, QByteArray>>{
                 {"[t]\r\na=Gi\xE0\r\n", u"€ più"_s, "[t]\r\na=Gi\xE0\r\nb=\x80 pi\xF9\r\n"},
                 {"[t]\r\na=Gi\xE0\r\n", u"Łó"_s, "[t]\r\na=Gi\xC3\xA0\r\nb=\xC5\x81\xC3\xB3\r\n"},
                 {"\xEF\xBB\xBF[t]\r\na=Gi\xC3\xA0\r\n", u"Più"_s,
                  "\xEF\xBB\xBF[t]\r\na=Gi\xC3\xA0\r\nb=Pi\xC3\xB9\r\n"}}) {
            Scrivi(prima);
            QVERIFY(ScriviIni("t", "b", valore, m_file));
            QCOMPARE(Letto(), dopo);
            QCOMPARE(LeggiIni("t", "a", m_file) + LeggiIni("t", "b", m_file), u"Già"_s + valore);
        }
    }
};

QTEST_GUILESS_MAIN(TestFileProfilo)
#include "tst_fileprofilo.moc"
