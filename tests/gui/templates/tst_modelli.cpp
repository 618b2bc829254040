#include "archiviotemporaneo.h"
#include "barradistato.h"
#include "campiprova.h"
#include "interazionescriptata.h"

#include "archivio.h"
#include "caricamodello.h"
#include "cp1252.h"
#include "fileprofilo.h"
#include "form1.h"
#include "formatomodello.h"
#include "frmmodelli.h"
#include "listecontrolli.h"
#include "routinesql.h"

#include <QDir>
#include <QFile>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

// The field rows of a collection, each in the template's key order without its ids.
QStringList Righe(const QString& collezione) {
    const QString colonne = FormatoModello::ChiaviCampo().join(u"\",\""_s);
    return RigheSql(
        u"select \"%1\" from campi where id_collezione=(select id from collezioni where nome='%2') order by id"_s
            .arg(colonne, collezione));
}

QByteArray Contenuto(const QString& percorso) {
    QFile file(percorso);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

// Lines of a template file, in CR LF as the writer ends them.
QByteArray Modello(const QStringList& righe) {
    return InCp1252(righe.join(u"\r\n"_s) + u"\r\n"_s);
}

void Crea(const QString& percorso, const QStringList& righe) {
    QFile file(percorso);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(Modello(righe));
}

} // namespace

// Templates from the collections window: export, the gallery, and collections made from templates,
// on a real store, with the gallery driven as a person drives it.
class TestModelli final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    QPointer<Form1> m_form;
    QTemporaryDir m_altrove;

    QListWidget& Collezioni() { return *m_form->List1; }
    QString InModelli(const QString& nome) { return CartellaModelli() + QDir::separator() + nome; }
    void Seleziona(const QString& nome) {
        Collezioni().setCurrentItem(Collezioni().findItems(nome, Qt::MatchExactly).value(0));
    }
    // The export command and the gallery, opened from the menu with what `script` answers queued.
    void Esporta(InterazioneScriptata&) { m_form->mnuEsportaModello->trigger(); }
    void Galleria(InterazioneScriptata&) { m_form->mnuNuovaColleazioneDaModello->trigger(); }
    static void Clic(frmModelli& galleria, int riga) {
        QTest::mouseClick(galleria.Lv1->viewport(), Qt::LeftButton, {},
                          galleria.Lv1->visualItemRect(galleria.Lv1->item(riga)).center());
    }
    static QStringList Voci(const frmModelli& galleria) {
        QStringList voci;
        for (int i = 0; i < galleria.Lv1->count(); ++i)
            voci << galleria.Lv1->item(i)->text() + " -> " +
                        QFileInfo(galleria.Lv1->item(i)->data(Qt::UserRole).toString()).fileName();
        return voci;
    }

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    void init() {
        QDir(m_altrove.path()).removeRecursively();
        QDir().mkpath(m_altrove.path());
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_form = &CaricaForm1();
        m_form->show();
    }
    void cleanup() {
        delete m_form.data();
        m_archivio.reset();
    }

    // The bytes written; a cancelled dialog writes nothing, nor does a missing folder, which is reported.
    void esportazione() {
        AggiungiCampo(CreaCollezione("Libri", "La mia biblioteca"),
                      {{"nome", "Titolo"}, {"required", "True"}, {"tooltip", "Titolo completo"}});
        CaricaCollezioniInLista(Collezioni());
        Seleziona("Libri");
        InterazioneScriptata script;
        BarraDiStato barra;
        Esporta(script.File({}));
        Esporta(script.File(m_altrove.filePath("manca/m.wzd")).Rispondi(Risposta::Ok));
        QVERIFY(barra.testi.isEmpty());
        Esporta(script.File(m_altrove.filePath("m.wzd")));
        VERIFICA_SCRIPT(script);
        QCOMPARE(barra.testi,
                 QStringList{"Modello salvato in " + QDir::toNativeSeparators(m_altrove.filePath("m.wzd"))});
        QCOMPARE(script.TestiMessaggi(), QStringList{"Impossibile scrivere il Modello nel file \"" +
                                                     m_altrove.filePath("manca/m.wzd") + "\"."});
        QVERIFY(!QFile::exists(m_altrove.filePath("manca")));
        QCOMPARE(Contenuto(m_altrove.filePath("m.wzd")),
                 Modello({"[tabella]", "nome=Libri", "descrizione=La mia biblioteca", "[campi]",
                          "nome1=Titolo", "default1=", "required1=True", "tipo1=textbox",
                          "etichetta1=", "formula1=", "left1=10", "top1=30", "width1=120", "height1=21",
                          "special1=", "tooltip1=Titolo completo", "tabindex1=0", "n=1"}));
    }

    // Every kind of control and every column goes out and comes back through the gallery, but the required
    // flag. A shorter collection written over the same file leaves the old keys after its own; n says one.
    void andata_e_ritorno_di_sette_tipi() {
        const qint32 id = CreaCollezione("Tutti", "Uno per tipo: già, € e \"virgolette\"");
        const QStringList tipi = ControlTypes();
        for (int i = 0; i < tipi.size(); ++i)
            AggiungiCampo(id, {{"nome", u"Campo%1"_s.arg(i)},
                               {"tipo", tipi.at(i)},
                               {"default", i == 0 ? "Già letto" : ""},
                               {"required", i % 2 ? "True" : "False"},
                               {"special", u"%1|10"_s.arg(i)},
                               {"tooltip", u"Suggerimento = %1"_s.arg(i)},
                               {"tabindex", 6 - i}});
        AggiungiCampo(CreaCollezione("Due", QString()), {{"nome", "D1"}});
        CaricaCollezioniInLista(Collezioni());
        Seleziona("Tutti");
        const QString file = InModelli("tutti.wzd");
        InterazioneScriptata script;
        QDir().mkpath(CartellaModelli());
        Esporta(script.File(file));
        Galleria(script.Modale([](QDialog& galleria) {
            Clic(static_cast<frmModelli&>(galleria), 0);
            static_cast<frmModelli&>(galleria).OKButton->click();
        }));
        VERIFICA_SCRIPT(script);
        QCOMPARE(Collezioni().count(), 3);
        QCOMPARE(RigheSql(u"select nome, descrizione from collezioni where id=%1 + 2"_s.arg(id)),
                 QStringList{u"Tutti1|Uno per tipo: già, € e \"virgolette\""_s});
        QCOMPARE(Righe("Tutti1"),
                 Righe("Tutti").replaceInStrings("|True|", "|0|").replaceInStrings("|False|", "|0|"));

        Seleziona("Due");
        Esporta(script.File(file));
        VERIFICA_SCRIPT(script);
        QCOMPARE(LeggiIni("campi", "nome2", file), u"Campo1"_s);
        QVERIFY(Contenuto(file).endsWith("tabindex7=0\r\nn=1\r\n"));
        QCOMPARE(Righe(CaricaModello(file).value().nome), Righe("Due").replaceInStrings("|False|", "|0|"));
    }

    // Annulla drops the template clicked before it: nothing is created, then or at the next OK.
    void annulla_dimentica_la_scelta() {
        QDir().mkpath(CartellaModelli());
        Crea(InModelli("Libri.wzd"), {"[tabella]", "nome=Libri", "[campi]", "nome1=Titolo", "n=1"});
        InterazioneScriptata script;
        Galleria(script.Modale([](QDialog& dialogo) {
            auto& galleria = static_cast<frmModelli&>(dialogo);
            Clic(galleria, 0);
            QVERIFY(!galleria.FileModelloDaImportare.isEmpty());
            galleria.CancelButton->click();
        }));
        Galleria(
            script.Modale([](QDialog& dialogo) { static_cast<frmModelli&>(dialogo).OKButton->click(); }));
        VERIFICA_SCRIPT(script);
        QCOMPARE(Collezioni().count(), 0);
        QCOMPARE(RigheSql(u"select count(*) from collezioni"_s), QStringList{"0"});
    }

    // Numbers read with either decimal mark, half to even, leading digits only; n, rounded, says how many
    // fields are read, present or not.
    void lettura_dei_numeri_e_di_n() {
        const QString file = m_altrove.filePath("m.wzd");
        const QString vuota = "||0||||0|0|0|0|||0";
        for (const auto& [campi, righe] : std::initializer_list<std::pair<QStringList, QStringList>>{
                 {{"nome1=A", "required1=True", "tipo1=textbox", "left1=12,5", "top1=12.5", "width1=13.5",
                   "height1= 7px", "tabindex1=abc", "n=1"},
                  {"A||0|textbox|||12|12|14|7|||0"}},
                 {{"nome1=A", "n=1.5"}, {"A" + vuota, vuota}}}) {
            Crea(file, QStringList{"[campi]"} + campi + QStringList{"[tabella]", "nome=Prova"});
            QCOMPARE(Righe(CaricaModello(file).value().nome), righe);
        }
    }

    // A name taken, in any case, gets the first free number.
    void nomi_unici() {
        CreaCollezione("libri", QString());
        Crea(m_altrove.filePath("m.wzd"), {"[tabella]", "nome=LIBRI", "[campi]", "n=0"});
        QCOMPARE(CaricaModello(m_altrove.filePath("m.wzd"))->nome, u"LIBRI1"_s);
    }

    // A value the store refuses stops the whole creation: no collection and no field. The message names
    // the template and the field, and a number too large even for 32 bits is told as out of range.
    void modello_rifiutato() {
        CreaCollezione("Esistente", QString());
        const QString file = m_altrove.filePath("rotto.wzd");
        const QString campo = u"Il Modello \"rotto.wzd\" non è valido: il campo "_s;
        for (
            const auto& [campi, atteso] : std::initializer_list<std::pair<QStringList, QString>>{
                {{"nome1=A", "nome2=B", "left2=40000", "n=2"},
                 campo +
                     u"2 (\"B\") ha un valore non ammesso: left deve essere un numero intero da 0 a 32767."_s},
                {{"nome1=A", "width1=99999999999", "n=1"},
                 campo +
                     u"1 (\"A\") ha un valore non ammesso: width (99999999999) è fuori dall'intervallo ammesso."_s},
                {{"n=99999999999"},
                 u"Il numero dei campi del Modello (99999999999) è fuori dall'intervallo ammesso."_s},
                {{"n=40000"},
                 u"Il numero dei campi del Modello (40000) è fuori dall'intervallo ammesso."_s}}) {
            Crea(file, QStringList{"[tabella]", "nome=Rotto", "[campi]"} + campi);
            QString detto;
            try {
                CaricaModello(file);
            } catch (const std::runtime_error& errore) {
                detto = QString::fromLocal8Bit(errore.what());
            }
            QCOMPARE(detto, atteso);
        }
        Crea(file, {"[tabella]", "nome=x' or 'a'<>'", "[campi]", "n=0"});
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, CaricaModello(file));
        QCOMPARE(RigheSql(u"select nome from collezioni"_s), QStringList{"Esistente"});
        QCOMPARE(RigheSql(u"select count(*) from campi"_s), QStringList{"0"});
    }

    // The store chosen as a template to import is refused before a byte of it is read; nothing is copied.
    void importare_l_archivio_e_rifiutato() {
        const int prima = QDir(CartellaModelli()).entryList(QDir::Files).size();
        InterazioneScriptata script;
        script.Modale([](QDialog& dialogo) {
            auto& galleria = static_cast<frmModelli&>(dialogo);
            galleria.cmdImporta->click();
            galleria.CancelButton->click();
        });
        Galleria(script.File(m_archivio->PercorsoArchivio()).Rispondi(Risposta::Ok));
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.TestiMessaggi(),
                 QStringList{"Non è possibile leggere " + m_archivio->PercorsoArchivio() +
                             ": è l'archivio delle collezioni in uso."});
        QCOMPARE(QDir(CartellaModelli()).entryList(QDir::Files).size(), prima);
    }

    // An import is copied into the folder under a free name and listed under the template's name; a
    // template without a name is refused. Canc asks first, No being the default; the deleted template
    // stays chosen, so OK reads a file that is gone: a collection without name and without fields.
    void importa_ed_elimina() {
        const QString scaricato = m_altrove.filePath("Libri.wzd");
        Crea(scaricato, {"[tabella]", "nome=Libri di casa", "[campi]", "nome1=Titolo", "n=1"});
        const QString senzaNome = m_altrove.filePath("vuoto.wzd");
        Crea(senzaNome, {"[tabella]", "descrizione=Senza nome"});
        const QString prima = QDir::currentPath();
        InterazioneScriptata script;
        script.Modale([this](QDialog& dialogo) {
            auto& galleria = static_cast<frmModelli&>(dialogo);
            for (int i = 0; i < 5; ++i) // three copies, a cancelled dialog, a template without a name
                galleria.cmdImporta->click();
            QCOMPARE(Voci(galleria), (QStringList{"Libri di casa -> Libri.wzd", "Libri di casa -> 1Libri.wzd",
                                                  "Libri di casa -> 2Libri.wzd"}));
            Clic(galleria, 1);
            QTest::keyClick(galleria.Lv1, Qt::Key_Delete);
            QVERIFY(QFile::exists(InModelli("1Libri.wzd")));
            QTest::keyClick(galleria.Lv1, Qt::Key_Delete);
            QVERIFY(!QFile::exists(InModelli("1Libri.wzd")));
            QTest::keyClick(galleria.Lv1, Qt::Key_Delete); // nothing selected: nothing asked
            galleria.OKButton->click();
        });
        script.File(scaricato).File(scaricato).File(scaricato).File({}).File(senzaNome);
        Galleria(script.Rispondi(Risposta::Ok).Rispondi(Risposta::No).Rispondi(Risposta::Si));
        QDir::setCurrent(prima);
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.TestiMessaggi().value(0), u"Modello non valido! Nome collezione non specificato"_s);
        QCOMPARE(Descrivi(script.Richieste().at(7).messaggio),
                 u"Eliminare definitivamente il Modello Corrente? | Orvix | 222"_s);
        QCOMPARE(Contenuto(InModelli("2Libri.wzd")), Contenuto(scaricato));
        QCOMPARE(RigheSql(u"select nome from collezioni"_s), QStringList{QString()});
        QCOMPARE(RigheSql(u"select count(*) from campi"_s), QStringList{"0"});
    }
};

QTEST_MAIN(TestModelli)
#include "tst_modelli.moc"
