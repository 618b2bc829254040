#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "interazionescriptata.h"
#include "prune_pc.h"

#include "archivio.h"
#include "form1.h"
#include "frmanteprima.h"
#include "grigliaproprieta.h"
#include "listecontrolli.h"
#include "routinesql.h"

#include <QAction>
#include <QDialog>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QtTest>

namespace {

// The type chooser that "Nuova" leads to, closed with "Annulla".
void AnnullaScelta(QDialog& scelta) {
    scelta.findChild<QPushButton*>(QStringLiteral("cmdANNULLA"))->click();
}

void Clicca(QListWidget* lista, int riga) {
    const QRect area = lista->visualItemRect(lista->item(riga));
    QTest::mouseClick(lista->viewport(), Qt::LeftButton, {}, area.center());
}

void RilasciaDestro(QListWidget* lista) {
    QTest::mouseRelease(lista->viewport(), Qt::RightButton, {}, QPoint(5, 5));
}

struct Finestra {
    Finestra() {
        CaricaCollezioniInLista(*form.List1);
        form.show();
    }
    Form1 form;
};

} // namespace

class TestCollezioni final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // A quote in the name shows the engine's error and creates nothing; the next name is trimmed, added
    // and made current without a selection.
    void newCollectionIsAddedAndMadeCurrentWithoutSelection() {
        ArchivioTemporaneo archivio;
        CreaCollezione(QStringLiteral("Dischi"), QString());
        Finestra f;
        InterazioneScriptata script;
        script.Digita(QStringLiteral("L'album")).Digita(QString()).Rispondi(Risposta::Ok);
        f.form.mnuNewCollection->trigger();
        VERIFICA_SCRIPT(script);
        const auto& errore = script.Richieste().last().messaggio;
        QVERIFY2(errore.testo.contains(QLatin1String("syntax error")) && errore.icona == Icona::Critica,
                 qPrintable(errore.testo));
        QCOMPARE(f.form.List1->count(), 1);

        script.Digita(QStringLiteral("  Farfalle  "))
            .Digita(QStringLiteral(" europee "))
            .Modale(AnnullaScelta);
        f.form.mnuNewCollection->trigger();
        VERIFICA_SCRIPT(script);
        const auto& descrizione = script.Richieste().at(4).messaggio;
        QCOMPARE(descrizione.testo + "|" + descrizione.titolo,
                 QStringLiteral("Se desideri puoi anche accompagnare alla tua collezione una breve "
                                "descrizione?|Descrivi la tua collezione"));
        QCOMPARE(f.form.List1->count(), 2);
        QCOMPARE(f.form.List1->item(1)->text(), QStringLiteral("Farfalle"));
        const qint32 id = f.form.List1->item(1)->data(Qt::UserRole).toInt();
        QCOMPARE(f.form.IdCollezioneCorrente(), id);
        QVERIFY(f.form.List1->selectedItems().isEmpty());
        QCOMPARE(Valori(QStringLiteral("select descrizione from collezioni where id=%1").arg(id)),
                 QStringLiteral("europee"));
    }

    // A blank name asks nothing more; a duplicate is silently not created and leaves no collection current.
    void cancelledOrDuplicateNamesCreateNothing() {
        ArchivioTemporaneo archivio;
        CreaCollezione(QStringLiteral("Dischi"), QString());
        Finestra f;
        InterazioneScriptata script;
        script.Digita(QStringLiteral("   "));
        f.form.mnuNewCollection->trigger();
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.Richieste().size(), 1);
        script.Digita(QStringLiteral("dischi")).Digita(QString()).Rispondi(Risposta::Ok);
        f.form.mnuNewCollection->trigger();
        VERIFICA_SCRIPT(script);
        QCOMPARE(Descrivi(script.Richieste().last().messaggio),
                 Descrivi({"Nessuna Collezione Selezionata!", "Orvix"}));
        QCOMPARE(f.form.List1->count(), 1);
        QCOMPARE(Valori(QStringLiteral("select count(*) from collezioni")), QStringLiteral("1"));
    }

    void selectingACollectionListsItsFields() {
        ArchivioTemporaneo archivio;
        const qint32 dischi = CreaCollezione(QStringLiteral("Dischi"), QString());
        CreaCollezione(QStringLiteral("Film"), QString());
        for (const char* nome : {"Titolo", "Autore"})
            AggiungiCampo(dischi, {{"nome", QString::fromLatin1(nome)}});
        Finestra f;
        Clicca(f.form.List1, 0);
        QCOMPARE(f.form.IdCollezioneCorrente(), dischi);
        QCOMPARE(f.form.NomeCollezioneCorrente(), QStringLiteral("Dischi"));
        QCOMPARE(f.form.List2->count(), 2);
        QCOMPARE(f.form.List2->item(1)->text(), QStringLiteral("Autore"));
        Clicca(f.form.List2, 1);
        QCOMPARE(f.form.IdCampoCorrente(), f.form.List2->item(1)->data(Qt::UserRole).toInt());
        Clicca(f.form.List1, 1);
        QCOMPARE(f.form.List2->count(), 0);
    }

    void renameWithAndWithoutDescription() {
        ArchivioTemporaneo archivio;
        CreaCollezione(QStringLiteral("Dischi"), QStringLiteral("vecchia"));
        Finestra f;
        InterazioneScriptata script;
        script.Rispondi(Risposta::Ok);
        f.form.mnuRinominaCollezione->trigger();
        QCOMPARE(Descrivi(script.Richieste().last().messaggio),
                 Descrivi({"Selezionare una Collezione dall'apposita Lista!", "Orvix"}));

        Clicca(f.form.List1, 0);
        script.Digita(QStringLiteral(" Vinili d'epoca ")).Digita(QString());
        f.form.mnuRinominaCollezione->trigger();
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.Richieste().at(1).predefinito + "|" + script.Richieste().at(1).messaggio.titolo,
                 QStringLiteral("Dischi|Nuovo nome..."));
        QCOMPARE(Valori(QStringLiteral("select nome||'|'||descrizione from collezioni")),
                 QStringLiteral("Vinili d'epoca|vecchia"));

        // With a description the statement lacks its comma: the engine refuses it and says so,
        // the list shows the new name and the store keeps the old one.
        script.Digita(QStringLiteral("Dischi 2")).Digita(QStringLiteral("nuova")).Rispondi(Risposta::Ok);
        f.form.mnuRinominaCollezione->trigger();
        VERIFICA_SCRIPT(script);
        QVERIFY(script.TestiMessaggi().last().contains(QLatin1String("syntax error")));
        QCOMPARE(f.form.List1->item(0)->text(), QStringLiteral("Dischi 2"));
        QCOMPARE(Valori(QStringLiteral("select nome from collezioni")), QStringLiteral("Vinili d'epoca"));

        script.Digita(QString());
        f.form.mnuRinominaCollezione->trigger();
        VERIFICA_SCRIPT(script);
        QCOMPARE(f.form.List1->item(0)->text(), QStringLiteral("Dischi 2"));
    }

    // With no selection Delete does nothing and asks nothing, and the popups still open; with one, it asks
    // and then clears the lists, the grid and the current ids.
    void deleteAsksAndClearsEverything() {
        ArchivioTemporaneo archivio;
        const qint32 dischi = CreaCollezione(QStringLiteral("Dischi"), QString());
        CreaCollezione(QStringLiteral("Film"), QString());
        AggiungiCampo(dischi, {{"nome", "Titolo"}});
        Finestra f;
        InterazioneScriptata script;
        QTest::keyClick(f.form.List1, Qt::Key_Delete);
        f.form.mnuDelCollection->trigger();
        QTest::keyClick(f.form.List2, Qt::Key_Delete);
        QCOMPARE(f.form.List1->count(), 2);
        RilasciaDestro(f.form.List1);
        QTRY_VERIFY(f.form.mnuCollezioni->isVisible());
        f.form.mnuCollezioni->hide();
        RilasciaDestro(f.form.List2);
        QTRY_VERIFY(f.form.mnuCampi->isVisible());
        f.form.mnuCampi->hide();
        QVERIFY(script.Richieste().isEmpty());

        Clicca(f.form.List1, 0);
        Clicca(f.form.List2, 0);
        script.Rispondi(Risposta::No);
        f.form.mnuDelCollection->trigger();
        QCOMPARE(Descrivi(script.Richieste().last().messaggio),
                 Descrivi({"Sicuro di voler cancellare definitivamente la collezione selezionata?",
                           "Attenzione!", Pulsanti::SiNoAnnulla, Icona::Domanda, 2}));
        QCOMPARE(f.form.List1->count(), 2);

        script.Rispondi(Risposta::Si);
        QTest::keyClick(f.form.List1, Qt::Key_Delete);
        VERIFICA_SCRIPT(script);
        QCOMPARE(QList<int>({int(f.form.List1->count()), int(f.form.List2->count()),
                             f.form.Lv1->topLevelItemCount(), f.form.IdCollezioneCorrente(),
                             f.form.IdCampoCorrente()}),
                 QList<int>({1, 0, 0, -1, -1}));
        QVERIFY(f.form.List1->selectedItems().isEmpty());
        // Only the collection row goes; its fields stay behind.
        QCOMPARE(Valori(QStringLiteral("select count(*) from collezioni")) + "|" +
                     Valori(QStringLiteral("select count(*) from campi")),
                 QStringLiteral("1|1"));
    }

    // "Visualizza in Anteprima" opens the layout designer of the current collection, or says there is none.
    void layoutDesignerOfTheCurrentCollection() {
        ArchivioTemporaneo archivio;
        const qint32 id = CreaCollezione(QStringLiteral("Dischi"), QString());
        Finestra f;
        InterazioneScriptata script;
        script.Rispondi(Risposta::Ok);
        f.form.mnuAnteprima->trigger();
        QCOMPARE(Descrivi(script.Richieste().at(0).messaggio),
                 Descrivi({"Selezionare una Collezione dall'apposita Lista", "Orvix"}));
        f.form.List1->setCurrentRow(0);
        script.Modale([id](QDialog& finestra) {
            QCOMPARE(finestra.findChild<frmAnteprima*>()->IdCollezione, id);
            finestra.close();
        });
        f.form.mnuAnteprima->trigger();
        VERIFICA_SCRIPT(script);
    }
};

QTEST_MAIN(TestCollezioni)
#include "tst_collezioni.moc"
