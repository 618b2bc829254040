#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "interazionescriptata.h"
#include "letture.h"

#include "form1.h"
#include "frmproprietacontrollo.h"
#include "frmsceglicampi.h"
#include "grigliaproprieta.h"
#include "listecontrolli.h"
#include "programma.h"
#include "routinesql.h"

#include <QAction>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>
#include <sqlcipher/sqlite3.h>

namespace {

std::function<void(QDialog&)> ScegliTipo(int indice) {
    return [indice](QDialog& finestra) {
        finestra.findChild<QRadioButton*>(QStringLiteral("Option%1").arg(indice + 1))->click();
        dynamic_cast<FrmScegliCampi&>(finestra).cmdSCEGLI->click();
    };
}

// Types the given values into the properties dialog and confirms it.
std::function<void(QDialog&)> Conferma(const QList<QPair<QString, QString>>& valori = {}) {
    return [valori](QDialog& finestra) {
        auto& dialogo = dynamic_cast<frmProprietaControllo&>(finestra);
        for (const auto& [proprieta, valore] : valori)
            dialogo.FineModifica(dialogo.LV1->findItems(proprieta, Qt::MatchExactly, 1).constFirst(), valore);
        dialogo.cmdSCEGLI->click();
    };
}

// What another reader of the store sees: only what has been committed.
QString CampiVistiDaFuori(const QString& percorso) {
    sqlite3* db = nullptr;
    sqlite3_open_v2(percorso.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr);
    const QByteArray chiave = Programma::PasswordArchivio().toUtf8();
    sqlite3_key(db, chiave.constData(), static_cast<int>(chiave.size()));
    sqlite3_stmt* stmt = nullptr;
    sqlite3_prepare_v2(db, "select count(*) from campi", -1, &stmt, nullptr);
    const QString risposta = sqlite3_step(stmt) == SQLITE_ROW ? QString::number(sqlite3_column_int(stmt, 0))
                                                              : QString::fromUtf8(sqlite3_errmsg(db));
    sqlite3_finalize(stmt);
    sqlite3_close(db);
    return risposta;
}

// A temporary store and the collections window with a new collection selected; prompts are scripted.
struct Finestra {
    Finestra() {
        idCollezione = CreaCollezione("Libri", QString());
        CaricaCollezioniInLista(*form.List1);
        form.show();
        form.List1->setCurrentRow(0);
    }
    // A field stored directly, then listed; answers its id.
    qint32 NuovoCampo(const QString& nome) {
        const qint32 id = AggiungiCampo(idCollezione, {{"nome", nome}});
        CaricaCampiInLista(idCollezione, *form.List2);
        return id;
    }
    ArchivioTemporaneo archivio;
    Form1 form;
    InterazioneScriptata script;
    qint32 idCollezione;
};

} // namespace

class TestCampi final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // SCEGLI with no type, Escape in the properties, or a quote in the name (it breaks the look-up of the
    // new row, which then goes too) store nothing. Yes asks for another field. Re-typing the offered name
    // gives the label its text; a list gets three sample items.
    void cancelsAndFailuresWriteNothing() {
        Finestra f;
        f.script.Modale(ScegliTipo(0)).Modale(Conferma({{"Nome", "L'isola"}})).Rispondi(Risposta::Ok);
        f.script.Modale([](QDialog& d) { d.findChild<QPushButton*>("cmdANNULLA")->click(); });
        f.script.Modale(ScegliTipo(3)).Modale([](QDialog& d) { QTest::keyClick(&d, Qt::Key_Escape); });
        f.script.Modale(ScegliTipo(5)).Modale(Conferma({{"Nome", "Controllo1"}})).Rispondi(Risposta::Si);
        f.script.Modale([](QDialog& d) { dynamic_cast<FrmScegliCampi&>(d).cmdSCEGLI->click(); });
        for (int i = 0; i < 4; ++i)
            f.form.mnuNewCampo->trigger();
        VERIFICA_SCRIPT(f.script);
        QVERIFY(f.script.TestiMessaggi().at(0).contains("syntax error"));
        QCOMPARE(Valori("select id_collezione,tipo,nome,tabindex,left,top,height,width,tooltip,etichetta,"
                        "special,required,formula,\"default\" from campi"),
                 QString::number(f.idCollezione) +
                     ";list;Controllo1;0;20;70;20;200;;Controllo1:;Elemento1|Elemento2|Elemento3;-;-;-");
    }

    // A field added to a collection with records gives each the typed value, with no "another field?"
    // question. Field row and values are one write: nobody sees the field until the last value is stored,
    // and a failure on the way leaves no field at all.
    void existingRecordsGetTheTypedValueAllOrNothing() {
        Finestra f;
        const qint32 titolo = f.NuovoCampo("Titolo");
        for (int r = 1; r <= 3; ++r)
            ScriviValore(titolo, r, QStringLiteral("t%1").arg(r));
        QString vistoDaAltri, arturo = "L'isola d'Arturo";
        f.script.Modale(ScegliTipo(1)).Modale(Conferma({{"Nome", "Editore"}})).Digita(arturo, [&] {
            vistoDaAltri = CampiVistiDaFuori(f.archivio.PercorsoArchivio());
        });
        f.form.mnuNewCampo->trigger();
        VERIFICA_SCRIPT(f.script);
        QCOMPARE(vistoDaAltri, QStringLiteral("1"));
        QCOMPARE(ValoriDelCampo(DatoElemento(*f.form.List2, 1)),
                 QStringList({"1=" + arturo, "2=" + arturo, "3=" + arturo}));

        Database().Esegui("create trigger guasto before insert on valori when new.numerorecord in (3) "
                          "begin select raise(abort, 'disco pieno'); end");
        f.script.Modale(ScegliTipo(0)).Modale(Conferma()).Digita("10").Rispondi(Risposta::Ok);
        f.form.mnuNewCampo->trigger();
        VERIFICA_SCRIPT(f.script);
        QVERIFY(f.script.TestiMessaggi().constLast().contains("disco pieno"));
        QCOMPARE(Valori("select nome from campi order by id"), QStringLiteral("Titolo / Editore"));
        QCOMPARE(Valori("select count(*) from valori where valore='10'"), QStringLiteral("0"));
    }

    // No and Annulla keep the field; Yes removes its row and leaves its values.
    void deletingAFieldKeepsItsValues() {
        Finestra f;
        f.NuovoCampo("Titolo");
        const qint32 autore = f.NuovoCampo("Autore");
        ScriviValore(autore, 1, "Calvino");
        f.form.List2->setCurrentRow(1);
        f.script.Rispondi(Risposta::No).Rispondi(Risposta::Annulla).Rispondi(Risposta::Si);
        for (int i = 0; i < 3; ++i)
            f.form.mnuElliminaCampo->trigger();
        VERIFICA_SCRIPT(f.script);
        QCOMPARE(Valori("select nome from campi") + " " + Valori("select id_campo,valore from valori"),
                 QStringLiteral("Titolo %1;Calvino").arg(autore));
    }
};

QTEST_MAIN(TestCampi)
#include "tst_campi.moc"
