#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "interazionescriptata.h"
#include "prune_pc.h"

#include "archivio.h"
#include "form1.h"
#include "frmproprietacontrollo.h"
#include "frmsceglicampi.h"
#include "grigliaproprieta.h"
#include "listecontrolli.h"
#include "programma.h"
#include "routinesql.h"

#include <QAction>
#include <QLabel>
#include <QListWidget>
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

// What another reader of the file sees: only what has been committed.
QString ContaDaFuori(const QString& percorso, const char* sql) {
    sqlite3* db = nullptr;
    sqlite3_open_v2(percorso.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr);
    const QByteArray chiave = Programma::PasswordArchivio().toUtf8();
    sqlite3_key(db, chiave.constData(), static_cast<int>(chiave.size()));
    sqlite3_stmt* stmt = nullptr;
    sqlite3_prepare_v2(db, sql, -1, &stmt, nullptr);
    const QString risposta = sqlite3_step(stmt) == SQLITE_ROW ? QString::number(sqlite3_column_int(stmt, 0))
                                                              : QString::fromUtf8(sqlite3_errmsg(db));
    sqlite3_finalize(stmt);
    sqlite3_close(db);
    return risposta;
}

const auto Annulla = [](QDialog& finestra) { finestra.findChild<QPushButton*>("cmdANNULLA")->click(); };

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
    void initTestCase() { UsaLocaleItaliano(); }

    // Each option shows its own preview alone and SCEGLI gives its word; with none chosen, Annulla or
    // Escape, the result is empty. The previews are drawn controls: of a fair size, not plain, all different.
    void chooserResultFollowsTheButtons() {
        ArchivioTemporaneo archivio;
        FrmScegliCampi scelta;
        for (int k = -1; k < 7; ++k) {
            scelta.show();
            if (k >= 0) { // on the round indicator: only what the button draws takes clicks
                auto* opzione = scelta.findChild<QRadioButton*>(QStringLiteral("Option%1").arg(k + 1));
                QTest::mouseClick(opzione, Qt::LeftButton, {}, QPoint(8, opzione->height() / 2));
            }
            for (int i = 0; i < 7; ++i)
                QCOMPARE(scelta.Pic1.at(i)->isVisible(), i == k);
            scelta.cmdSCEGLI->click();
            QCOMPARE(scelta.Risultato(), k >= 0 ? ControlTypes().at(k) : QString());
            QVERIFY(!scelta.isVisible());
        }
        scelta.show();
        scelta.cmdANNULLA->click();
        QVERIFY(scelta.Risultato().isEmpty() && !scelta.isVisible());
        QTimer::singleShot(0, &scelta, [&] { QTest::keyClick(&scelta, Qt::Key_Escape); });
        QCOMPARE(scelta.exec(), int(QDialog::Rejected));
        QList<QImage> disegni;
        for (QLabel* immagine : scelta.Pic1) {
            const QImage disegno = immagine->pixmap().toImage();
            QSet<QRgb> colori;
            for (int y = 0; y < disegno.height(); y += 3)
                for (int x = 0; x < disegno.width(); x += 3)
                    colori.insert(disegno.pixel(x, y));
            QVERIFY2(disegno.width() >= 200 && disegno.height() >= 100 && colori.size() > 3 &&
                         !disegni.contains(disegno),
                     qPrintable(immagine->objectName()));
            disegni << disegno;
        }
    }

    void eachTypeStoresItsRow_data() {
        QTest::addColumn<int>("indice");
        QTest::addColumn<QString>("proprie"); // etichetta;special;required;formula;default
        QTest::newRow("textbox") << 0 << "Controllo1:;-;False;;";
        QTest::newRow("checkbox") << 2 << "-;-;-;-;-";
        QTest::newRow("list") << 5 << "Controllo1:;Elemento1|Elemento2|Elemento3;-;-;-";
    }

    void eachTypeStoresItsRow() {
        QFETCH(int, indice);
        QFETCH(QString, proprie);
        Finestra f;
        // Re-typing the offered name gives the label its text, where the type has a label.
        f.script.Modale(ScegliTipo(indice)).Modale(Conferma({{"Nome", "Controllo1"}})).Rispondi(Risposta::No);
        f.form.mnuNewCampo->trigger();
        VERIFICA_SCRIPT(f.script);
        QCOMPARE(Descrivi(f.script.Richieste().at(2).messaggio),
                 Descrivi({"Si desidera inserire un altro Campo alla propria Collezione?",
                           "Aggiungere altro campo?", Pulsanti::SiNo, Icona::Domanda}));
        QCOMPARE(Elencati(*f.form.List2), QStringList({"Controllo1"}));
        const QString sql = "select id_collezione,tipo,nome,tabindex,left,top,height,width,tooltip,etichetta,"
                            "special,required,formula,\"default\" from campi where id=";
        QCOMPARE(Valori(sql + QString::number(DatoElemento(*f.form.List2, 0))),
                 QString::number(f.idCollezione) + ";" + ControlTypes().at(indice) +
                     ";Controllo1;0;20;70;20;200;;" + proprie);
    }

    void cancelsWriteNothingAndYesAsksForAnotherField() {
        Finestra f;
        // Three cancelled runs: SCEGLI with no type, then Annulla and Escape in the properties dialog.
        f.script.Modale([](QDialog& d) { dynamic_cast<FrmScegliCampi&>(d).cmdSCEGLI->click(); });
        f.script.Modale(ScegliTipo(3)).Modale(Annulla);
        f.script.Modale(ScegliTipo(3)).Modale([](QDialog& d) { QTest::keyClick(&d, Qt::Key_Escape); });
        // Then "Yes" twice to another field, ended by Annulla in the chooser.
        f.script.Modale(ScegliTipo(0)).Modale(Conferma({{"Nome", "Titolo"}})).Rispondi(Risposta::Si);
        f.script.Modale(ScegliTipo(5)).Modale(Conferma()).Rispondi(Risposta::Si).Modale(Annulla);
        for (int i = 0; i < 4; ++i)
            f.form.mnuNewCampo->trigger();
        VERIFICA_SCRIPT(f.script);
        // The second field is numbered and placed after the first one now listed.
        QCOMPARE(Elencati(*f.form.List2), QStringList({"Titolo", "Controllo2"}));
        QCOMPARE(Valori("select nome,tipo,top,id_collezione from campi order by id"),
                 QStringLiteral("Titolo;textbox;70;%1 / Controllo2;list;90;%1").arg(f.idCollezione));
    }

    void aDuplicateNameIsStoredAndListedByTheFirstMatch() {
        Finestra f;
        const qint32 autore = f.NuovoCampo("Autore");
        const qint32 annoDischi = AggiungiCampo(CreaCollezione("Dischi", QString()), {{"nome", "Anno"}});
        f.script.Modale(ScegliTipo(0)).Modale(Conferma({{"Nome", "autore"}}));
        f.script.Rispondi(Risposta::Ok).Rispondi(Risposta::No);
        f.script.Modale(ScegliTipo(0)).Modale(Conferma({{"Nome", "Anno"}})).Rispondi(Risposta::No);
        f.form.mnuNewCampo->trigger();
        f.form.mnuNewCampo->trigger();
        VERIFICA_SCRIPT(f.script);
        QVERIFY(f.script.TestiMessaggi().at(0).startsWith(
            "Attenzione, hai specificato un valore come proprietà Nome"));
        QCOMPARE(Valori("select nome from campi where id_collezione=" + QString::number(f.idCollezione)),
                 QStringLiteral("Autore / autore / Anno"));
        // The look-up by name finds the older field first, and not only in the current collection.
        QCOMPARE(Elencati(*f.form.List2), QStringList({"Autore", "Autore", "Anno"}));
        QCOMPARE(QList<qint32>({DatoElemento(*f.form.List2, 1), DatoElemento(*f.form.List2, 2)}),
                 QList<qint32>({autore, annoDischi}));
    }

    void failuresReachTheUserAndStoreNothing() {
        Finestra f;
        // The name is spliced into the look-up of the new row: the quote breaks it, and the row
        // written just before goes with it.
        f.script.Modale(ScegliTipo(0)).Modale(Conferma({{"Nome", "L'isola"}})).Rispondi(Risposta::Ok);
        f.form.mnuNewCampo->trigger();
        // Too many listed fields overflow the defaults: the properties dialog never opens.
        for (int i = 0; i < 1635; ++i)
            f.form.List2->addItem(QStringLiteral("c%1").arg(i));
        f.script.Modale(ScegliTipo(4)).Rispondi(Risposta::Ok);
        f.form.mnuNewCampo->trigger();
        VERIFICA_SCRIPT(f.script);
        const Messaggio& rifiuto = f.script.Richieste().at(2).messaggio;
        QVERIFY2(rifiuto.icona == Icona::Critica && rifiuto.testo.contains("syntax error"),
                 qPrintable(rifiuto.testo));
        QCOMPARE(Descrivi(f.script.Richieste().at(4).messaggio),
                 Descrivi({"Overflow", "Orvix", Pulsanti::Ok, Icona::Critica}));
        QCOMPARE(Valori("select count(*) from campi") + "|" + QString::number(f.form.List2->count()),
                 QStringLiteral("0|1635"));
    }

    // A field added to a collection with records gives each the typed value (empty if cancelled), with no
    // "another field?" question. Field row and values are one write: nobody sees the field until the last
    // value is stored, and a failure on the way leaves no field at all.
    void existingRecordsGetTheTypedValueAllOrNothing() {
        Finestra f;
        const qint32 titolo = f.NuovoCampo("Titolo");
        for (int r = 1; r <= 3; ++r)
            ScriviValore(titolo, r, QStringLiteral("t%1").arg(r));
        QString vistoDaAltri;
        const QString arturo = "L'isola d'Arturo";
        f.script.Modale(ScegliTipo(1)).Modale(Conferma({{"Nome", "Editore"}})).Digita(arturo, [&] {
            vistoDaAltri = ContaDaFuori(f.archivio.PercorsoArchivio(), "select count(*) from campi");
        });
        f.form.mnuNewCampo->trigger();
        f.script.Modale(ScegliTipo(2)).Modale(Conferma()).Digita(QString());
        f.form.mnuNewCampo->trigger();
        VERIFICA_SCRIPT(f.script);
        QCOMPARE(vistoDaAltri, QStringLiteral("1"));
        const auto& domanda = f.script.Richieste().at(2);
        QCOMPARE(
            Descrivi(domanda.messaggio),
            Descrivi({"Specifica il Valore del nuovo Campo da assegnare ai record preesistenti:", "Orvix"}));
        QCOMPARE(domanda.predefinito, QString());
        QCOMPARE(Elencati(*f.form.List2), QStringList({"Titolo", "Editore", "Controllo3"}));
        QCOMPARE(ValoriDelCampo(DatoElemento(*f.form.List2, 1)),
                 QStringList({"1=" + arturo, "2=" + arturo, "3=" + arturo}));
        QCOMPARE(ValoriDelCampo(DatoElemento(*f.form.List2, 2)), QStringList({"1=", "2=", "3="}));
        QCOMPARE(Valori("select distinct data_ins,data_mod from valori"), DataOggi() + ";" + DataOggi());

        Database().Esegui("create trigger guasto before insert on valori when new.numerorecord in (3) "
                          "begin select raise(abort, 'disco pieno'); end");
        f.script.Modale(ScegliTipo(0))
            .Modale(Conferma({{"Nome", "Prezzo"}}))
            .Digita("10")
            .Rispondi(Risposta::Ok);
        f.form.mnuNewCampo->trigger();
        VERIFICA_SCRIPT(f.script);
        QVERIFY(f.script.TestiMessaggi().constLast().contains("disco pieno"));
        QCOMPARE(Valori("select nome from campi order by id"),
                 QStringLiteral("Titolo / Editore / Controllo3"));
        QCOMPARE(Valori("select count(*) from valori where valore='10'"), QStringLiteral("0"));
        QCOMPARE(Elencati(*f.form.List2), QStringList({"Titolo", "Editore", "Controllo3"}));
    }

    void deletingAFieldKeepsItsValues() {
        Finestra f;
        f.NuovoCampo("Titolo");
        const qint32 autore = f.NuovoCampo("Autore");
        ScriviValore(autore, 1, "Calvino");
        f.form.mnuElliminaCampo->trigger();
        VERIFICA_SCRIPT(f.script);

        // No and Annulla keep the field: a removal would leave the next question unasked.
        f.form.List2->setCurrentRow(1);
        QCOMPARE(f.form.Lv1->topLevelItemCount(), 13);
        f.script.Rispondi(Risposta::No).Rispondi(Risposta::Annulla).Rispondi(Risposta::Si);
        for (int i = 0; i < 3; ++i)
            f.form.mnuElliminaCampo->trigger();
        VERIFICA_SCRIPT(f.script);
        QCOMPARE(Descrivi(f.script.Richieste().at(0).messaggio),
                 Descrivi({"Sicuro di voler rimuovere permanentemente il Campo selezionato?", "Orvix",
                           Pulsanti::SiNoAnnulla, Icona::Domanda, 2}));
        QCOMPARE(Elencati(*f.form.List2), QStringList({"Titolo"}));
        QVERIFY(f.form.List2->selectedItems().isEmpty());
        QCOMPARE(f.form.Lv1->topLevelItemCount(), 0);
        QCOMPARE(Valori("select nome from campi"), QStringLiteral("Titolo"));
        QCOMPARE(Valori("select id_campo,valore from valori"), QString::number(autore) + ";Calvino");
    }
};

QTEST_MAIN(TestCampi)
#include "tst_campi.moc"
