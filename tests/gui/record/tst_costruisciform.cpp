#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "confine.h"
#include "costruisciform.h"
#include "cursore.h"
#include "frmrecord.h"
#include "impostazioni.h"
#include "interazionescriptata.h"
#include "routinesql.h"

#include <QTest>
#include <QtWidgets>
#include <memory>

// The builder on the record window.
class TestCostruisciForm final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    qint32 m_id = 0;

    frmRecord& F() { return FinestraRecord(); }
    template <typename T> T* C(const QString& chiave) { return qobject_cast<T*>(F().Controllo(chiave)); }
    void Costruisci() { CostruisciForm(F(), m_id); }

private Q_SLOTS:
    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_id = CreaCollezione("Dischi", QString());
    }
    void cleanup() {
        delete &F();
        m_archivio.reset();
    }

    // A bad range is read up to its first non-number and empty items are kept; the tab order follows
    // "tabindex"; only the window named exactly "frmRecord" shifts its controls below the toolbar.
    void costruzione() {
        AggiungiCampo(m_id, {{"nome", "Titolo"}, {"left", 15}, {"top", 0}});
        AggiungiCampo(m_id, {{"nome", "Voto"}, {"tipo", "slider"}, {"special", "2|a"}});
        const qint32 genere =
            AggiungiCampo(m_id, {{"nome", "Genere"}, {"tipo", "COMBO"}, {"special", "|Rock||Jazz"}});
        AggiungiCampo(m_id, {{"nome", "Visto"}, {"tipo", "checkbox"}, {"tabindex", 1}});
        AggiungiCampo(m_id, {{"nome", "Usato"}, {"tipo", "checkbox"}});
        SaveSetting(QString::number(m_id), "Text1(9)", "77"); // every build starts a new map section
        Costruisci();
        QCOMPARE(GetSetting(QString::number(m_id), "Combo1(1)") +
                     GetSetting(QString::number(m_id), "Text1(9)"),
                 QString::number(genere));
        const auto* cursore = C<Cursore>("Slider1(1)");
        QVERIFY(cursore->Min() == 2 && cursore->Max() == 0 && cursore->invertedAppearance()); // still movable
        QStringList voci;
        for (int i = 0; i < C<QComboBox>("Combo1(1)")->count(); ++i)
            voci << C<QComboBox>("Combo1(1)")->itemText(i);
        QCOMPARE(voci, (QStringList{"", "Rock", "", "Jazz"}));
        QCOMPARE(C<QComboBox>("Combo1(1)")->currentIndex(), -1); // filling chooses nothing
        QStringList ordine;
        for (QWidget* c = F().Controllo("Text1(1)"); ordine.size() < 5; c = c->nextInFocusChain())
            if (F().ControlliCampo().contains(c))
                ordine << c->objectName();
        QCOMPARE(ordine, (QStringList{"Text1(1)", "Slider1(1)", "Combo1(1)", "Check1(2)", "Check1(1)"}));
        QCOMPARE(C<QLineEdit>("Text1(1)")->pos(), QPoint(15, F().Toolbar1->height()));
        F().setObjectName("frmrecord");
        Costruisci();
        QCOMPARE(C<QLineEdit>("Text1(1)")->pos(), QPoint(15, 0));
    }

    // The build stops at a bad row, with a message, and the program stays up.
    void erroreDiCostruzione() {
        AggiungiCampo(m_id, {{"nome", "Primo"}});
        AggiungiCampo(m_id, {{"nome", "Rotto"}, {"tipo", "bottone"}});
        AggiungiCampo(m_id, {{"nome", "Dopo"}});
        InterazioneScriptata script;
        script.Rispondi(Risposta::Ok);
        EseguiProtetto([this] { Costruisci(); });
        VERIFICA_SCRIPT(script);
        QCOMPARE(
            script.TestiMessaggi().at(0),
            QString("Impossibile costruire il campo \"Rotto\": \"bottone\" non è un tipo di controllo."));
        QCOMPARE(F().Elementi().size(), 1);
    }
};

QTEST_MAIN(TestCostruisciForm)
#include "tst_costruisciform.moc"
