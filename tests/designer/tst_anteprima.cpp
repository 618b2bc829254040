#include "archivio.h"
#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "contenitoreanteprima.h"
#include "corniceselezione.h"
#include "frmanteprima.h"
#include "interazionescriptata.h"
#include "mappacampi.h"
#include "routinesql.h"

#include <QAction>
#include <QCheckBox>
#include <QCursor>
#include <QLineEdit>
#include <QMenu>
#include <QRegularExpression>
#include <QTest>
#include <memory>

namespace {

QString Testo(const QRect& r) {
    return QString("%1,%2 %3x%4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
}

// A field's stored place and size, as Testo writes them.
QString Archiviato(qint32 idCampo) {
    return RigheSql(QString("select \"left\"||','||top||' '||width||'x'||height from campi where id=%1")
                        .arg(idCampo))
        .value(0);
}

const QStringList partenza{"20,40 200x22", "240,60 150x80", "60,170 120x100"};

} // namespace

// The layout designer on a shown window: selecting, dragging, aligning and resizing with the
// mouse, the keyboard and the popup menu; saving into campi; the question on closing.
class TestAnteprima final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    std::unique_ptr<ContenitoreAnteprima> m_finestra;
    qint32 m_id = 0;
    QList<qint32> m_campi;

    frmAnteprima& A() { return m_finestra->Anteprima(); }
    QWidget& C(const QString& chiave) { return *A().Controllo(chiave); }
    void Comando(const QString& nome) { A().findChild<QAction*>(nome)->trigger(); }
    void Seleziona(const QStringList& chiavi) {
        for (const QString& chiave : chiavi)
            A().SelezionaControllo(C(chiave));
    }

    // Mouse events go through the window, as the platform delivers them.
    void Mouse(QTest::MouseAction azione, QPoint punto, Qt::KeyboardModifiers tasti = {},
               Qt::MouseButton tasto = Qt::LeftButton) {
        QTest::mouseEvent(azione, m_finestra->windowHandle(), tasto, tasti,
                          A().mapTo(m_finestra.get(), punto));
    }
    void Clic(const QString& chiave, Qt::KeyboardModifiers tasti = {}) {
        Mouse(QTest::MouseClick, C(chiave).pos() + QPoint(4, 4), tasti);
    }

    // The text box, the memo and the picture, each marked when its label is not 20 pixels above it.
    QStringList Disposizione() {
        QStringList righe;
        for (const QString& chiave : QStringList{"Text1(1)", "Memo1(1)", "Image1(1)"}) {
            righe << Testo(C(chiave).geometry());
            for (const QWidget* elemento : A().Elementi())
                if (elemento->property("Tag") == chiave && elemento->pos() != C(chiave).pos() - QPoint(0, 20))
                    righe.last() += " label astray";
        }
        return righe;
    }

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_id = CreaCollezione("Dischi", QString());
        m_campi.clear();
        const QStringList tipi{"textbox", "memo", "image"};
        for (const QString& riga : partenza) {
            const QString tipo = tipi.at(m_campi.size());
            const QStringList n = riga.split(QRegularExpression("[, x]"));
            QVariantHash campo{{"nome", tipo}, {"etichetta", tipo}, {"tipo", tipo}, {"special", "TRUE"}};
            campo.insert(
                {{"left", n[0]}, {"top", n[1]}, {"width", n[2]}, {"height", n[3]}, {"tooltip", "x"}});
            m_campi << AggiungiCampo(m_id, campo);
            ScriviValore(m_campi.last(), 1, "uno");
        }
        AggiungiCampo(m_id, {{"nome", "Usato"}, {"tipo", "checkbox"}, {"left", 420}, {"top", 40}});
        m_finestra = std::make_unique<ContenitoreAnteprima>();
        m_finestra->Costruisci(m_id);
        m_finestra->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_finestra.get()));
        QCOMPARE(Disposizione(), partenza); // no toolbar to make room for
        QCOMPARE(C("Text1(1)").toolTip(), QString());
    }

    void cleanup() {
        m_finestra.reset();
        m_archivio.reset();
    }

    void selezione() {
        Clic("Text1(1)");
        Clic("Image1(1)", Qt::ControlModifier);
        Clic("Text1(1)", Qt::ControlModifier); // already selected: listed once
        QCOMPARE(A().Selezione(), (QStringList{"Text1(1)", "Image1(1)"}));
        QCOMPARE(A().Cornici().size(), std::size_t{2});
        QRect cornice; // the four segments lie around the control, outside it
        for (const QWidget* lato : A().Cornici().front()->Lati()) {
            QVERIFY(lato->isVisible() && !lato->geometry().intersects(C("Text1(1)").geometry()));
            cornice |= lato->geometry();
        }
        QCOMPARE(cornice, C("Text1(1)").geometry().adjusted(-4, -4, 4, 4));

        Mouse(QTest::MouseClick, QPoint(600, 400), {}, Qt::RightButton);
        QTRY_VERIFY(A().mnuControlli->isVisible());
        A().mnuControlli->hide();
        QCOMPARE(A().Selezione().size(), 2);

        // Clicks and keys never reach a control: nothing is typed or toggled.
        Clic("Text1(1)");
        QTest::keyClick(m_finestra->windowHandle(), 'a');
        Clic("Check1(1)");
        QCOMPARE(static_cast<QLineEdit&>(C("Text1(1)")).text(), QString());
        QVERIFY(!static_cast<QCheckBox&>(C("Check1(1)")).isChecked());
        QCOMPARE(A().Selezione(), QStringList{"Check1(1)"});

        Mouse(QTest::MouseClick, QPoint(600, 400)); // the bare form
        QVERIFY(A().Selezione().isEmpty() && A().Cornici().empty());
        QVERIFY(A().Salvato());
    }

    // The pointer first goes to the control's centre; the control lands centred where it is let go.
    void trascinamentoERilascio() {
        Seleziona({"Text1(1)"});
        Mouse(QTest::MousePress, QPoint(250, 70));
        Mouse(QTest::MouseMove, QPoint(270, 90));
        QCOMPARE(QCursor::pos(), A().mapToGlobal(QPoint(240 + 75, 60 + 40)));
        Mouse(QTest::MouseMove, QPoint(400, 300));
        Mouse(QTest::MouseRelease, QPoint(400, 300));
        QCOMPARE(C("Memo1(1)").geometry(), QRect(325, 260, 150, 80));
        QCOMPARE(A().Selezione(), QStringList{"Memo1(1)"});

        const QStringList prima = Disposizione(); // let go outside the form, nothing lands
        Mouse(QTest::MousePress, QPoint(30, 50));
        Mouse(QTest::MouseMove, QPoint(100, 100));
        Mouse(QTest::MouseRelease, QPoint(-5, 100));
        QCOMPARE(Disposizione(), prima);

        // Dropped: an odd size is halved down, the form's edge stops it; only it stays selected.
        for (const auto& [chiave, punto, atteso] :
             {std::tuple{QString("Check1(1)"), QPoint(500, 100), QPoint(440, 90)},
              {"Image1(1)", QPoint(10, 5), QPoint(0, 0)}}) {
            Seleziona({"Text1(1)", "Memo1(1)", "Check1(1)"});
            const QRect dove(atteso, C(chiave).size());
            A().Form_DragDrop(C(chiave), punto);
            QCOMPARE(C(chiave).geometry(), dove);
            QCOMPARE(A().Selezione(), QStringList{chiave});
        }
        QVERIFY(!Disposizione().join(' ').contains("astray")); // labels follow their controls
        QVERIFY(!A().Salvato());
    }

    void allinea_data() {
        QTest::addColumn<QStringList>("selezione");
        QTest::addColumn<QString>("comando");
        QTest::addColumn<QStringList>("attesa");
        const QStringList tre{"Text1(1)", "Memo1(1)", "Image1(1)"};
        const QStringList due{"Memo1(1)", "Image1(1)"};
        const auto riga = [](const char* nome, const QStringList& selezione, const QString& comando,
                             const QStringList& attesa) {
            QTest::newRow(nome) << selezione << comando << attesa;
        };
        riga("alto", tre, "mnuAllineaAlto", {"20,40 200x22", "240,40 150x80", "60,40 120x100"});
        riga("basso", tre, "mnuAllineaBasso", {"20,248 200x22", "240,190 150x80", partenza[2]});
        riga("sinistra", tre, "mnuAllineaSinistra", {partenza[0], "20,60 150x80", "20,170 120x100"});
        riga("destra", tre, "mnuAllineaDestra", {"190,40 200x22", partenza[1], "270,170 120x100"});
        riga("altezza", tre, "mnuUgualeAltezza", {partenza[0], "240,60 150x22", "60,170 120x22"});
        riga("larghezza", tre, "mnuUgualeLarghezza", {"20,40 120x22", "240,60 120x80", partenza[2]});
        riga("entrambe, due", due, "mnuUgualeEntrambe", {partenza[0], "240,60 120x80", "60,170 120x80"});
        for (const char* comando :
             {"mnuAllineaAlto", "mnuAllineaBasso", "mnuAllineaSinistra", "mnuAllineaDestra",
              "mnuUgualeAltezza", "mnuUgualeLarghezza", "mnuUgualeEntrambe"})
            QTest::addRow("%s, niente selezionato", comando) << QStringList() << comando << partenza;
    }

    void allinea() {
        QFETCH(QStringList, selezione);
        QFETCH(QString, comando);
        QFETCH(QStringList, attesa);
        Seleziona(selezione);
        Comando(comando);
        QCOMPARE(Disposizione(), attesa);
        QVERIFY(!A().Salvato()); // a change even when nothing moved
    }

    void passi_data() {
        QTest::addColumn<QString>("comando"); // a menu item, or else the key released on the form
        QTest::addColumn<int>("tasto");
        QTest::addColumn<QSize>("cambio");
        const auto tasto = [](Qt::Key k, Qt::KeyboardModifiers m) {
            return QKeyCombination(m, k).toCombined();
        };
        const Qt::KeyboardModifiers ctrl = Qt::ControlModifier | Qt::KeypadModifier;
        const Qt::KeyboardModifiers alt = Qt::AltModifier | Qt::KeypadModifier;
        for (const auto& [comando, verso] : {std::pair{"mnuAUmentaAltezza", QSize(0, 1)},
                                             {"mnuDiminuisciAltezza", QSize(0, -1)},
                                             {"mnuAumentaLarghezza", QSize(1, 0)},
                                             {"mnuDiminuisciLarghezza", QSize(-1, 0)}})
            for (const int passo : {10, 50})
                QTest::addRow("%s%d", comando, passo)
                    << comando + QString::number(passo) << 0 << verso * passo;
        QTest::newRow("Ctrl +") << "" << tasto(Qt::Key_Plus, ctrl) << QSize(10, 0);
        QTest::newRow("Ctrl -") << "" << tasto(Qt::Key_Minus, ctrl) << QSize(-10, 0);
        QTest::newRow("Alt +") << "" << tasto(Qt::Key_Plus, alt) << QSize(0, 10);
        QTest::newRow("Alt -") << "" << tasto(Qt::Key_Minus, alt) << QSize(0, -10);
        QTest::newRow("Ctrl + di tastiera") << "" << tasto(Qt::Key_Plus, Qt::ControlModifier) << QSize(0, 0);
        QTest::newRow("Maiusc +") << "" << tasto(Qt::Key_Plus, Qt::ShiftModifier | Qt::KeypadModifier)
                                  << QSize(0, 0);
    }

    void passi() {
        QFETCH(QString, comando);
        QFETCH(int, tasto);
        QFETCH(QSize, cambio);
        Seleziona({"Memo1(1)", "Image1(1)"});
        const QKeyCombination combinazione = QKeyCombination::fromCombined(tasto);
        if (!comando.isEmpty())
            Comando(comando);
        else
            QTest::keyRelease(m_finestra->windowHandle(), combinazione.key(),
                              combinazione.keyboardModifiers());
        QCOMPARE(Disposizione(),
                 (QStringList{partenza[0], Testo(QRect(QPoint(240, 60), QSize(150, 80) + cambio)),
                              Testo(QRect(QPoint(60, 170), QSize(120, 100) + cambio))}));
        QCOMPARE(A().Salvato(), cambio.isNull());
    }

    // The layout goes into campi through the field map; values are never touched.
    void salvataggio() {
        const qint32 estraneo = AggiungiCampo(CreaCollezione("Libri", QString()), {{"nome", "Autore"}});
        const QStringList valori = RigheSql("select * from valori");
        A().Form_DragDrop(C("Text1(1)"), QPoint(300, 211));
        Seleziona({"Memo1(1)", "Image1(1)"});
        A().mnuAumentaLarghezza50->trigger();
        // A control the map does not know is skipped; a stale entry never reaches another collection.
        RegistraCampo(m_id, "Memo1(1)", 0);
        RegistraCampo(m_id, "Image1(1)", estraneo);
        A().mnuSalva->trigger();
        QVERIFY(A().Salvato());
        const QStringList archiviati{Archiviato(m_campi[0]), Archiviato(m_campi[1]), Archiviato(m_campi[2]),
                                     Archiviato(estraneo)};
        QCOMPARE(archiviati, (QStringList{"200,200 250x22", partenza[1], partenza[2], "10,30 120x21"}));
        QCOMPARE(RigheSql("select * from valori"), valori);
    }

    // A size that would go below 0 stops the command at that control, with a message; nothing negative
    // reaches the store. A save that fails half-way stores none of it, says why, and stays unsaved.
    void misuraNegativaESalvataggioInterrotto() {
        Seleziona({"Memo1(1)", "Image1(1)"});
        InterazioneScriptata script;
        script.Rispondi(Risposta::Ok).Rispondi(Risposta::Ok);
        for (int i = 0; i < 3; ++i)
            A().mnuDiminuisciLarghezza50->trigger();
        QCOMPARE(Descrivi(script.Richieste().at(0).messaggio),
                 Descrivi({"Valore non valido per la proprietà Width del controllo: -30 (ammessi i valori da "
                           "0 a 32767).",
                           "Orvix", Pulsanti::Ok, Icona::Critica}));
        A().mnuAumentaLarghezza10->trigger();
        Comando("mnuSalva");
        QCOMPARE(Archiviato(m_campi[1]) + " " + Archiviato(m_campi[2]),
                 QString("240,60 10x80 60,170 30x100"));

        Database().Esegui("create trigger blocca before update on campi when new.nome='image' "
                          "begin select raise(abort, 'vietato'); end");
        A().Form_DragDrop(C("Text1(1)"), QPoint(300, 300));
        Comando("mnuSalva");
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.TestiMessaggi().at(1), QString("vietato"));
        QCOMPARE(Archiviato(m_campi[0]), partenza[0]);
        QVERIFY(!A().Salvato());
    }

    void chiusura_data() {
        QTest::addColumn<QString>("comando"); // empty: only a selection
        QTest::addColumn<QString>("modo");
        QTest::addColumn<int>("risposta"); // 0: nothing asked
        QTest::addColumn<QString>("salvato");
        const auto riga = [](const char* nome, const QString& comando, const QString& modo, int risposta,
                             const QString& salvato) {
            QTest::newRow(nome) << comando << modo << risposta << salvato;
        };
        const QString altezza = "mnuAUmentaAltezza10", alto = "20,40 200x32";
        const int si = int(Risposta::Si), no = int(Risposta::No);
        riga("solo selezione", "", "mnuEsci", 0, partenza[0]);
        riga("salvata dal menu", "mnuSalva", "mnuEsci", 0, partenza[0]);
        riga("allinea senza selezione, No", "mnuAllineaAlto", "mnuEsci", no, partenza[0]);
        riga("più alto, Sì", altezza, "mnuEsci", si, alto);
        riga("più alto, No", altezza, "mnuEsci", no, partenza[0]);
        riga("più alto, chiusa, Sì", altezza, "close", si, alto);
        riga("più alto, Esc, Sì", altezza, "Esc", si, alto);
    }

    void chiusura() {
        QFETCH(QString, comando);
        QFETCH(QString, modo);
        QFETCH(int, risposta);
        QFETCH(QString, salvato);
        InterazioneScriptata script;
        if (risposta)
            script.Rispondi(Risposta(risposta));
        if (comando != "mnuAllineaAlto")
            Seleziona({"Text1(1)"});
        if (!comando.isEmpty())
            Comando(comando);
        if (modo == "mnuEsci")
            A().mnuEsci->trigger();
        else if (modo == "close")
            m_finestra->close();
        else
            QTest::keyClick(m_finestra.get(), Qt::Key_Escape);
        QVERIFY(!m_finestra->isVisible()); // whatever the answer, the window goes
        VERIFICA_SCRIPT(script);
        if (risposta)
            QCOMPARE(Descrivi(script.Richieste().at(0).messaggio),
                     Descrivi({"La disposizione dei Controlli è stata cambiata.\r\n"
                               "Si desidera salvare le modifiche prima di chiudere?",
                               "Salvare le modifiche?", Pulsanti::SiNo}));
        QCOMPARE(Archiviato(m_campi[0]), salvato);
    }
};

QTEST_MAIN(TestAnteprima)
#include "tst_anteprima.moc"
