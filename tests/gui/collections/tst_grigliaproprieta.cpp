#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "interazionescriptata.h"
#include "letture.h"

#include "form1.h"
#include "grigliaproprieta.h"
#include "listecontrolli.h"
#include "routinesql.h"

#include <QAction>
#include <QLineEdit>
#include <QtTest>

namespace {

// A collection of two fields in the collections window, the first field selected; prompts are scripted.
struct Finestra {
    Finestra() {
        const qint32 libri = CreaCollezione("Libri", QString());
        AggiungiCampo(libri, {{"nome", "Titolo"}, {"tooltip", ""}});
        AggiungiCampo(libri, {{"nome", "Autore"}, {"tipo", "combo"}, {"height", QVariant()}});
        CaricaCollezioniInLista(*form.List1);
        form.show();
        form.List1->setCurrentRow(0);
        form.List2->setCurrentRow(0);
    }
    QTreeWidgetItem* Riga(const QString& proprieta) const {
        return griglia->findItems(proprieta, Qt::MatchExactly, 1).constFirst();
    }
    // The value shown and the one stored (NULL as "-") for the current field, as "shown|stored".
    QString Valore(const QString& proprieta) const {
        return Riga(proprieta)->text(0) + "|" +
               Valori(QStringLiteral("select \"%1\" from campi where id=%2")
                          .arg(proprieta)
                          .arg(form.IdCampoCorrente()));
    }
    // Clicks the row's value; answers the editor open in the grid, if any.
    QLineEdit* Clicca(const QString& proprieta) const {
        QTest::mouseClick(griglia->viewport(), Qt::LeftButton, {},
                          griglia->visualItemRect(Riga(proprieta)).topLeft() + QPoint(20, 5));
        return griglia->viewport()->findChild<QLineEdit*>();
    }

    ArchivioTemporaneo archivio;
    Form1 form;
    GrigliaProprieta* griglia = form.Lv1;
    InterazioneScriptata script;
};

} // namespace

class TestGrigliaProprieta final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    // Only after "Consenti Modifica Proprietà" does a click open an editor, and Return writes to the field.
    void editsOnlyWhileAllowedAndWritesToTheCurrentField() {
        Finestra f;
        QVERIFY(!f.Clicca("etichetta"));
        f.form.mnuPermettiModifichePropCampi->trigger();
        QLineEdit* editor = f.Clicca("tooltip");
        QVERIFY(editor);
        QTest::keyClicks(editor, "Il titolo dell'opera");
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(f.Valore("tooltip"), QStringLiteral("Il titolo dell'opera|Il titolo dell'opera"));
        QTRY_VERIFY(!f.griglia->viewport()->findChild<QLineEdit*>());
    }

    // A number over an empty value fails the numeric test, which looks at the value before the edit.
    void numericTestLooksAtTheValueBeforeTheEdit() {
        Finestra f;
        f.form.List2->setCurrentRow(1);
        f.script.Rispondi(Risposta::Ok);
        f.griglia->FineModifica(f.Riga("height"), "100");
        VERIFICA_SCRIPT(f.script);
        QCOMPARE(f.script.TestiMessaggi(), QStringList{"Proprietà HEIGHT non valida!"});
        QCOMPARE(f.Valore("height"), QStringLiteral("|-"));
    }

    // Over a number the test passes; the store takes only whole pixels it can place, and on a refusal the
    // grid keeps the stored value and stays on its row.
    void theStoreKeepsSizesWhole() {
        Finestra f;
        f.script.Rispondi(Risposta::Ok).Rispondi(Risposta::Ok);
        for (const QString& rifiutato : {QStringLiteral("1,5"), QStringLiteral("32768")}) {
            f.griglia->FineModifica(f.Riga("width"), rifiutato);
            QCOMPARE(f.Valore("width"), QStringLiteral("120|120"));
            QCOMPARE(f.griglia->currentItem(), f.Riga("width"));
        }
        f.griglia->FineModifica(f.Riga("width"), "32767");
        VERIFICA_SCRIPT(f.script);
        QVERIFY(f.script.TestiMessaggi().at(1).contains("CHECK constraint failed"));
        QCOMPARE(f.Valore("width"), QStringLiteral("32767|32767"));
    }

    // The name is checked, ignoring case (accented letters too), against the list as shown, which still
    // holds the old name after a rename. A type change asks first: Yes stores it trimmed and lowered.
    void nameAndTypeAreCheckedBeforeStoring() {
        Finestra f;
        f.form.List2->item(1)->setText("Città");
        f.script.Rispondi(Risposta::Ok).Rispondi(Risposta::Ok).Rispondi(Risposta::Si).Rispondi(Risposta::No);
        f.griglia->FineModifica(f.Riga("nome"), "CITTÀ");
        f.griglia->FineModifica(f.Riga("nome"), "Opera");
        f.griglia->FineModifica(f.Riga("nome"), "titolo");
        f.griglia->FineModifica(f.Riga("tipo"), "  Combo ");
        f.griglia->FineModifica(f.Riga("tipo"), "MEMO");
        VERIFICA_SCRIPT(f.script);
        QCOMPARE(f.Valore("nome") + " " + f.Valore("tipo"), QStringLiteral("Opera|Opera combo|combo"));
    }
};

QTEST_MAIN(TestGrigliaProprieta)
#include "tst_grigliaproprieta.moc"
