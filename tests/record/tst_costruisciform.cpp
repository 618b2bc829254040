#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "confine.h"
#include "costruisciform.h"
#include "cursore.h"
#include "frmrecord.h"
#include "immagine.h"
#include "impostazioni.h"
#include "interazionescriptata.h"
#include "routinesql.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QToolBar>
#include <memory>

// The builder on the record window, and on a plain window as the layout designer will be.
class TestCostruisciForm final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    qint32 m_id = 0;

    frmRecord& F() { return FinestraRecord(); }
    template <typename T> T* C(const QString& chiave) { return qobject_cast<T*>(F().Controllo(chiave)); }
    void Costruisci() { CostruisciForm(F(), m_id); }

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }
    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_id = CreaCollezione("Dischi", QString());
    }
    void cleanup() {
        delete &F();
        m_archivio.reset();
    }

    void special_data() {
        QTest::addColumn<QString>("tipo");
        QTest::addColumn<QVariant>("special");
        QTest::addColumn<QString>("atteso");
        QTest::newRow("cursore 1|10") << "slider" << QVariant("1|10") << "1..10";
        QTest::newRow("cursore 5") << "slider" << QVariant("5") << "5..5";
        QTest::newRow("cursore vuoto") << "slider" << QVariant("") << "0..0";
        QTest::newRow("cursore 2|a") << "slider" << QVariant("2|a") << "2..0";
        QTest::newRow("combo vuote tenute") << "COMBO" << QVariant("Rock||Jazz") << "Rock,,Jazz";
        QTest::newRow("lista barre agli estremi") << "list" << QVariant("|Pop|") << ",Pop,";
        QTest::newRow("lista NULL") << "list" << QVariant() << "";
        QTest::newRow("immagine TRUE") << "image" << QVariant("TRUE") << "adattata";
        QTest::newRow("immagine 0") << "image" << QVariant("0") << "naturale";
    }

    void special() {
        QFETCH(QString, tipo);
        QFETCH(QVariant, special);
        QFETCH(QString, atteso);
        AggiungiCampo(m_id, {{"nome", "Campo"}, {"tipo", tipo}, {"special", special}});
        Costruisci();
        QString trovato;
        if (const auto* cursore = C<Cursore>("Slider1(1)")) {
            trovato = QString("%1..%2").arg(cursore->Min()).arg(cursore->Max());
            QCOMPARE(cursore->invertedAppearance(), cursore->Min() > cursore->Max()); // still movable
        } else if (const auto* combo = C<QComboBox>("Combo1(1)")) {
            for (int i = 0; i < combo->count(); ++i)
                trovato += (i ? "," : "") + combo->itemText(i);
            QCOMPARE(combo->currentIndex(), -1); // filling chooses nothing
        } else if (const auto* lista = C<QListWidget>("List1(1)")) {
            for (int i = 0; i < lista->count(); ++i)
                trovato += (i ? "," : "") + lista->item(i)->text();
        } else {
            trovato = C<Immagine>("Image1(1)")->hasScaledContents() ? "adattata" : "naturale";
        }
        QCOMPARE(trovato, atteso);
    }

    void etichetteCaselleTabulazioneESpostamento() {
        AggiungiCampo(m_id, {{"nome", "Titolo"}, {"left", 15}, {"top", 0}, {"tooltip", "Il titolo"}});
        AggiungiCampo(m_id, {{"nome", "Anno"}, {"etichetta", "Anno"}, {"left", 200}, {"width", QVariant()}});
        AggiungiCampo(m_id, {{"nome", "Visto"}, {"tipo", "checkbox"}, {"tabindex", 1}});
        AggiungiCampo(m_id, {{"nome", "Usato"}, {"tipo", "checkbox"}, {"etichetta", "Usato spesso"}});
        Costruisci();
        const int barra = F().Toolbar1->height();
        QVERIFY(barra > 20);
        QCOMPARE(C<QLineEdit>("Text1(1)")->geometry(), QRect(15, barra, 120, 21));
        QCOMPARE(C<QLineEdit>("Text1(1)")->toolTip(), QString("Il titolo"));
        QCOMPARE(C<QLineEdit>("Text1(2)")->width(), F().Text1.Modello().width()); // NULL keeps the template's
        const auto* etichetta = C<QLabel>("Label1(1)");
        QCOMPARE(etichetta->text(), QString("Anno"));
        QCOMPARE(etichetta->pos(), QPoint(200, barra + 30 - 20));
        QCOMPARE(etichetta->property("Tag").toString(), QString("Text1(2)"));
        QCOMPARE(C<QCheckBox>("Check1(1)")->text(), QString("Visto"));
        QCOMPARE(C<QCheckBox>("Check1(2)")->text(), QString("Usato spesso"));
        QCOMPARE(F().Label1.LimiteSuperiore(), 1); // check boxes get no label
        QStringList ordine; // the tab order follows "tabindex", not the order of creation
        for (QWidget* c = F().Controllo("Text1(1)"); ordine.size() < 4; c = c->nextInFocusChain())
            if (F().ControlliCampo().contains(c))
                ordine << c->objectName();
        QCOMPARE(ordine, (QStringList{"Text1(1)", "Text1(2)", "Check1(2)", "Check1(1)"}));

        // Only the window named exactly "frmRecord" shifts its controls and gives tooltips.
        F().setObjectName("frmrecord");
        Costruisci();
        QCOMPARE(C<QLineEdit>("Text1(1)")->pos(), QPoint(15, 0));
        QCOMPARE(C<QLineEdit>("Text1(1)")->toolTip(), QString());
    }

    // A window never loaded, then the record window built, mapped and built again for another collection.
    void mappaERicostruzione() {
        FinestraControlli designer;
        CostruisciForm(designer, m_id); // no fields yet
        QVERIFY(FormCaricata(designer) && designer.Elementi().isEmpty());
        const qint32 titolo = AggiungiCampo(m_id, {{"nome", "Titolo"}, {"etichetta", "Titolo"}});
        const qint32 genere = AggiungiCampo(m_id, {{"nome", "Genere"}, {"tipo", "combo"}});
        const qint32 note = AggiungiCampo(m_id, {{"nome", "Note"}});
        const QString sezione = QString::number(m_id);
        SaveSetting(sezione, "Text1(9)", "77");
        Costruisci();
        QCOMPARE(GetSetting(sezione, "Text1(1)"), QString::number(titolo));
        QCOMPARE(GetSetting(sezione, "Combo1(1)"), QString::number(genere));
        QCOMPARE(GetSetting(sezione, "Text1(2)"), QString::number(note));
        QCOMPARE(GetSetting(sezione, "Text1(9)"), QString()); // every build starts a new section

        const qint32 libri = CreaCollezione("Libri", QString());
        const qint32 autore =
            AggiungiCampo(libri, {{"nome", "Autore"}, {"tipo", "memo"}, {"etichetta", "Autore"}});
        QPointer<QWidget> vecchio = F().Controllo("Text1(1)");
        F().CurrTabella = m_id;
        CostruisciForm(F(), libri);
        QVERIFY(vecchio.isNull());
        QCOMPARE(F().Elementi().size(), 2);
        QVERIFY(F().Controllo("Label1(1)")); // indices start again after the unload
        QCOMPARE(F().CurrTabella, 0);        // and so does the window's state
        QCOMPARE(GetSetting(QString::number(libri), "Memo1(1)"), QString::number(autore));
        QCOMPARE(GetSetting(sezione, "Text1(2)"), QString::number(note));
    }

    void erroriDiCostruzione_data() {
        QTest::addColumn<QString>("tipo");
        QTest::addColumn<QString>("messaggio");
        QTest::newRow("tipo sconosciuto") << QString("bottone") << "\"bottone\" non è un tipo di controllo.";
        QTest::newRow("immagine") << QString("image") << "l'immagine richiede TRUE o FALSE, non \"forse\".";
    }

    void erroriDiCostruzione() {
        QFETCH(QString, tipo);
        QFETCH(QString, messaggio);
        AggiungiCampo(m_id, {{"nome", "Primo"}});
        AggiungiCampo(m_id, {{"nome", "Rotto"}, {"tipo", tipo}, {"special", "forse"}});
        AggiungiCampo(m_id, {{"nome", "Dopo"}});
        InterazioneScriptata script;
        script.Rispondi(Risposta::Ok);
        EseguiProtetto([this] { Costruisci(); });
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.Richieste().at(0).messaggio.testo,
                 "Impossibile costruire il campo \"Rotto\": " + messaggio);
        QCOMPARE(script.Richieste().at(0).messaggio.icona, Icona::Critica);
        QCOMPARE(F().Elementi().size(), 1); // the build stopped at the bad row
    }
};

QTEST_MAIN(TestCostruisciForm)
#include "tst_costruisciform.moc"
