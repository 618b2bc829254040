#include "archiviotemporaneo.h"
#include "interazionescriptata.h"

#include "archivio.h"
#include "form1.h"
#include "grigliaproprieta.h"
#include "listecontrolli.h"
#include "routinesql.h"

#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QtTest>

namespace {

QVariant Scalare(const QString& sql) {
    return Database().ApriRecordset(sql).Campo(0);
}

// A collection with two fields, shown in the collections window with the first field selected.
struct Finestra {
    Finestra() {
        idCollezione = CreaCollezione(QStringLiteral("Libri"), QString());
        Database().Esegui(
            QStringLiteral("insert into campi (id_collezione,nome,etichetta,tipo,\"left\",top,width,"
                           "height,tabindex,tooltip,\"default\",required) values (%1,'Titolo','Titolo:',"
                           "'textbox',20,70,200,20,0,'','','False')")
                .arg(idCollezione));
        Database().Esegui(
            QStringLiteral("insert into campi (id_collezione,nome,tipo) values (%1,'Autore','combo')")
                .arg(idCollezione));
        CaricaCollezioniInLista(*form.List1);
        form.show();
        form.List1->setCurrentRow(0);
        form.List2->setCurrentRow(0);
        griglia = form.Lv1;
    }
    QTreeWidgetItem* Riga(const QString& proprieta) const {
        return griglia->findItems(proprieta, Qt::MatchExactly, 1).constFirst();
    }
    QVariant Memorizzato(const QString& colonna) const {
        return Scalare(
            QStringLiteral("select \"%1\" from campi where id=%2").arg(colonna).arg(form.IdCampoCorrente()));
    }
    void Clicca(const QString& proprieta) const {
        QTest::mouseClick(griglia->viewport(), Qt::LeftButton, {},
                          griglia->visualItemRect(Riga(proprieta)).topLeft() + QPoint(20, 5));
    }
    QLineEdit* Editor() const { return griglia->viewport()->findChild<QLineEdit*>(); }

    qint32 idCollezione;
    Form1 form;
    GrigliaProprieta* griglia;
};

const QString nomeGiaAssegnato =
    "Attenzione, hai specificato un valore come proprietà Nome già assegnato ad un altro controllo!";

} // namespace

class TestGrigliaProprieta final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    void showsTheStoredColumnsInTableOrder() {
        ArchivioTemporaneo archivio;
        Finestra f;
        QCOMPARE(f.griglia->objectName(), QStringLiteral("Lv1"));
        QCOMPARE(f.griglia->headerItem()->text(0), QStringLiteral("Valore"));
        QCOMPARE(f.griglia->headerItem()->text(1), QStringLiteral("Proprietà"));
        QStringList proprieta, valori;
        for (int i = 0; i < f.griglia->topLevelItemCount(); ++i) {
            proprieta << f.griglia->topLevelItem(i)->text(1);
            valori << f.griglia->topLevelItem(i)->text(0);
        }
        QCOMPARE(proprieta,
                 QStringList({"nome", "etichetta", "tipo", "left", "top", "width", "height", "tabindex",
                              "tooltip", "formula", "default", "required", "special"}));
        QCOMPARE(valori, QStringList({"Titolo", "Titolo:", "textbox", "20", "70", "200", "20", "0", "", "",
                                      "", "False", ""}));

        // A field asked for within another collection shows nothing.
        f.griglia->Riempi(f.form.IdCampoCorrente(), f.idCollezione + 1);
        QCOMPARE(f.griglia->topLevelItemCount(), 0);
    }

    void clicksEditOnlyWhileAllowed() {
        ArchivioTemporaneo archivio;
        Finestra f;
        InterazioneScriptata script;
        f.Clicca("etichetta");
        QTest::qWait(QApplication::doubleClickInterval() + 100);
        f.Clicca("etichetta");
        QTest::qWait(QApplication::doubleClickInterval() + 100);
        QVERIFY(!f.Editor());
        QTest::keyClick(f.griglia, Qt::Key_F2);
        QVERIFY(!f.Editor());

        f.form.mnuPermettiModifichePropCampi->trigger();
        QVERIFY(f.griglia->ModificaConsentita());
        f.Clicca("nome");
        QVERIFY(f.Editor());
        // Leaving the editor untouched is no edit: the name is not checked against itself.
        f.Clicca("tipo");
        QTRY_VERIFY(f.Editor() && f.Editor()->text() == QStringLiteral("textbox"));
        QTest::keyClick(f.Editor(), Qt::Key_Escape);
        QTRY_VERIFY(!f.Editor());
        VERIFICA_SCRIPT(script);

        f.form.mnuPermettiModifichePropCampi->trigger();
        f.Clicca("etichetta");
        QTest::qWait(QApplication::doubleClickInterval() + 100);
        f.Clicca("etichetta");
        QTest::qWait(QApplication::doubleClickInterval() + 100);
        QVERIFY(!f.Editor());
    }

    void typedValueIsWrittenToTheCurrentField() {
        ArchivioTemporaneo archivio;
        Finestra f;
        f.form.mnuPermettiModifichePropCampi->trigger();
        f.Clicca("tooltip");
        QLineEdit* editor = f.Editor();
        QVERIFY(editor);
        QTest::keyClicks(editor, "Il titolo dell'opera");
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(f.Riga("tooltip")->text(0), QStringLiteral("Il titolo dell'opera"));
        QCOMPARE(f.Memorizzato("tooltip").toString(), QStringLiteral("Il titolo dell'opera"));

        f.griglia->FineModifica(f.Riga("left"), "35");
        QCOMPARE(f.Memorizzato("left"), QVariant(35LL));
        f.griglia->FineModifica(f.Riga("formula"), "Prezzo X 2");
        QCOMPARE(f.Memorizzato("formula").toString(), QStringLiteral("Prezzo X 2"));

        // With no stored row for the current field the grid still takes the value.
        f.form.ImpostaIdCampoCorrente(9999);
        f.griglia->FineModifica(f.Riga("default"), "nessuno");
        QCOMPARE(f.Riga("default")->text(0), QStringLiteral("nessuno"));
        QCOMPARE(Scalare("select count(*) from campi where \"default\"='nessuno'").toInt(), 0);
    }

    void numericTestLooksAtTheValueBeforeTheEdit() {
        ArchivioTemporaneo archivio;
        Finestra f;
        InterazioneScriptata script;
        // Text over a number passes the test; the store then refuses it and the grid keeps the stored value.
        script.Rispondi(Risposta::Ok);
        f.griglia->FineModifica(f.Riga("width"), "abc");
        VERIFICA_SCRIPT(script);
        const Messaggio& rifiuto = script.Richieste().at(0).messaggio;
        QVERIFY2(rifiuto.testo.contains("CHECK constraint failed: width deve essere un numero intero"),
                 qPrintable(rifiuto.testo));
        QVERIFY(rifiuto.testo.contains("WIDTH"));
        QCOMPARE(rifiuto.titolo, QStringLiteral("Orvix"));
        QCOMPARE(f.Riga("width")->text(0), QStringLiteral("200"));
        QCOMPARE(f.Memorizzato("width"), QVariant(200LL));
        QCOMPARE(f.griglia->currentItem(), f.Riga("width"));

        // A number over an empty value fails the test.
        f.form.List2->setCurrentRow(1);
        QCOMPARE(f.Riga("height")->text(0), QString());
        script.Rispondi(Risposta::Ok);
        f.griglia->FineModifica(f.Riga("height"), "100");
        VERIFICA_SCRIPT(script);
        const Messaggio& nonValida = script.Richieste().at(1).messaggio;
        QCOMPARE(nonValida.testo, QStringLiteral("Proprietà HEIGHT non valida!"));
        QCOMPARE(nonValida.pulsanti, Pulsanti::Ok);
        QCOMPARE(nonValida.icona, Icona::Nessuna);
        QCOMPARE(nonValida.titolo, QStringLiteral("Orvix"));
        QCOMPARE(f.Riga("height")->text(0), QString());
        QVERIFY(f.Memorizzato("height").isNull());
        QCOMPARE(f.griglia->currentItem(), f.Riga("height"));
    }

    void nameIsCheckedAgainstTheListAsShown() {
        ArchivioTemporaneo archivio;
        Finestra f;
        InterazioneScriptata script;
        script.Rispondi(Risposta::Ok).Rispondi(Risposta::Ok).Rispondi(Risposta::Ok);
        f.griglia->FineModifica(f.Riga("nome"), "AUTORE");
        f.griglia->FineModifica(f.Riga("nome"), "Titolo");
        f.griglia->FineModifica(f.Riga("nome"), "titolo");
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.TestiMessaggi(), QStringList(3, nomeGiaAssegnato));
        QCOMPARE(f.Memorizzato("nome").toString(), QStringLiteral("Titolo"));

        f.griglia->FineModifica(f.Riga("nome"), "Opera");
        VERIFICA_SCRIPT(script);
        QCOMPARE(f.Memorizzato("nome").toString(), QStringLiteral("Opera"));
        QCOMPARE(f.Riga("nome")->text(0), QStringLiteral("Opera"));
        QCOMPARE(f.form.List2->item(0)->text(), QStringLiteral("Titolo"));

        // The list still shows the old name: it is refused, and the new one passes again.
        script.Rispondi(Risposta::Ok);
        f.griglia->FineModifica(f.Riga("nome"), "Titolo");
        f.griglia->FineModifica(f.Riga("nome"), "opera");
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.TestiMessaggi().size(), 4);
        QCOMPARE(f.Memorizzato("nome").toString(), QStringLiteral("opera"));
    }

    void typeIsNormalisedAndConfirmed() {
        ArchivioTemporaneo archivio;
        Finestra f;
        InterazioneScriptata script;
        script.Rispondi(Risposta::Si);
        f.griglia->FineModifica(f.Riga("tipo"), "  Combo ");
        VERIFICA_SCRIPT(script);
        const Messaggio& domanda = script.Richieste().at(0).messaggio;
        QCOMPARE(domanda.testo,
                 QStringLiteral("Modificare il tipo di campo può rendere la propria Collezione "
                                "inservibile.\rProcedere ugualmente alla modifica?"));
        QCOMPARE(domanda.pulsanti, Pulsanti::SiNo);
        QCOMPARE(domanda.icona, Icona::Domanda);
        QCOMPARE(domanda.predefinito, 2);
        QCOMPARE(domanda.titolo, QStringLiteral("Orvix"));
        QCOMPARE(f.Riga("tipo")->text(0), QStringLiteral("combo"));
        QCOMPARE(f.Memorizzato("tipo").toString(), QStringLiteral("combo"));

        script.Rispondi(Risposta::No).Rispondi(Risposta::Ok);
        f.griglia->FineModifica(f.Riga("tipo"), "MEMO");
        f.griglia->FineModifica(f.Riga("tipo"), "slider2");
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.TestiMessaggi().last(), QStringLiteral("Tipo di controllo non Valido!"));
        QCOMPARE(script.Richieste().last().messaggio.pulsanti, Pulsanti::Ok);
        QCOMPARE(f.Riga("tipo")->text(0), QStringLiteral("combo"));
        QCOMPARE(f.Memorizzato("tipo").toString(), QStringLiteral("combo"));
        QCOMPARE(f.griglia->currentItem(), f.Riga("tipo"));
    }

    void rightButtonOpensTheFieldsMenu() {
        ArchivioTemporaneo archivio;
        Finestra f;
        QTest::mouseRelease(f.griglia->viewport(), Qt::RightButton, {}, QPoint(30, 10));
        QTRY_VERIFY(f.form.mnuCampi->isVisible());
        f.form.mnuCampi->hide();

        f.griglia->Svuota();
        QTest::mouseRelease(f.griglia->viewport(), Qt::RightButton, {}, QPoint(30, 10));
        QTest::qWait(50);
        QVERIFY(!f.form.mnuCampi->isVisible());
    }
};

QTEST_MAIN(TestGrigliaProprieta)
#include "tst_grigliaproprieta.moc"
