#include "archiviotemporaneo.h"
#include "interazionescriptata.h"

#include "frmproprietacontrollo.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QtTest>
#include <stdexcept>

namespace {

// Every row as "Property=value", in the order shown.
QStringList Righe(const frmProprietaControllo& dialogo) {
    QStringList righe;
    for (int i = 0; i < dialogo.LV1->topLevelItemCount(); ++i)
        righe << dialogo.LV1->topLevelItem(i)->text(1) + "=" + dialogo.LV1->topLevelItem(i)->text(0);
    return righe;
}

QTreeWidgetItem* Riga(const frmProprietaControllo& dialogo, const QString& proprieta) {
    return dialogo.LV1->findItems(proprieta, Qt::MatchExactly, 1).value(0);
}

QString Valore(const frmProprietaControllo& dialogo, const QString& proprieta) {
    return Riga(dialogo, proprieta)->text(0);
}

void Clicca(const frmProprietaControllo& dialogo, const QString& proprieta) {
    QTest::mouseClick(dialogo.LV1->viewport(), Qt::LeftButton, {},
                      dialogo.LV1->visualItemRect(Riga(dialogo, proprieta)).topLeft() + QPoint(20, 5));
}

// Presses CONFERMA, to be answered by so many message boxes, each with Ok.
void Conferma(frmProprietaControllo& dialogo, InterazioneScriptata& script, int messaggi) {
    for (int i = 0; i < messaggi; ++i)
        script.Rispondi(Risposta::Ok);
    dialogo.cmdSCEGLI->click();
}

const QString nomeGiaAssegnato =
    "Attenzione, hai specificato un valore come proprietà Nome già assegnato ad un altro controllo!";

} // namespace

class TestProprietaControllo final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    void eachTypeOffersItsRows_data() {
        QTest::addColumn<QString>("tipo");
        QTest::addColumn<QStringList>("proprie");
        const QStringList elementi{"Etichetta=", "Special=Elemento1|Elemento2|Elemento3"};
        QTest::newRow("textbox") << "textbox"
                                 << QStringList{"Formula=", "Default=", "required=False", "Etichetta="};
        QTest::newRow("combo") << "combo" << elementi;
        QTest::newRow("checkbox") << "checkbox" << QStringList();
        QTest::newRow("slider") << "slider" << QStringList{"Etichetta=", "Special=1|10"};
        QTest::newRow("memo") << "memo" << QStringList{"Etichetta="};
        QTest::newRow("list") << "list" << elementi;
        QTest::newRow("image") << "image" << QStringList{"Etichetta=", "Special=TRUE"};
    }

    void eachTypeOffersItsRows() {
        QFETCH(QString, tipo);
        QFETCH(QStringList, proprie);
        const QStringList comuni{"Nome=Controllo1", "Tooltip=",  "Tabindex=0", "Left=20",
                                 "Top=70",          "Height=20", "Width=200"};
        QCOMPARE(Righe(frmProprietaControllo(tipo, {})), comuni + proprie);
    }

    void defaultsCountTheListedFieldsIn16Bits() {
        frmProprietaControllo tre("memo", {"Titolo", "Autore", "Anno"});
        QCOMPARE(Valore(tre, "Nome") + "|" + Valore(tre, "Top"), QString("Controllo4|130"));
        const QStringList ultimi(1634, "x");
        QCOMPARE(Valore(frmProprietaControllo("memo", ultimi), "Top"), QString("32750"));
        QVERIFY_THROWS_EXCEPTION(std::overflow_error,
                                 frmProprietaControllo("memo", ultimi + QStringList{"y"}));
        QVERIFY_THROWS_EXCEPTION(std::overflow_error, frmProprietaControllo("memo", QStringList(32768, "x")));
        // An empty type builds no rows, so nothing is counted.
        QCOMPARE(frmProprietaControllo("", QStringList(32768, "x")).LV1->topLevelItemCount(), 0);
    }

    void captionsTypingAndConfirmation() {
        frmProprietaControllo dialogo("textbox", {"Titolo", "AUTORE"});
        QCOMPARE((QStringList{dialogo.windowTitle(), dialogo.LV1->headerItem()->text(0),
                              dialogo.LV1->headerItem()->text(1), dialogo.cmdSCEGLI->text(),
                              dialogo.cmdANNULLA->text(), dialogo.Text1->toPlainText()}),
                 (QStringList{"Definisci le proprietà del Controllo...", "Valore", "Proprietà", "CONFERMA",
                              "Annulla",
                              "Seleziona una proprietà dalla Lista qui a fianco per visualizzare in questa "
                              "casella la relativa spiegazione\n"}));
        QVERIFY(dialogo.cmdSCEGLI->isDefault());
        dialogo.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialogo));
        Clicca(dialogo, "Nome");
        auto* editor = dialogo.LV1->viewport()->findChild<QLineEdit*>();
        QVERIFY(editor);
        editor->selectAll();
        QTest::keyClicks(editor, "Genere");
        QTest::keyClick(editor, Qt::Key_Return);
        // The view commits a Return on its next turn of the event loop; the new name fills the empty label.
        QTRY_COMPARE(Valore(dialogo, "Nome"), QString("Genere"));
        QCOMPARE(Valore(dialogo, "Etichetta"), QString("Genere:"));
        // A click also shows the row's description, its line breaks kept.
        Clicca(dialogo, "Formula");
        const QString formula = dialogo.Text1->toPlainText();
        QVERIFY2(formula.startsWith("Campo di testo nel quale") &&
                     formula.endsWith("il seguente valore:\nImponibile X 20 / 100"),
                 qPrintable(formula));
        // A label already written is never replaced.
        dialogo.FineModifica(Riga(dialogo, "Nome"), "Titolo");
        QCOMPARE(Valore(dialogo, "Nome") + "|" + Valore(dialogo, "Etichetta"), QString("Titolo|Genere:"));

        // Confirming refuses a bad number and only warns of a name already used, in any case.
        dialogo.FineModifica(Riga(dialogo, "Nome"), "autore");
        dialogo.FineModifica(Riga(dialogo, "Left"), "abc");
        InterazioneScriptata script;
        Conferma(dialogo, script, 2);
        VERIFICA_SCRIPT(script);
        const Messaggio& rifiuto = script.Richieste().at(1).messaggio;
        QVERIFY(rifiuto.titolo == "Orvix" && rifiuto.pulsanti == Pulsanti::Ok &&
                rifiuto.icona == Icona::Nessuna);
        QCOMPARE(dialogo.LV1->currentItem(), Riga(dialogo, "Left"));
        QVERIFY(dialogo.isVisible() && !dialogo.Confermato);

        dialogo.FineModifica(Riga(dialogo, "Left"), "15"); // the duplicate name, warned of once more, is kept
        Conferma(dialogo, script, 1);
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.TestiMessaggi(),
                 QStringList({nomeGiaAssegnato, "Proprietà LEFT non valida!", nomeGiaAssegnato}));
        QCOMPARE(dialogo.LV1->currentItem(), Riga(dialogo, "Nome"));
        QVERIFY(dialogo.Confermato && !dialogo.isVisible());
        QCOMPARE(dialogo.result(), int(QDialog::Accepted));
    }

    // Positions, sizes and tab order are whole pixels the store can hold: anything else is refused
    // here, before the store would refuse it and lose what was typed.
    void numericRowsTakeWholeNumbersFrom0To32767_data() {
        QTest::addColumn<QString>("proprieta");
        QTest::addColumn<QString>("valore");
        QTest::addColumn<bool>("accettato");
        const auto riga = [](const char* nome, const QString& proprieta, const QString& valore, bool si) {
            QTest::newRow(nome) << proprieta << valore << si;
        };
        riga("decimal comma", "Width", "1,5", false);
        riga("thousands", "Height", "1.000", false);
        riga("twenty digits", "Width", "99999999999999999999", false);
        riga("10240 digits", "Left", QString(10240, u'9'), false);
        riga("negative", "Top", "-1", false);
        riga("too large", "Tabindex", "32768", false);
        riga("empty", "Left", "", false);
        riga("zero", "Left", "0", true);
        riga("largest, blanks around", "Width", " 32767 ", true);
    }
    void numericRowsTakeWholeNumbersFrom0To32767() {
        QFETCH(QString, proprieta);
        QFETCH(QString, valore);
        QFETCH(bool, accettato);
        frmProprietaControllo dialogo("slider", {});
        dialogo.FineModifica(Riga(dialogo, proprieta), valore);
        dialogo.show();
        InterazioneScriptata script;
        Conferma(dialogo, script, accettato ? 0 : 1);
        VERIFICA_SCRIPT(script);
        QCOMPARE(dialogo.Confermato, accettato);
        QCOMPARE(dialogo.isVisible(), !accettato);
        QCOMPARE(Valore(dialogo, proprieta), valore);
        QCOMPARE(script.TestiMessaggi(),
                 accettato ? QStringList()
                           : QStringList{"Proprietà " + proprieta.toUpper() + " non valida!"});
    }
};

QTEST_MAIN(TestProprietaControllo)
#include "tst_proprietacontrollo.moc"
