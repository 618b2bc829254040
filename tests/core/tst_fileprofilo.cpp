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

    void cp1252_ogni_byte_torna_se_stesso() {
        QByteArray tutti;
        for (int b = 0; b < 256; ++b)
            tutti.append(static_cast<char>(b));
        const QString testo = DaCp1252(tutti);
        QCOMPARE(testo.size(), 256);
        QVERIFY(Cp1252Contiene(testo));
        QCOMPARE(InCp1252(testo), tutti);
        QCOMPARE(testo.mid(0x80, 2), u"€\u0081"_s);
        QCOMPARE(testo.mid(0x9E, 3), u"žŸ\u00A0"_s);
        QCOMPARE(testo.at(0xE0), u'à');
    }

    void cp1252_caratteri_senza_byte_data() {
        QTest::addColumn<QString>("testo");
        QTest::addColumn<bool>("contenuto");
        QTest::addColumn<QByteArray>("byte");
        QTest::newRow("italiano ed euro") << u"Città 5 €"_s << true << QByteArray("Citt\xE0 5 \x80");
        QTest::newRow("virgolette tipografiche") << u"“sì”"_s << true << QByteArray("\x93s\xEC\x94");
        QTest::newRow("polacco") << u"Łódź"_s << false
                                 << QByteArray("?\xF3"
                                               "d?");
        QTest::newRow("controllo 0x80") << u"a\u0080b"_s << false << QByteArray("a?b");
        QTest::newRow("fuori dal piano base") << u"a😀b"_s << false << QByteArray("a?b");
    }
    void cp1252_caratteri_senza_byte() {
        QFETCH(QString, testo);
        QFETCH(bool, contenuto);
        QFETCH(QByteArray, byte);
        QCOMPARE(Cp1252Contiene(testo), contenuto);
        QCOMPARE(InCp1252(testo), byte);
    }

    void lettura_utf8_o_cp1252_data() {
        QTest::addColumn<QByteArray>("byte");
        QTest::addColumn<bool>("utf8");
        QTest::addColumn<QString>("testo");
        QTest::newRow("utf8") << QByteArray("Gi\xC3\xA0") << true << u"Già"_s;
        QTest::newRow("cp1252") << QByteArray("Gi\xE0") << false << u"Già"_s;
        QTest::newRow("ascii") << QByteArray("Gia") << false << u"Gia"_s;
        QTest::newRow("forma troppo lunga") << QByteArray("\xC0\xAF") << false << u"À¯"_s;
        QTest::newRow("sequenza tronca") << QByteArray("Gi\xC3") << false << u"GiÃ"_s;
        QTest::newRow("surrogato codificato") << QByteArray("\xED\xA0\x80") << false << u"í\u00A0€"_s;
        QTest::newRow("byte order mark tenuto") << QByteArray("\xEF\xBB\xBFx") << true << u"\uFEFFx"_s;
    }
    void lettura_utf8_o_cp1252() {
        QFETCH(QByteArray, byte);
        QFETCH(bool, utf8);
        QFETCH(QString, testo);
        QCOMPARE(LettoComeUtf8(byte), utf8);
        QCOMPARE(DaCp1252OUtf8(byte), testo);
    }

    // The same file with each kind of line end.
    void lettura_data() {
        QTest::addColumn<QString>("fine");
        QTest::addColumn<QString>("sezione");
        QTest::addColumn<QString>("chiave");
        QTest::addColumn<QString>("valore");
        const QList<QPair<const char*, QString>> fini{{"CR LF", u"\r\n"_s}, {"LF", u"\n"_s}, {"CR", u"\r"_s}};
        // "section/key=value": case, trimming, empty values, keys outside sections, comments, the first of
        // two keys or sections, '=' in values, missing keys and sections.
        for (const auto& [nome, fine] : fini)
            for (const char* caso :
                 {"TABELLA/NOME=Libri", "tabella/valore tab=con  tab",
                  "tabella/descrizione=", "tabella/chiave=", "tabella/; commento=", "campi/n=2",
                  "tabella/altro=", "altra/x=y = z", "tabella/mancante=", "assente/nome="}) {
                const QString testo = QString::fromUtf8(caso);
                const qsizetype barra = testo.indexOf(u'/'), uguale = testo.indexOf(u'=');
                QTest::addRow("%s, %s", nome, caso)
                    << fine << testo.left(barra) << testo.mid(barra + 1, uguale - barra - 1)
                    << testo.mid(uguale + 1);
            }
    }
    void lettura() {
        QFETCH(QString, fine);
        QFETCH(QString, sezione);
        QFETCH(QString, chiave);
        QFETCH(QString, valore);
        const QString righe =
            u"chiave=fuori da ogni sezione|[Tabella]|; commento=non una chiave|Nome =  Libri  |"
            "descrizione=|\tvalore tab\t=\tcon  tab\t||[campi]|n=2|n=3|[TABELLA]|"
            "altro=nella seconda| [altra] ; nota|x = y = z"_s;
        Scrivi(InCp1252(QString(righe).replace(u'|', fine))); // "|" ends a line
        QCOMPARE(LeggiIni(sezione, chiave, m_file), valore);
    }

    void lettura_al_massimo_254_caratteri_data() {
        QTest::addColumn<QString>("valore");
        QTest::addColumn<QString>("letto");
        const QString lungo = QString(200, u'a') + QString(100, u'b');
        QTest::newRow("300") << lungo << lungo.left(254);
        QTest::newRow("254") << lungo.left(254) << lungo.left(254);
        QTest::newRow("blanks trimmed before the cut")
            << u"   "_s + lungo.left(254) + u"  "_s << lungo.left(254);
        QTest::newRow("no half character") << QString(253, u'a') + u"😀"_s << QString(253, u'a');
    }
    void lettura_al_massimo_254_caratteri() {
        QFETCH(QString, valore);
        QFETCH(QString, letto);
        QVERIFY(ScriviIni("campi", "tooltip1", valore, m_file));
        QVERIFY(Letto().contains(valore.toUtf8().trimmed()) || Letto().contains(InCp1252(valore)));
        QCOMPARE(LeggiIni("campi", "tooltip1", m_file), letto);
    }

    // Only the value of the key changes: every other byte, line end and comment stays.
    void scrittura_in_posto() {
        const QByteArray prima =
            "; modello di prova\r\n\r\n[sconosciuta]\nnome=da non toccare\r\n[Tabella]\r\n"
            "  Nome = Libri   \ndescrizione=Mia\r\n\r\n[campi]\r\nn=2";
        Scrivi(prima);
        QVERIFY(ScriviIni("tabella", "NOME", "Dischi", m_file));
        QByteArray atteso = prima;
        atteso.replace("  Nome = Libri   \n", "  Nome =Dischi\n");
        QCOMPARE(Letto(), atteso);
        QVERIFY(ScriviIni("campi", "n", "5", m_file));
        atteso.replace("n=2", "n=5");
        QCOMPARE(Letto(), atteso);
    }

    // A new file is written in CR LF and Windows-1252, never in a missing folder; a new key goes after the
    // section's last line that is not blank, a new section at the end.
    void chiavi_nuove() {
        QCOMPARE(LeggiIni("tabella", "nome", m_cartella.filePath("nessuno.wzd")), QString());
        QCOMPARE(LeggiIni("tabella", "nome", m_cartella.path()), QString());
        QVERIFY(ScriviIni("tabella", "nome", "Città €", m_file));
        QVERIFY(ScriviIni("campi", "n", "0", m_file));
        QCOMPARE(Letto(), QByteArray("[tabella]\r\nnome=Citt\xE0 \x80\r\n[campi]\r\nn=0\r\n"));
        QVERIFY(!ScriviIni("tabella", "nome", "x", m_cartella.filePath("manca/prova.wzd")));
        QVERIFY(!QFile::exists(m_cartella.filePath("manca")));
        Scrivi("[tabella]\r\nnome=Libri\r\n; nota\r\n\r\n\r\n[campi]\r\nnome1=Titolo");
        QVERIFY(ScriviIni("Tabella", "descrizione", "Mia", m_file));
        QVERIFY(ScriviIni("campi", "tipo1", "textbox", m_file));
        QVERIFY(ScriviIni("vuota", "a", "1", m_file));
        QVERIFY(ScriviIni("vuota", "b", "2", m_file));
        QCOMPARE(Letto(),
                 QByteArray("[tabella]\r\nnome=Libri\r\n; nota\r\ndescrizione=Mia\r\n\r\n\r\n"
                            "[campi]\r\nnome1=Titolo\r\ntipo1=textbox\r\n[vuota]\r\na=1\r\nb=2\r\n"));
    }

    // Nothing is escaped: the break ends the value on reading, and what follows it is a line of its own,
    // in memory as on the disk.
    void valore_con_a_capo() {
        FileProfilo profilo(m_file);
        profilo.Scrivi("campi", "default1", "uno\r\ndue=2");
        profilo.Scrivi("campi", "tipo1", "memo");
        QCOMPARE(profilo.Leggi("campi", "default1"), u"uno"_s);
        QCOMPARE(profilo.Leggi("campi", "due"), u"2"_s);
        QVERIFY(profilo.Salva());
        QCOMPARE(Letto(), QByteArray("[campi]\r\ndefault1=uno\r\ndue=2\r\ntipo1=memo\r\n"));
        QCOMPARE(LeggiIni("campi", "default1", m_file), u"uno"_s);
        QVERIFY(ScriviIni("campi", "default1", "tre", m_file));
        QCOMPARE(Letto(), QByteArray("[campi]\r\ndefault1=tre\r\ndue=2\r\ntipo1=memo\r\n"));
    }

    // Windows-1252 while it holds the text; else the whole file in UTF-8, which reads back the same.
    void codifica_del_file_data() {
        QTest::addColumn<QByteArray>("prima");
        QTest::addColumn<QString>("valore");
        QTest::addColumn<QByteArray>("dopo");
        QTest::newRow("cp1252 stays cp1252") << QByteArray("[t]\r\na=Gi\xE0\r\n") << u"€ più"_s
                                             << QByteArray("[t]\r\na=Gi\xE0\r\nb=\x80 pi\xF9\r\n");
        QTest::newRow("utf8 stays utf8") << QByteArray("[t]\r\na=Gi\xC3\xA0\r\n") << u"più"_s
                                         << QByteArray("[t]\r\na=Gi\xC3\xA0\r\nb=pi\xC3\xB9\r\n");
        QTest::newRow("a character cp1252 lacks turns the file to utf8")
            << QByteArray("[t]\r\na=Gi\xE0\r\n") << u"Łódź"_s
            << QByteArray("[t]\r\na=Gi\xC3\xA0\r\nb=\xC5\x81\xC3\xB3"
                          "d\xC5\xBA\r\n");
        QTest::newRow("cp1252 bytes that would read as utf8")
            << QByteArray("[t]\r\na=x\r\n") << u"Ã©"_s << QByteArray("[t]\r\na=x\r\nb=\xC3\x83\xC2\xA9\r\n");
        QTest::newRow("utf8 byte order mark kept")
            << QByteArray("\xEF\xBB\xBF[t]\r\na=Gi\xC3\xA0\r\n") << u"Più"_s
            << QByteArray("\xEF\xBB\xBF[t]\r\na=Gi\xC3\xA0\r\nb=Pi\xC3\xB9\r\n");
    }
    void codifica_del_file() {
        QFETCH(QByteArray, prima);
        QFETCH(QString, valore);
        QFETCH(QByteArray, dopo);
        Scrivi(prima);
        const QString a = prima.contains("a=x") ? u"x"_s : u"Già"_s;
        QCOMPARE(LeggiIni("t", "a", m_file), a);
        QVERIFY(ScriviIni("t", "b", valore, m_file));
        QCOMPARE(Letto(), dopo);
        QCOMPARE(LeggiIni("t", "a", m_file), a);
        QCOMPARE(LeggiIni("t", "b", m_file), valore);
    }
};

QTEST_GUILESS_MAIN(TestFileProfilo)
#include "tst_fileprofilo.moc"
