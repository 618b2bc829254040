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

QStringList Proprieta(const frmProprietaControllo& dialogo) {
    QStringList nomi;
    for (int i = 0; i < dialogo.LV1->topLevelItemCount(); ++i)
        nomi << dialogo.LV1->topLevelItem(i)->text(1);
    return nomi;
}

QTreeWidgetItem* Riga(const frmProprietaControllo& dialogo, const QString& proprieta) {
    for (int i = 0; i < dialogo.LV1->topLevelItemCount(); ++i)
        if (dialogo.LV1->topLevelItem(i)->text(1) == proprieta)
            return dialogo.LV1->topLevelItem(i);
    return nullptr;
}

QString Valore(const frmProprietaControllo& dialogo, const QString& proprieta) {
    return Riga(dialogo, proprieta)->text(0);
}

QPoint CentroValore(const frmProprietaControllo& dialogo, const QTreeWidgetItem* riga) {
    return dialogo.LV1->visualItemRect(riga).topLeft() + QPoint(20, 5);
}

const QStringList comuni{"Nome", "Tooltip", "Tabindex", "Left", "Top", "Height", "Width"};

} // namespace

class TestProprietaControllo final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    void eachTypeOffersItsRows_data() {
        QTest::addColumn<QString>("tipo");
        QTest::addColumn<QStringList>("attese");
        QTest::addColumn<QString>("special");
        QTest::newRow("textbox") << "textbox"
                                 << comuni + QStringList{"Formula", "Default", "required", "Etichetta"}
                                 << QString();
        QTest::newRow("combo") << "combo" << comuni + QStringList{"Etichetta", "Special"}
                               << "Elemento1|Elemento2|Elemento3";
        QTest::newRow("checkbox") << "checkbox" << comuni << QString();
        QTest::newRow("slider") << "slider" << comuni + QStringList{"Etichetta", "Special"} << "1|10";
        QTest::newRow("memo") << "memo" << comuni + QStringList{"Etichetta"} << QString();
        QTest::newRow("list") << "list" << comuni + QStringList{"Etichetta", "Special"}
                              << "Elemento1|Elemento2|Elemento3";
        QTest::newRow("image") << "image" << comuni + QStringList{"Etichetta", "Special"} << "TRUE";
        QTest::newRow("nessuno") << "" << QStringList() << QString();
    }

    void eachTypeOffersItsRows() {
        QFETCH(QString, tipo);
        QFETCH(QStringList, attese);
        QFETCH(QString, special);
        frmProprietaControllo dialogo(tipo, {});
        QCOMPARE(Proprieta(dialogo), attese);
        if (tipo.isEmpty())
            return;
        QCOMPARE(Valore(dialogo, "Nome"), QStringLiteral("Controllo1"));
        QCOMPARE(Valore(dialogo, "Tooltip"), QString());
        QCOMPARE(Valore(dialogo, "Tabindex"), QStringLiteral("0"));
        QCOMPARE(Valore(dialogo, "Left"), QStringLiteral("20"));
        QCOMPARE(Valore(dialogo, "Top"), QStringLiteral("70"));
        QCOMPARE(Valore(dialogo, "Height"), QStringLiteral("20"));
        QCOMPARE(Valore(dialogo, "Width"), QStringLiteral("200"));
        if (!special.isEmpty())
            QCOMPARE(Valore(dialogo, "Special"), special);
        if (tipo == "textbox")
            QCOMPARE(Valore(dialogo, "required"), QStringLiteral("False"));
    }

    void windowCaptionsAndDescriptions() {
        frmProprietaControllo dialogo("textbox", {});
        QCOMPARE(dialogo.objectName(), QStringLiteral("frmProprietaControllo"));
        QCOMPARE(dialogo.windowTitle(), QStringLiteral("Definisci le proprietà del Controllo..."));
        QCOMPARE(dialogo.LV1->headerItem()->text(0), QStringLiteral("Valore"));
        QCOMPARE(dialogo.LV1->headerItem()->text(1), QStringLiteral("Proprietà"));
        QCOMPARE(dialogo.cmdSCEGLI->text(), QStringLiteral("CONFERMA"));
        QCOMPARE(dialogo.cmdANNULLA->text(), QStringLiteral("Annulla"));
        QCOMPARE(dialogo.Text1->toPlainText(),
                 QStringLiteral(
                     "Seleziona una proprietà dalla Lista qui a fianco per visualizzare in questa casella "
                     "la relativa spiegazione\n"));
        const QString formula = Riga(dialogo, "Formula")->data(0, frmProprietaControllo::RuoloTag).toString();
        QCOMPARE(formula.split("\r\n").size(), 3);
        QVERIFY(formula.endsWith("\r\nImponibile X 20 / 100"));

        dialogo.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialogo));
        QTreeWidgetItem* larghezza = Riga(dialogo, "Width");
        QTest::mouseClick(dialogo.LV1->viewport(), Qt::LeftButton, {}, CentroValore(dialogo, larghezza));
        QCOMPARE(dialogo.Text1->toPlainText(), QStringLiteral("Larghezza (in pixel) del controllo"));
        QVERIFY(dialogo.LV1->viewport()->findChild<QLineEdit*>());
    }

    void defaultsCountTheListedFieldsIn16Bits() {
        frmProprietaControllo tre("memo", {"Titolo", "Autore", "Anno"});
        QCOMPARE(Valore(tre, "Nome"), QStringLiteral("Controllo4"));
        QCOMPARE(Valore(tre, "Top"), QStringLiteral("130"));

        const QStringList ultimi(1634, "x");
        frmProprietaControllo ultimo("memo", ultimi);
        QCOMPARE(Valore(ultimo, "Top"), QStringLiteral("32750"));
        QVERIFY_THROWS_EXCEPTION(std::overflow_error,
                                 frmProprietaControllo("memo", ultimi + QStringList{"y"}));
        QVERIFY_THROWS_EXCEPTION(std::overflow_error, frmProprietaControllo("memo", QStringList(32768, "x")));
        // An empty type builds no rows, so nothing is counted.
        frmProprietaControllo vuoto("", QStringList(32768, "x"));
        QCOMPARE(vuoto.LV1->topLevelItemCount(), 0);
    }

    void aNewNameFillsOnlyAnEmptyLabel() {
        frmProprietaControllo dialogo("combo", {});
        dialogo.FineModifica(Riga(dialogo, "Nome"), "Autore");
        QCOMPARE(Valore(dialogo, "Etichetta"), QStringLiteral("Autore:"));
        dialogo.FineModifica(Riga(dialogo, "Nome"), "Titolo");
        QCOMPARE(Valore(dialogo, "Nome"), QStringLiteral("Titolo"));
        QCOMPARE(Valore(dialogo, "Etichetta"), QStringLiteral("Autore:"));
        // Other rows take any text, unchecked.
        dialogo.FineModifica(Riga(dialogo, "Width"), "abc");
        QCOMPARE(Valore(dialogo, "Width"), QStringLiteral("abc"));
    }

    void typingInTheEditorGoesThroughTheEndOfEdit() {
        frmProprietaControllo dialogo("slider", {});
        dialogo.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialogo));
        QTreeWidgetItem* nome = Riga(dialogo, "Nome");
        QTest::mouseClick(dialogo.LV1->viewport(), Qt::LeftButton, {}, CentroValore(dialogo, nome));
        auto* editor = dialogo.LV1->viewport()->findChild<QLineEdit*>();
        QVERIFY(editor);
        editor->selectAll();
        QTest::keyClicks(editor, "Genere");
        QTest::keyClick(editor, Qt::Key_Return);
        // The view commits a Return on its next turn of the event loop.
        QTRY_COMPARE(nome->text(0), QStringLiteral("Genere"));
        QCOMPARE(Valore(dialogo, "Etichetta"), QStringLiteral("Genere:"));

        // Escape leaves the value as it was.
        QTest::mouseClick(dialogo.LV1->viewport(), Qt::LeftButton, {}, CentroValore(dialogo, nome));
        editor = dialogo.LV1->viewport()->findChild<QLineEdit*>();
        QVERIFY(editor);
        QTest::keyClicks(editor, "xyz");
        QTest::keyClick(editor, Qt::Key_Escape);
        QTRY_VERIFY(!dialogo.LV1->viewport()->findChild<QLineEdit*>());
        QCOMPARE(nome->text(0), QStringLiteral("Genere"));
    }

    void confirmationRefusesTheFirstNonNumericRow() {
        frmProprietaControllo dialogo("textbox", {});
        dialogo.FineModifica(Riga(dialogo, "Width"), "abc");
        dialogo.FineModifica(Riga(dialogo, "Left"), "");
        InterazioneScriptata script;
        script.Rispondi(Risposta::Ok);
        dialogo.show();
        dialogo.cmdSCEGLI->click();
        VERIFICA_SCRIPT(script);
        const Messaggio& messaggio = script.Richieste().at(0).messaggio;
        QCOMPARE(messaggio.testo, QStringLiteral("Proprietà LEFT non valida!"));
        QCOMPARE(messaggio.titolo, QStringLiteral("Orvix"));
        QCOMPARE(messaggio.pulsanti, Pulsanti::Ok);
        QCOMPARE(messaggio.icona, Icona::Nessuna);
        QCOMPARE(dialogo.LV1->currentItem(), Riga(dialogo, "Left"));
        QVERIFY(dialogo.isVisible());
        QVERIFY(!dialogo.Confermato);

        dialogo.FineModifica(Riga(dialogo, "Left"), "15");
        script.Rispondi(Risposta::Ok);
        dialogo.cmdSCEGLI->click();
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.TestiMessaggi().last(), QStringLiteral("Proprietà WIDTH non valida!"));
        QCOMPARE(dialogo.LV1->currentItem(), Riga(dialogo, "Width"));

        // Numbers in the user's format pass; the store decides later whether they fit its columns.
        dialogo.FineModifica(Riga(dialogo, "Width"), " 12,5 ");
        dialogo.cmdSCEGLI->click();
        VERIFICA_SCRIPT(script);
        QVERIFY(dialogo.Confermato);
        QVERIFY(!dialogo.isVisible());
        QCOMPARE(dialogo.result(), int(QDialog::Accepted));
    }

    void aDuplicateNameIsOnlyWarnedAbout() {
        frmProprietaControllo dialogo("memo", {"Titolo", "AUTORE"});
        dialogo.FineModifica(Riga(dialogo, "Nome"), "autore");
        dialogo.FineModifica(Riga(dialogo, "Top"), "x");
        InterazioneScriptata script;
        script.Rispondi(Risposta::Ok).Rispondi(Risposta::Ok);
        dialogo.cmdSCEGLI->click();
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.TestiMessaggi(),
                 QStringList(
                     {"Attenzione, hai specificato un valore come proprietà Nome già assegnato ad un altro "
                      "controllo!",
                      "Proprietà TOP non valida!"}));
        QVERIFY(!dialogo.Confermato);

        dialogo.FineModifica(Riga(dialogo, "Top"), "90");
        script.Rispondi(Risposta::Ok);
        dialogo.cmdSCEGLI->click();
        VERIFICA_SCRIPT(script);
        QCOMPARE(dialogo.LV1->currentItem(), Riga(dialogo, "Nome"));
        QVERIFY(dialogo.Confermato);
    }

    void cancellingClearsTheResult() {
        frmProprietaControllo dialogo("image", {});
        dialogo.Confermato = true;
        dialogo.show();
        dialogo.cmdANNULLA->click();
        QVERIFY(!dialogo.Confermato);
        QVERIFY(!dialogo.isVisible());

        // The window's own close button and Escape cancel as well, also inside a real modal loop.
        QTimer::singleShot(0, &dialogo, [&] { QTest::keyClick(&dialogo, Qt::Key_Escape); });
        dialogo.Confermato = true;
        QCOMPARE(dialogo.exec(), int(QDialog::Rejected));
        QVERIFY(!dialogo.Confermato);
        QTimer::singleShot(0, &dialogo, [&] { dialogo.cmdSCEGLI->click(); });
        QCOMPARE(dialogo.exec(), int(QDialog::Accepted));
        QVERIFY(dialogo.Confermato);
    }
};

QTEST_MAIN(TestProprietaControllo)
#include "tst_proprietacontrollo.moc"
