#include "archiviotemporaneo.h"
#include "interazionescriptata.h"

#include "archivio.h"
#include "form1.h"
#include "frmproprietacontrollo.h"
#include "frmsceglicampi.h"
#include "grigliaproprieta.h"
#include "listecontrolli.h"
#include "routinesql.h"

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <QtTest>

namespace {

QVariant Scalare(const QString& sql) {
    return Database().ApriRecordset(sql).Campo(0);
}
qint64 Conta(const QString& sql) {
    return Scalare(sql).toLongLong();
}

std::function<void(QDialog&)> ScegliTipo(int indice) {
    return [indice](QDialog& finestra) {
        auto& scelta = dynamic_cast<FrmScegliCampi&>(finestra);
        scelta.findChild<QRadioButton*>(QStringLiteral("Option%1").arg(indice + 1))->click();
        scelta.cmdSCEGLI->click();
    };
}

QTreeWidgetItem* Riga(const frmProprietaControllo& dialogo, const QString& proprieta) {
    const auto righe = dialogo.LV1->findItems(proprieta, Qt::MatchExactly, 1);
    return righe.isEmpty() ? nullptr : righe.constFirst();
}

// Types the given values into the properties dialog and confirms it.
std::function<void(QDialog&)> Conferma(const QList<QPair<QString, QString>>& valori = {}) {
    return [valori](QDialog& finestra) {
        auto& dialogo = dynamic_cast<frmProprietaControllo&>(finestra);
        for (const auto& [proprieta, valore] : valori)
            dialogo.FineModifica(Riga(dialogo, proprieta), valore);
        dialogo.cmdSCEGLI->click();
    };
}

void Annulla(QDialog& finestra) {
    finestra.findChild<QPushButton*>(QStringLiteral("cmdANNULLA"))->click();
}

struct Finestra {
    explicit Finestra(const QString& collezione = QStringLiteral("Libri")) {
        idCollezione = CreaCollezione(collezione, QString());
        CaricaCollezioniInLista(*form.List1);
        form.show();
        form.List1->setCurrentRow(form.List1->count() - 1);
    }
    void AggiungiCampo(const QString& nome) {
        Database().Esegui(
            QStringLiteral("insert into campi (id_collezione,nome,tipo) values (%1,'%2','textbox')")
                .arg(idCollezione)
                .arg(nome));
        CaricaCampiInLista(idCollezione, *form.List2);
    }
    qint32 idCollezione;
    Form1 form;
};

} // namespace

class TestCampi final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    void chooserResultFollowsTheButtons() {
        ArchivioTemporaneo archivio;
        FrmScegliCampi scelta;
        QCOMPARE(scelta.objectName(), QStringLiteral("FrmScegliCampi"));
        QCOMPARE(scelta.windowTitle(),
                 QStringLiteral("Scegli il tipo di Controllo preferito per rappresentare il "
                                "nuovo Campo (scegli tra 1 e 7)"));
        QCOMPARE(scelta.cmdSCEGLI->text(), QStringLiteral("SCEGLI"));
        QCOMPARE(scelta.cmdANNULLA->text(), QStringLiteral("Annulla"));
        scelta.show();
        for (QLabel* immagine : scelta.Pic1)
            QVERIFY(!immagine->isVisible());

        scelta.cmdSCEGLI->click();
        QCOMPARE(scelta.Risultato(), QString());
        QVERIFY(!scelta.isVisible());

        // Each option shows its own preview alone, and SCEGLI gives its word.
        for (int k = 0; k < 7; ++k) {
            scelta.show();
            auto* opzione = scelta.findChild<QRadioButton*>(QStringLiteral("Option%1").arg(k + 1));
            // On the round indicator: the button is wider than what it draws, and only that takes clicks.
            QTest::mouseClick(opzione, Qt::LeftButton, {}, QPoint(8, opzione->height() / 2));
            for (int i = 0; i < 7; ++i)
                QCOMPARE(scelta.Pic1.at(i)->isVisible(), i == k);
            scelta.cmdSCEGLI->click();
            QCOMPARE(scelta.Risultato(), ControlTypes().at(k));
        }
        scelta.show();
        scelta.cmdANNULLA->click();
        QCOMPARE(scelta.Risultato(), QString());
    }

    void chooserEndsARealModalLoop() {
        ArchivioTemporaneo archivio;
        FrmScegliCampi scelta;
        QTimer::singleShot(0, &scelta, [&] {
            scelta.Option6->click();
            scelta.cmdSCEGLI->click();
        });
        QCOMPARE(scelta.exec(), int(QDialog::Accepted));
        QCOMPARE(scelta.Risultato(), QStringLiteral("list"));
        QTimer::singleShot(0, &scelta, [&] { QTest::keyClick(&scelta, Qt::Key_Escape); });
        QCOMPARE(scelta.exec(), int(QDialog::Rejected));
        QCOMPARE(scelta.Risultato(), QString());
    }

    void previewsAreDrawnControls() {
        ArchivioTemporaneo archivio;
        FrmScegliCampi scelta;
        QList<QImage> disegni;
        for (QLabel* immagine : scelta.Pic1) {
            const QImage disegno = immagine->pixmap().toImage();
            QVERIFY(disegno.width() >= 200 && disegno.height() >= 100);
            QSet<QRgb> colori;
            for (int y = 0; y < disegno.height(); y += 3)
                for (int x = 0; x < disegno.width(); x += 3)
                    colori.insert(disegno.pixel(x, y));
            QVERIFY2(colori.size() > 3, qPrintable(immagine->objectName()));
            QVERIFY2(!disegni.contains(disegno), qPrintable(immagine->objectName()));
            disegni << disegno;
        }
    }

    void noCollectionNoField() {
        ArchivioTemporaneo archivio;
        Form1 form;
        InterazioneScriptata script;
        script.Rispondi(Risposta::Ok);
        form.mnuNewCampo->trigger();
        VERIFICA_SCRIPT(script);
        const Messaggio& messaggio = script.Richieste().at(0).messaggio;
        QCOMPARE(messaggio.testo, QStringLiteral("Nessuna Collezione Selezionata!"));
        QCOMPARE(messaggio.titolo, QStringLiteral("Orvix"));
        QCOMPARE(messaggio.pulsanti, Pulsanti::Ok);
        QCOMPARE(messaggio.icona, Icona::Nessuna);
    }

    void eachTypeStoresItsRow_data() {
        QTest::addColumn<int>("indice");
        QTest::addColumn<QString>("etichetta");
        QTest::addColumn<QVariant>("special");
        QTest::addColumn<QVariant>("required");
        const QVariant nulla;
        const QString elementi = "Elemento1|Elemento2|Elemento3";
        QTest::newRow("textbox") << 0 << "Controllo1:" << nulla << QVariant("False");
        QTest::newRow("combo") << 1 << "Controllo1:" << QVariant(elementi) << nulla;
        QTest::newRow("checkbox") << 2 << QString() << nulla << nulla;
        QTest::newRow("slider") << 3 << "Controllo1:" << QVariant("1|10") << nulla;
        QTest::newRow("memo") << 4 << "Controllo1:" << nulla << nulla;
        QTest::newRow("list") << 5 << "Controllo1:" << QVariant(elementi) << nulla;
        QTest::newRow("image") << 6 << "Controllo1:" << QVariant("TRUE") << nulla;
    }

    void eachTypeStoresItsRow() {
        QFETCH(int, indice);
        QFETCH(QString, etichetta);
        QFETCH(QVariant, special);
        QFETCH(QVariant, required);
        ArchivioTemporaneo archivio;
        Finestra f;
        InterazioneScriptata script;
        // Re-typing the offered name gives the label its text, where the type has a label.
        script.Modale(ScegliTipo(indice)).Modale(Conferma({{"Nome", "Controllo1"}})).Rispondi(Risposta::No);
        f.form.mnuNewCampo->trigger();
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.Richieste().at(0).finestra, QStringLiteral("FrmScegliCampi"));
        QCOMPARE(script.Richieste().at(1).finestra, QStringLiteral("frmProprietaControllo"));
        const Messaggio& altro = script.Richieste().at(2).messaggio;
        QCOMPARE(altro.testo, QStringLiteral("Si desidera inserire un altro Campo alla propria Collezione?"));
        QCOMPARE(altro.titolo, QStringLiteral("Aggiungere altro campo?"));
        QCOMPARE(altro.pulsanti, Pulsanti::SiNo);
        QCOMPARE(altro.icona, Icona::Domanda);

        QCOMPARE(f.form.List2->count(), 1);
        QCOMPARE(f.form.List2->item(0)->text(), QStringLiteral("Controllo1"));
        const qint32 id = DatoElemento(*f.form.List2, 0);
        Recordset rs = Database().ApriRecordset(QStringLiteral("select * from campi where id=%1").arg(id));
        QCOMPARE(rs.Campo("id_collezione").toInt(), f.idCollezione);
        QCOMPARE(rs.Testo("tipo"), ControlTypes().at(indice));
        QCOMPARE(rs.Testo("nome"), QStringLiteral("Controllo1"));
        QCOMPARE(rs.Campo("tabindex"), QVariant(0LL));
        QCOMPARE(rs.Campo("left"), QVariant(20LL));
        QCOMPARE(rs.Campo("top"), QVariant(70LL));
        QCOMPARE(rs.Campo("height"), QVariant(20LL));
        QCOMPARE(rs.Campo("width"), QVariant(200LL));
        QCOMPARE(rs.Campo("tooltip"), QVariant(QString("")));
        QCOMPARE(rs.Campo("etichetta").isNull(), etichetta.isNull());
        QCOMPARE(rs.Testo("etichetta"), etichetta);
        QCOMPARE(rs.Campo("special"), special);
        QCOMPARE(rs.Campo("required"), required);
        QCOMPARE(rs.Campo("formula").isNull(), indice != 0);
        QCOMPARE(rs.Campo("default").isNull(), indice != 0);
        QCOMPARE(Conta("select count(*) from valori"), 0);
    }

    void yesAsksForAnotherFieldUntilNo() {
        ArchivioTemporaneo archivio;
        Finestra f;
        InterazioneScriptata script;
        script.Modale(ScegliTipo(0))
            .Modale(Conferma({{"Nome", "Titolo"}}))
            .Rispondi(Risposta::Si)
            .Modale(ScegliTipo(5))
            .Modale([](QDialog& finestra) {
                auto& dialogo = dynamic_cast<frmProprietaControllo&>(finestra);
                // The second field is numbered and placed after the first one now listed.
                QCOMPARE(Riga(dialogo, "Nome")->text(0), QStringLiteral("Controllo2"));
                QCOMPARE(Riga(dialogo, "Top")->text(0), QStringLiteral("90"));
                dialogo.cmdSCEGLI->click();
            })
            .Rispondi(Risposta::Si)
            .Modale(Annulla);
        f.form.mnuNewCampo->trigger();
        VERIFICA_SCRIPT(script);
        QCOMPARE(f.form.List2->count(), 2);
        QCOMPARE(
            Conta(QStringLiteral("select count(*) from campi where id_collezione=%1").arg(f.idCollezione)),
            2);
        QCOMPARE(Scalare("select tipo from campi where nome='Controllo2'").toString(),
                 QStringLiteral("list"));
        QCOMPARE(Scalare("select top from campi where nome='Controllo2'").toInt(), 90);
    }

    void existingRecordsGetTheTypedValue() {
        ArchivioTemporaneo archivio;
        Finestra f;
        f.AggiungiCampo("Titolo");
        const qint32 titolo = DatoElemento(*f.form.List2, 0);
        for (int r = 1; r <= 3; ++r)
            Database().Esegui(
                QStringLiteral("insert into valori (id_campo,valore,numerorecord) values (%1,'t%2',%2)")
                    .arg(titolo)
                    .arg(r));
        InterazioneScriptata script;
        script.Modale(ScegliTipo(1)).Modale(Conferma({{"Nome", "Editore"}})).Digita("L'isola d'Arturo");
        f.form.mnuNewCampo->trigger();
        VERIFICA_SCRIPT(script);
        const auto& domanda = script.Richieste().at(2);
        QCOMPARE(domanda.messaggio.testo,
                 QStringLiteral("Specifica il Valore del nuovo Campo da assegnare ai record preesistenti:"));
        QCOMPARE(domanda.messaggio.titolo, QStringLiteral("Orvix"));
        QCOMPARE(domanda.predefinito, QString());

        QCOMPARE(f.form.List2->count(), 2);
        const qint32 editore = DatoElemento(*f.form.List2, 1);
        QCOMPARE(Scalare(QStringLiteral("select nome from campi where id=%1").arg(editore)).toString(),
                 QStringLiteral("Editore"));
        Recordset rs = Database().ApriRecordset(
            QStringLiteral("select valore,data_ins,data_mod,numerorecord from valori where id_campo=%1 "
                           "order by numerorecord")
                .arg(editore));
        for (int r = 1; r <= 3; ++r, rs.Successivo()) {
            QVERIFY(!rs.Fine());
            QCOMPARE(rs.Testo("valore"), QStringLiteral("L'isola d'Arturo"));
            QCOMPARE(rs.Campo("numerorecord").toInt(), r);
            QCOMPARE(rs.Testo("data_ins"), DataOggi());
            QCOMPARE(rs.Testo("data_mod"), DataOggi());
        }
        QVERIFY(rs.Fine());

        // A cancelled value prompt still gives every record a row, empty.
        script.Modale(ScegliTipo(2)).Modale(Conferma()).Digita(QString());
        f.form.mnuNewCampo->trigger();
        VERIFICA_SCRIPT(script);
        const qint32 casella = DatoElemento(*f.form.List2, 2);
        QCOMPARE(
            Conta(QStringLiteral("select count(*) from valori where id_campo=%1 and valore=''").arg(casella)),
            3);
    }

    void cancellingEitherDialogWritesNothing() {
        ArchivioTemporaneo archivio;
        Finestra f;
        InterazioneScriptata script;
        script.Modale(Annulla);
        f.form.mnuNewCampo->trigger();
        script.Modale([](QDialog& finestra) { dynamic_cast<FrmScegliCampi&>(finestra).cmdSCEGLI->click(); });
        f.form.mnuNewCampo->trigger();
        script.Modale(ScegliTipo(3)).Modale(Annulla);
        f.form.mnuNewCampo->trigger();
        // Closing the properties window with Escape cancels too.
        script.Modale(ScegliTipo(3)).Modale([](QDialog& finestra) {
            QTest::keyClick(&finestra, Qt::Key_Escape);
        });
        f.form.mnuNewCampo->trigger();
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.Richieste().size(), 6);
        QCOMPARE(Conta("select count(*) from campi"), 0);
        QCOMPARE(f.form.List2->count(), 0);
    }

    void aDuplicateNameIsStoredAndListedByTheFirstMatch() {
        ArchivioTemporaneo archivio;
        Finestra altra(QStringLiteral("Dischi"));
        altra.AggiungiCampo("Anno");
        const qint32 annoDischi = DatoElemento(*altra.form.List2, 0);
        Finestra f;
        f.AggiungiCampo("Autore");
        const qint32 autore = DatoElemento(*f.form.List2, 0);
        InterazioneScriptata script;
        script.Modale(ScegliTipo(0))
            .Modale(Conferma({{"Nome", "autore"}}))
            .Rispondi(Risposta::Ok)
            .Rispondi(Risposta::No);
        f.form.mnuNewCampo->trigger();
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.TestiMessaggi().at(0),
                 QStringLiteral(
                     "Attenzione, hai specificato un valore come proprietà Nome già assegnato ad un altro "
                     "controllo!"));
        QCOMPARE(
            Conta(QStringLiteral("select count(*) from campi where id_collezione=%1").arg(f.idCollezione)),
            2);
        // The look-up by name finds the older field first, so the list shows that one again.
        QCOMPARE(f.form.List2->count(), 2);
        QCOMPARE(f.form.List2->item(1)->text(), QStringLiteral("Autore"));
        QCOMPARE(DatoElemento(*f.form.List2, 1), autore);

        // The look-up is not limited to the current collection either.
        script.Modale(ScegliTipo(0)).Modale(Conferma({{"Nome", "Anno"}})).Rispondi(Risposta::No);
        f.form.mnuNewCampo->trigger();
        VERIFICA_SCRIPT(script);
        QCOMPARE(DatoElemento(*f.form.List2, 2), annoDischi);
    }

    void storeFailuresReachTheUser() {
        ArchivioTemporaneo archivio;
        Finestra f;
        InterazioneScriptata script;
        // The numeric test accepts the user's decimals; the integer column does not.
        script.Modale(ScegliTipo(0)).Modale(Conferma({{"Width", "12,5"}})).Rispondi(Risposta::Ok);
        f.form.mnuNewCampo->trigger();
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.Richieste().at(2).messaggio.icona, Icona::Critica);
        QVERIFY(script.TestiMessaggi().at(0).contains("width deve essere un numero intero"));
        QCOMPARE(Conta("select count(*) from campi"), 0);
        QCOMPARE(f.form.List2->count(), 0);
    }

    void tooManyListedFieldsOverflowTheDefaults() {
        ArchivioTemporaneo archivio;
        Finestra f;
        for (int i = 0; i < 1635; ++i)
            f.form.List2->addItem(QStringLiteral("c%1").arg(i));
        InterazioneScriptata script;
        script.Modale(ScegliTipo(4)).Rispondi(Risposta::Ok);
        f.form.mnuNewCampo->trigger();
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.Richieste().size(), 2);
        QCOMPARE(script.Richieste().at(1).messaggio.testo, QStringLiteral("Overflow"));
        QCOMPARE(Conta("select count(*) from campi"), 0);
    }

    void deletingAFieldKeepsItsValues() {
        ArchivioTemporaneo archivio;
        Finestra f;
        f.AggiungiCampo("Titolo");
        f.AggiungiCampo("Autore");
        const qint32 autore = DatoElemento(*f.form.List2, 1);
        Database().Esegui(
            QStringLiteral("insert into valori (id_campo,valore,numerorecord) values (%1,'Calvino',1)")
                .arg(autore));
        InterazioneScriptata script;
        f.form.mnuElliminaCampo->trigger();
        QCOMPARE(script.Richieste().size(), 0);

        f.form.List2->setCurrentRow(1);
        QCOMPARE(f.form.Lv1->topLevelItemCount(), 13);
        script.Rispondi(Risposta::No).Rispondi(Risposta::Annulla);
        f.form.mnuElliminaCampo->trigger();
        f.form.mnuElliminaCampo->trigger();
        VERIFICA_SCRIPT(script);
        const Messaggio& domanda = script.Richieste().at(0).messaggio;
        QCOMPARE(domanda.testo,
                 QStringLiteral("Sicuro di voler rimuovere permanentemente il Campo selezionato?"));
        QCOMPARE(domanda.titolo, QStringLiteral("Orvix"));
        QCOMPARE(domanda.pulsanti, Pulsanti::SiNoAnnulla);
        QCOMPARE(domanda.icona, Icona::Domanda);
        QCOMPARE(domanda.predefinito, 2);
        QCOMPARE(f.form.List2->count(), 2);
        QCOMPARE(Conta("select count(*) from campi"), 2);

        script.Rispondi(Risposta::Si);
        f.form.mnuElliminaCampo->trigger();
        VERIFICA_SCRIPT(script);
        QCOMPARE(f.form.List2->count(), 1);
        QCOMPARE(f.form.List2->item(0)->text(), QStringLiteral("Titolo"));
        QVERIFY(f.form.List2->selectedItems().isEmpty());
        QCOMPARE(f.form.Lv1->topLevelItemCount(), 0);
        QCOMPARE(Conta(QStringLiteral("select count(*) from campi where id=%1").arg(autore)), 0);
        QCOMPARE(Conta(QStringLiteral("select count(*) from valori where id_campo=%1").arg(autore)), 1);
    }
};

QTEST_MAIN(TestCampi)
#include "tst_campi.moc"
