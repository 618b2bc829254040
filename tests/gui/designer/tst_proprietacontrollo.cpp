#include "archiviotemporaneo.h"
#include "interazionescriptata.h"

#include "archivio.h"
#include "erroredatabase.h"
#include "frmproprietacontrollo.h"
#include "numeri.h"

#include <QtTest>
#include <QtWidgets>
#include <stdexcept>

namespace {

QTreeWidgetItem* Riga(const frmProprietaControllo& dialogo, const QString& proprieta) {
    return dialogo.LV1->findItems(proprieta, Qt::MatchExactly, 1).value(0);
}

QString Valore(const frmProprietaControllo& dialogo, const QString& proprieta) {
    return Riga(dialogo, proprieta)->text(0);
}

// Presses CONFERMA, to be answered by so many message boxes, each with Ok.
void Conferma(frmProprietaControllo& dialogo, InterazioneScriptata& script, int messaggi) {
    for (int i = 0; i < messaggi; ++i)
        script.Rispondi(Risposta::Ok);
    dialogo.cmdSCEGLI->click();
}

} // namespace

class TestProprietaControllo final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    void defaultsCountTheListedFieldsIn16Bits() {
        frmProprietaControllo tre("memo", {"Titolo", "Autore", "Anno"});
        QCOMPARE(Valore(tre, "Nome") + "|" + Valore(tre, "Top"), QString("Controllo4|130"));
        const QStringList ultimi(1634, "x");
        QCOMPARE(Valore(frmProprietaControllo("memo", ultimi), "Top"), QString("32750"));
        QVERIFY_THROWS_EXCEPTION(std::overflow_error,
                                 frmProprietaControllo("memo", ultimi + QStringList{"y"}));
    }

    // A typed name fills an empty label, never one already written; confirming refuses a bad number and
    // only warns of a name already used, in any case.
    void typingAndConfirmation() {
        frmProprietaControllo dialogo("textbox", {"Titolo", "AUTORE"});
        dialogo.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialogo));
        QTest::mouseClick(dialogo.LV1->viewport(), Qt::LeftButton, {},
                          dialogo.LV1->visualItemRect(Riga(dialogo, "Nome")).topLeft() + QPoint(20, 5));
        auto* editor = dialogo.LV1->viewport()->findChild<QLineEdit*>();
        editor->selectAll();
        QTest::keyClicks(editor, "Genere");
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(Valore(dialogo, "Nome") + "|" + Valore(dialogo, "Etichetta"), QString("Genere|Genere:"));
        dialogo.FineModifica(Riga(dialogo, "Nome"), "autore");
        QCOMPARE(Valore(dialogo, "Etichetta"), QString("Genere:"));
        dialogo.FineModifica(Riga(dialogo, "Left"), "abc");
        InterazioneScriptata script;
        Conferma(dialogo, script, 2);
        QVERIFY(dialogo.isVisible() && !dialogo.Confermato);
        dialogo.FineModifica(Riga(dialogo, "Left"), "15"); // the duplicate name is kept
        Conferma(dialogo, script, 1);
        VERIFICA_SCRIPT(script);
        const QStringList detti = script.TestiMessaggi();
        QVERIFY(detti.at(0).contains("Nome già assegnato ad un altro controllo"));
        QCOMPARE(detti.mid(1), (QStringList{"Proprietà LEFT non valida!", detti.at(0)}));
        QVERIFY(dialogo.Confermato && !dialogo.isVisible());
    }

    // Positions, sizes and tab order are whole pixels the store can hold: anything else is refused
    // here, before the store would refuse it and lose what was typed.
    void numericRowsTakeWholeNumbersFrom0To32767() {
        const QStringList accettate{"Left=0", "Width= 32767 "};
        for (const QString& riga :
             accettate + QStringList{"Width=1,5", "Width=99999999999999999999", "Top=-1", "Tabindex=32768",
                                     "Left=", "Width=12\t", "Height=\n40"}) {
            const QString proprieta = riga.section('=', 0, 0), valore = riga.section('=', 1);
            const bool accettato = accettate.contains(riga);
            frmProprietaControllo dialogo("slider", {});
            dialogo.FineModifica(Riga(dialogo, proprieta), valore);
            dialogo.show();
            InterazioneScriptata script;
            Conferma(dialogo, script, accettato ? 0 : 1);
            VERIFICA_SCRIPT(script);
            QCOMPARE(dialogo.Confermato, accettato);
            QCOMPARE(Valore(dialogo, proprieta), valore);
        }
    }

    // The dialog and the store hold sizes to one rule, blanks included: a text the dialog lets through
    // is one the store takes, and a text it refuses is one the store would refuse.
    void sizeRuleIsTheStoresRule() {
        ArchivioTemporaneo archivio;
        for (const QString& testo : QStringList{"12\t", "\n12", "12\r\n", " 12  ", "\u00A012", "0032767",
                                                "032768", "1 2", "", "   ", "+1", "12.", "\t"}) {
            bool memorizzata = true;
            try {
                Database().Esegui("insert into campi (width) values ('" + testo + "')");
            } catch (const ErroreDatabase&) {
                memorizzata = false;
            }
            QVERIFY2(MisuraAmmessa(testo) == memorizzata, testo.toUtf8().toHex().constData());
        }
    }
};

QTEST_MAIN(TestProprietaControllo)
#include "tst_proprietacontrollo.moc"
