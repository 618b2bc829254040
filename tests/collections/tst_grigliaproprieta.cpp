#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "interazionescriptata.h"
#include "prune_pc.h"

#include "archivio.h"
#include "form1.h"
#include "grigliaproprieta.h"
#include "listecontrolli.h"
#include "routinesql.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QtTest>

namespace {

// A collection of two fields in the collections window, the first field selected; prompts are scripted.
struct Finestra {
    Finestra() {
        idCollezione = CreaCollezione("Libri", QString());
        AggiungiCampo(idCollezione,
                      {{"nome", "Titolo"}, {"etichetta", "Titolo:"}, {"tooltip", ""}, {"default", ""}});
        AggiungiCampo(idCollezione, {{"nome", "Autore"}, {"tipo", "combo"}, {"height", QVariant()}});
        CaricaCollezioniInLista(*form.List1);
        form.show();
        form.List1->setCurrentRow(0);
        form.List2->setCurrentRow(0);
    }
    QTreeWidgetItem* Riga(const QString& proprieta) const {
        return griglia->findItems(proprieta, Qt::MatchExactly, 1).constFirst();
    }
    // The value shown and the one stored for the current field, as "shown|stored".
    QString Valore(const QString& proprieta) const {
        const QString sql = QStringLiteral("select (select \"%1\" from campi where id=%2)").arg(proprieta);
        return Riga(proprieta)->text(0) + "|" +
               Database().ApriRecordset(sql.arg(form.IdCampoCorrente())).Campo(0).toString();
    }
    // Clicks the row's value once, or twice apart (the view's own "click the selected item" trigger).
    QLineEdit* Clicca(const QString& proprieta, int volte = 1) const {
        for (int i = 0; i < volte; ++i) {
            QTest::mouseClick(griglia->viewport(), Qt::LeftButton, {},
                              griglia->visualItemRect(Riga(proprieta)).topLeft() + QPoint(20, 5));
            if (volte > 1)
                QTest::qWait(QApplication::doubleClickInterval() + 100);
        }
        return Editor();
    }
    QLineEdit* Editor() const { return griglia->viewport()->findChild<QLineEdit*>(); }

    ArchivioTemporaneo archivio;
    qint32 idCollezione;
    Form1 form;
    GrigliaProprieta* griglia = form.Lv1;
    InterazioneScriptata script;
};

} // namespace

class TestGrigliaProprieta final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    void showsTheStoredColumnsInTableOrder() {
        Finestra f;
        QStringList righe;
        for (int i = 0; i < f.griglia->topLevelItemCount(); ++i)
            righe << f.griglia->topLevelItem(i)->text(1) + "=" + f.griglia->topLevelItem(i)->text(0);
        QCOMPARE(righe, QStringList({"nome=Titolo", "etichetta=Titolo:", "tipo=textbox", "left=10", "top=30",
                                     "width=120", "height=21", "tabindex=0",
                                     "tooltip=", "formula=", "default=", "required=False", "special="}));
        // A field asked for within another collection shows nothing.
        f.griglia->Riempi(f.form.IdCampoCorrente(), f.idCollezione + 1);
        QCOMPARE(f.griglia->topLevelItemCount(), 0);
    }

    void editsOnlyWhileAllowedAndWritesToTheCurrentField() {
        Finestra f;
        QVERIFY(!f.Clicca("etichetta", 2));
        QTest::keyClick(f.griglia, Qt::Key_F2);
        QVERIFY(!f.Editor());

        f.form.mnuPermettiModifichePropCampi->trigger();
        QLineEdit* editor = f.Clicca("tooltip");
        QVERIFY(editor);
        QTest::keyClicks(editor, "Il titolo dell'opera");
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(f.Valore("tooltip"), QStringLiteral("Il titolo dell'opera|Il titolo dell'opera"));
        QTRY_VERIFY(!f.Editor());
        // Leaving an editor untouched is no edit: the name is not checked against itself.
        QVERIFY(f.Clicca("nome"));
        f.Clicca("tipo");
        QTRY_VERIFY(f.Editor() && f.Editor()->text() == QStringLiteral("textbox"));
        QTest::keyClick(f.Editor(), Qt::Key_Escape);
        QTRY_VERIFY(!f.Editor());
        VERIFICA_SCRIPT(f.script);
        f.form.mnuPermettiModifichePropCampi->trigger();
        QVERIFY(!f.Clicca("etichetta", 2));

        // With no stored row for the current field the grid still takes the value.
        f.form.ImpostaIdCampoCorrente(9999);
        f.griglia->FineModifica(f.Riga("default"), "nessuno");
        QCOMPARE(f.Valore("default"), QStringLiteral("nessuno|"));
    }

    // A number over an empty value fails the numeric test, which looks at the value before the edit.
    void numericTestLooksAtTheValueBeforeTheEdit() {
        Finestra f;
        f.form.List2->setCurrentRow(1);
        f.script.Rispondi(Risposta::Ok);
        f.griglia->FineModifica(f.Riga("height"), "100");
        VERIFICA_SCRIPT(f.script);
        QCOMPARE(Descrivi(f.script.Richieste().at(0).messaggio),
                 Descrivi({"Proprietà HEIGHT non valida!", "Orvix"}));
        QCOMPARE(f.Valore("height"), QStringLiteral("|"));
        QCOMPARE(f.griglia->currentItem(), f.Riga("height"));
    }

    // Over a number the test passes; the store takes only whole pixels it can place, and on a refusal the
    // grid keeps the stored value and stays on its row.
    void theStoreKeepsSizesWhole_data() {
        QTest::addColumn<QString>("valore");
        QTest::addColumn<bool>("accettato");
        QTest::newRow("text") << "abc" << false;
        QTest::newRow("twenty digits") << "99999999999999999999" << false;
        QTest::newRow("10240 digits") << QString(10240, u'9') << false;
        QTest::newRow("decimal comma") << "1,5" << false;
        QTest::newRow("too large") << "32768" << false;
        QTest::newRow("negative") << "-1" << false;
        QTest::newRow("largest") << "32767" << true;
    }
    void theStoreKeepsSizesWhole() {
        QFETCH(QString, valore);
        QFETCH(bool, accettato);
        Finestra f;
        if (!accettato)
            f.script.Rispondi(Risposta::Ok);
        f.griglia->FineModifica(f.Riga("width"), valore);
        VERIFICA_SCRIPT(f.script);
        const QString atteso = accettato ? valore : QStringLiteral("120");
        QCOMPARE(f.Valore("width"), atteso + "|" + atteso);
        QCOMPARE(Database()
                     .ApriRecordset("select count(*) from campi where typeof(width)<>'integer'")
                     .Campo(0)
                     .toInt(),
                 0);
        if (accettato)
            return;
        QCOMPARE(f.griglia->currentItem(), f.Riga("width"));
        const Messaggio& rifiuto = f.script.Richieste().at(0).messaggio;
        QVERIFY2(
            rifiuto.testo.startsWith("Il valore «") &&
                rifiuto.testo.contains("» non può essere salvato nella proprietà WIDTH.\n\n") &&
                rifiuto.testo.contains("CHECK constraint failed: width deve essere un numero intero da 0 a "
                                       "32767") &&
                rifiuto.titolo == "Orvix" && rifiuto.icona == Icona::Esclamativa,
            qPrintable(Descrivi(rifiuto)));
    }

    void nameIsCheckedAgainstTheListAsShown() {
        Finestra f;
        f.script.Rispondi(Risposta::Ok).Rispondi(Risposta::Ok);
        f.griglia->FineModifica(f.Riga("nome"), "AUTORE");
        f.griglia->FineModifica(f.Riga("nome"), "titolo");
        f.griglia->FineModifica(f.Riga("nome"), "Opera");
        VERIFICA_SCRIPT(f.script);
        QCOMPARE(f.script.TestiMessaggi(),
                 QStringList(2, "Attenzione, hai specificato un valore come proprietà Nome già assegnato ad "
                                "un altro controllo!"));
        QCOMPARE(f.Valore("nome"), QStringLiteral("Opera|Opera"));

        // The list still shows the old name: it is refused, and the new one passes again.
        f.script.Rispondi(Risposta::Ok);
        f.griglia->FineModifica(f.Riga("nome"), "Titolo");
        f.griglia->FineModifica(f.Riga("nome"), "opera");
        VERIFICA_SCRIPT(f.script);
        QCOMPARE(f.Valore("nome"), QStringLiteral("opera|opera"));

        // Case is ignored for every letter, accented ones too.
        f.form.List2->item(1)->setText("Città");
        f.script.Rispondi(Risposta::Ok);
        f.griglia->FineModifica(f.Riga("nome"), "CITTÀ");
        VERIFICA_SCRIPT(f.script);
        QCOMPARE(f.Valore("nome"), QStringLiteral("opera|opera"));
    }

    void typeIsNormalisedAndConfirmed() {
        Finestra f;
        f.script.Rispondi(Risposta::Si);
        f.griglia->FineModifica(f.Riga("tipo"), "  Combo ");
        VERIFICA_SCRIPT(f.script);
        QCOMPARE(Descrivi(f.script.Richieste().at(0).messaggio),
                 Descrivi({"Modificare il tipo di campo può rendere la propria Collezione inservibile.\r"
                           "Procedere ugualmente alla modifica?",
                           "Orvix", Pulsanti::SiNo, Icona::Domanda, 2}));
        QCOMPARE(f.Valore("tipo"), QStringLiteral("combo|combo"));

        f.script.Rispondi(Risposta::No).Rispondi(Risposta::Ok);
        f.griglia->FineModifica(f.Riga("tipo"), "MEMO");
        f.griglia->FineModifica(f.Riga("tipo"), "slider2");
        VERIFICA_SCRIPT(f.script);
        QCOMPARE(Descrivi(f.script.Richieste().last().messaggio),
                 Descrivi({"Tipo di controllo non Valido!", "Orvix"}));
        QCOMPARE(f.Valore("tipo"), QStringLiteral("combo|combo"));
    }

    void rightButtonOpensTheFieldsMenu() {
        Finestra f;
        QTest::mouseRelease(f.griglia->viewport(), Qt::RightButton, {}, QPoint(30, 10));
        QTRY_VERIFY(f.form.mnuCampi->isVisible());
        f.form.mnuCampi->hide();
        // An empty grid opens no menu.
        f.griglia->Svuota();
        QTest::mouseRelease(f.griglia->viewport(), Qt::RightButton, {}, QPoint(30, 10));
        QTest::qWait(50);
        QVERIFY(!f.form.mnuCampi->isVisible());
    }
};

QTEST_MAIN(TestGrigliaProprieta)
#include "tst_grigliaproprieta.moc"
