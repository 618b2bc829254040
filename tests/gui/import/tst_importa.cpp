#include "archiviojetprova.h"
#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "interazionescriptata.h"

#include "esportatesto.h"
#include "form1.h"
#include "frmmain.h"
#include "listecontrolli.h"
#include "routinesql.h"

#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QtTest>
#include <memory>

namespace {

// The dialog's option chosen as a person does, then a button pressed.
std::function<void(QDialog&)> Scegli(const char* opzione, const char* pulsante = "OKButton") {
    return [opzione, pulsante](QDialog& d) {
        if (opzione)
            d.findChild<QRadioButton*>(QString::fromLatin1(opzione))->click();
        d.findChild<QPushButton*>(QString::fromLatin1(pulsante))->click();
    };
}

} // namespace

// "Importa..." in the frame as a person uses it: its dialogs and prompts, then the list, status line and
// records.
class TestImporta final : public QObject {
    Q_OBJECT

    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    std::unique_ptr<frmMAIN> m_frame;

    QListWidget& Collezioni() { return *IstanzaForm1()->List1; }
    QString Stato() { return m_frame->Sbar1->currentMessage(); }

    QString File(const QString& nome, const QByteArray& byte = {}) {
        QFile file(m_archivio->Cartella() + "/" + nome);
        if (!byte.isEmpty() && file.open(QIODevice::WriteOnly))
            file.write(byte);
        return file.fileName();
    }
    qint32 Id(const QString& n) {
        return RigheSql("select id from collezioni where nome='" + n + "'").value(0).toInt();
    }
    QStringList Campi(const QString& colonne, const QString& collezione) {
        return RigheSql("select " + colonne +
                        " from campi where id_collezione=" + QString::number(Id(collezione)));
    }
    // Runs "Importa..." through the script; the script's errors.
    static QStringList Importa(const InterazioneScriptata& script) {
        IstanzaForm1()->mnuImportaStrutturaeDati->trigger();
        return script.Errori();
    }
    void ScriptTesto(InterazioneScriptata& script, const QString& file, const char* separatore,
                     const QString& nome) {
        script.Modale(Scegli("OptFile")).File(file).Modale(Scegli(separatore)).Digita(nome).Digita("d");
    }

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }
    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_frame = std::make_unique<frmMAIN>();
        CaricaCollezioniInLista(Collezioni());
        m_frame->show();
    }
    void cleanup() {
        m_frame.reset();
        m_archivio.reset();
    }

    // The real text export's file (TAB, CR LF; Windows-1252, or UTF-8 for a character that code page
    // lacks) reads back into the same names and values, all text boxes, listed with the status line at its
    // end.
    void roundTripWithTheTextExport() {
        for (const QString& citta : {QString::fromUtf8("Città"), QString::fromUtf8("Łódź")}) {
            const qint32 origine = CreaCollezione("Origine" + citta, QString());
            const QStringList valori[] = {{"1840", citta, "con;punto e, virgola"}, {"1900", "Roma", ""}};
            const QString nomi[] = {"Anno", "Luogo " + citta, "Note"}; // in name order, as the export writes
            for (int k = 0; k < 3; ++k) {
                const qint32 campo = AggiungiCampo(origine, {{"nome", nomi[k]}});
                for (int r = 0; r < 2; ++r)
                    ScriviValore(campo, r + 1, valori[r].at(k));
            }
            EsportaTesto(origine, File("esportata.txt"));
            InterazioneScriptata script;
            ScriptTesto(script, File("esportata.txt"), "Option3", "Copia" + citta);
            QCOMPARE(Importa(script), QStringList());
            QCOMPARE(Campi("nome||':'||tipo", "Copia" + citta),
                     QStringList({"Anno:textbox", "Luogo " + citta + ":textbox", "Note:textbox"}));
            QCOMPARE(RecordCollezione(Id("Copia" + citta)),
                     QStringList({"1840|" + citta + "|con;punto e, virgola", "1900|Roma|"}));
        }
    }

    // An empty collection name cancels: nothing is made.
    void annullamento() {
        InterazioneScriptata script;
        const QString file = File("a.txt", "a;b\n1;2\n");
        script.Modale(Scegli("OptFile")).File(file).Modale(Scegli("Option1")).Digita("");
        QCOMPARE(Importa(script), QStringList());
        QCOMPARE(RigheSql("select count(*) from collezioni"), QStringList{"0"});
    }

    // The error is shown; the collection stays listed with the records before the failing one.
    void errore_mostrato() {
        const auto errore = [this](const QByteArray& testo, const QString& nome) -> QString {
            InterazioneScriptata script;
            ScriptTesto(script, File("a.txt", testo), "Option2", nome);
            script.Rispondi(Risposta::Ok);
            const QString errori = Importa(script).join(',');
            return errori + Descrivi(script.Richieste().last().messaggio);
        };
        QCOMPARE(errore("Titolo\nuno\n", "Una"), QString("Formato File non valido! | Orvix | 1"));
        QCOMPARE(errore("a,b\n1,2\n3,4\nl'ultimo,5\n6,7\n", "Errata"),
                 QString("near \"ultimo\": syntax error | Orvix | 11"));
        QCOMPARE(RecordCollezione(Id("Errata")), QStringList({"1|2", "3|4"}));
        QCOMPARE(Collezioni().count(), 2);
    }

    // During the import a close starts nothing; Esc stops it, the records before it stay and the status
    // line says so.
    void durante() {
        connect(m_frame->Sbar1, &QStatusBar::messageChanged, this, [&](const QString& messaggio) {
            if (messaggio == "Sto creando il campo: a")
                QCoreApplication::postEvent(m_frame.get(), new QCloseEvent);
            else if (messaggio == "Sto creando il campo: b")
                QCoreApplication::postEvent(m_frame.get(),
                                            new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, {}));
        });
        InterazioneScriptata script;
        ScriptTesto(script, File("a.txt", "a;b\n1;2\n3;4\n"), "Option1", "Fermata");
        QCOMPARE(Importa(script), QStringList());
        QCoreApplication::processEvents();
        QVERIFY(m_frame->isVisible());
        QCOMPARE(Stato(), QString("Importazione interrotta: 0 record inseriti."));
    }

    void archivio_una_tabella() {
        TabellaProva film{
            "film",
            {{"Titolo", TipoJet::Testo},
             {"Genere", TipoJet::Testo},
             {"Giudizio", TipoJet::Lungo},
             {"Visto", TipoJet::Booleano},
             {"Immagine", TipoJet::Testo},
             {"Trama", TipoJet::Memo},
             {"Uscita", TipoJet::DataOra},
             {"Prezzo", TipoJet::Doppio}},
            {{"L'ultimo", "2", 7, true, "/img/a.jpg", "C'era una volta", 32073.0 /* 23/10/1987 */, 12.5},
             {"Secondo", "0", 3, false, QVariant(), QVariant(), QVariant(), 1987.0}}};
        const QString file = File("archivio.dat");
        ScriviArchivioJet4(file, {{"msysAltro", {{"x"}}, {}}, film}, "segreta");
        CreaCollezione("FILM", QString());
        // The reader's error is shown and nothing is made: no password is no cancel.
        InterazioneScriptata rifiuto;
        rifiuto.Modale(Scegli("OptAir")).File(file).Digita("").Rispondi(Risposta::Ok);
        QCOMPARE(Importa(rifiuto), QStringList());
        QCOMPARE(Descrivi(rifiuto.Richieste().last().messaggio),
                 "Password non valida: " + file + " | Orvix | 11");
        QCOMPARE(RigheSql("select count(*) from collezioni"), QStringList{"1"});
        InterazioneScriptata script; // the first table listed, not the engine's own
        script.Modale(Scegli("OptAir")).File(file).Digita("segreta").Modale(Scegli(nullptr));
        QCOMPARE(Importa(script), QStringList());
        const qint32 id = Id("film1"); // "FILM" is taken, whatever the case
        QCOMPARE(Campi("nome||':'||tipo", "film1"),
                 QStringList({"Titolo:textbox", "Genere:list", "Giudizio:slider", "Visto:checkbox",
                              "Immagine:image", "Trama:memo", "Uscita:textbox", "Prezzo:textbox"}));
        QCOMPARE(RecordCollezione(id),
                 QStringList(
                     {"L'ultimo|2|7|1|/img/a.jpg|C'era una volta|23/10/1987|12,5", "Secondo|0|3|0||||1987"}));
    }

    // A failure ends the whole import with its message: rows libmdb skipped name the table and the rows
    // read, a NUL names the record and the field; the records already written stay.
    void archivio_con_errori() {
        TabellaProva film{"film", {{"Titolo"}}, {}},
            nullo{"nullo", {{"Anno", TipoJet::Lungo}, {"Titolo"}}, {}};
        for (int i = 1; i <= 600; ++i)
            film.righe << QVariantList{QVariant("riga " + QString::number(i))};
        nullo.righe << QVariantList{1, QString("uno")}
                    << QVariantList{2, QString(QString("d") + QChar(0) + "ue")}
                    << QVariantList{3, QString("tre")};
        const QString file = File("archivio.dat");
        ScriviArchivioJet4(file, {film, nullo});
        QFile danneggiato(file);
        danneggiato.open(QIODevice::ReadWrite);
        danneggiato.seek(5 * 4096 + 4); // the second data page of "film" now names another owner
        danneggiato.write("\x7F");
        danneggiato.close();
        const auto importa = [&](const std::function<void(QDialog&)>& scelta) -> QString {
            InterazioneScriptata script;
            script.Modale(Scegli("OptAir")).File(file).Digita("").Modale(scelta).Rispondi(Risposta::Ok);
            const QString errori = Importa(script).join(',');
            return errori + Descrivi(script.Richieste().last().messaggio);
        };
        const QString messaggio = importa(Scegli("OptTutte"));
        const QRegularExpressionMatch letti =
            QRegularExpression("^La tabella film dell'archivio è danneggiata: lette (\\d+) righe su 600\\. "
                               "\\| Orvix \\| 11$")
                .match(messaggio);
        QVERIFY2(letti.hasMatch(), qPrintable(messaggio));
        QVERIFY(letti.captured(1).toInt() < 600);
        QCOMPARE(RecordCollezione(Id("film")).size(), letti.captured(1).toInt());
        QVERIFY(Stato() != "Inserimento Completato.");
        QCOMPARE(RigheSql("select nome from collezioni"), QStringList{"film"}); // "nullo" is never reached
        QCOMPARE(
            importa([](QDialog& d) {
                d.findChild<QComboBox*>("cmbTabelle")->setCurrentText("nullo");
                d.findChild<QPushButton*>("OKButton")->click();
            }),
            QString("Il record 2 non può essere memorizzato: il campo \"Titolo\" contiene un carattere nullo "
                    "(codice 0). | Orvix | 11"));
        QCOMPARE(RecordCollezione(Id("nullo")), QStringList{"1|uno"});
    }

    void archivio_tutte() {
        const QString file = File("archivio.dat");
        ScriviArchivioJet4(file,
                           {{"giochi", {{"Genere"}, {"giudizio", TipoJet::Booleano}}, {{"Arcade", true}}},
                            {"canzoni", {{"GENERE"}, {"note", TipoJet::Lungo}}, {{"Rock", 3}}},
                            {"vuota", {{"x"}}, {}}});
        for (int volta = 0; volta < 2; ++volta) { // the second time, names taken get a number
            InterazioneScriptata script;
            script.Modale(Scegli("OptAir")).File(file).Digita("").Modale(Scegli("OptTutte"));
            QCOMPARE(Importa(script), QStringList());
        }
        QCOMPARE(RigheSql("select nome from collezioni"),
                 QStringList({"giochi", "canzoni", "vuota", "giochi1", "canzoni1", "vuota1"}));
        QCOMPARE(Campi("count(*)", "vuota1"), QStringList{"1"});
        QCOMPARE(RecordCollezione(Id("canzoni1")), QStringList{"Rock|3"});
    }
};

QTEST_MAIN(TestImporta)
#include "tst_importa.moc"
