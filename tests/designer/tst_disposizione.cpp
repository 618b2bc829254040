#include "archivio.h"
#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "contenitoreanteprima.h"
#include "corniceselezione.h"
#include "frmanteprima.h"
#include "interazionescriptata.h"
#include "routinesql.h"

#include <QAction>
#include <QCheckBox>
#include <QCursor>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <memory>

// Selecting, dragging, aligning and resizing controls in the layout designer, with the mouse,
// the keyboard and the popup menu, on a shown window.
class TestDisposizione final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    std::unique_ptr<ContenitoreAnteprima> m_finestra;

    frmAnteprima& A() { return m_finestra->Anteprima(); }
    QWidget& C(const char* chiave) { return *A().Controllo(QLatin1String(chiave)); }

    // Mouse events go through the window, as the platform delivers them.
    void Mouse(QTest::MouseAction azione, QPoint punto, Qt::MouseButton tasto = Qt::LeftButton,
               Qt::KeyboardModifiers modificatori = {}) {
        QTest::mouseEvent(azione, m_finestra->windowHandle(), tasto, modificatori,
                          A().mapTo(m_finestra.get(), punto));
    }
    void Clic(const char* chiave, Qt::KeyboardModifiers modificatori = {}) {
        Mouse(QTest::MouseClick, C(chiave).geometry().topLeft() + QPoint(4, 4), Qt::LeftButton, modificatori);
    }

    // Each control's geometry, and whether its label sits 20 pixels above it.
    QStringList Disposizione() {
        QStringList righe;
        for (const char* chiave : {"Text1(1)", "Memo1(1)", "Image1(1)"}) {
            const QRect r = C(chiave).geometry();
            QString riga = QString("%1,%2 %3x%4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
            for (QWidget* elemento : A().Elementi())
                if (elemento->property("Tag").toString() == QLatin1String(chiave) &&
                    elemento->pos() != r.topLeft() - QPoint(0, 20))
                    riga += " label astray";
            righe << riga;
        }
        return righe;
    }

    void Seleziona(const QStringList& chiavi) {
        for (const QString& chiave : chiavi)
            A().SelezionaControllo(*A().Controllo(chiave));
    }

private Q_SLOTS:
    void initTestCase() { UsaLocaleItaliano(); }

    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        const qint32 id = CreaCollezione("Dischi", QString());
        const auto campo = [id](const char* nome, const char* tipo, QRect r) {
            AggiungiCampo(id, {{"nome", nome},
                               {"etichetta", nome},
                               {"tipo", tipo},
                               {"special", "TRUE"},
                               {"left", r.x()},
                               {"top", r.y()},
                               {"width", r.width()},
                               {"height", r.height()}});
        };
        campo("Titolo", "textbox", {20, 40, 200, 22});
        campo("Note", "memo", {240, 60, 150, 80});
        campo("Copertina", "image", {60, 170, 120, 100});
        AggiungiCampo(id, {{"nome", "Usato"}, {"tipo", "checkbox"}, {"left", 420}, {"top", 40}});
        m_finestra = std::make_unique<ContenitoreAnteprima>();
        m_finestra->Costruisci(id);
        m_finestra->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_finestra.get()));
    }

    void cleanup() {
        m_finestra.reset();
        m_archivio.reset();
    }

    void selezioneColMouse() {
        Clic("Text1(1)");
        Clic("Image1(1)", Qt::ControlModifier);
        Clic("Text1(1)", Qt::ControlModifier); // already selected: listed once
        QCOMPARE(A().Selezione(), (QStringList{"Text1(1)", "Image1(1)"}));
        QCOMPARE(A().Cornici().size(), std::size_t{2});
        // Each frame lies around its control, outside it.
        const QRect testo = C("Text1(1)").geometry();
        QRect cornice;
        for (const QWidget* lato : A().Cornici().front()->Lati()) {
            QVERIFY(lato->isVisible() && !lato->geometry().intersects(testo));
            cornice |= lato->geometry();
        }
        QCOMPARE(cornice, testo.adjusted(-4, -4, 4, 4));

        // The right button only offers the menu.
        Mouse(QTest::MouseClick, QPoint(600, 400), Qt::RightButton);
        QTRY_VERIFY(A().mnuControlli->isVisible());
        A().mnuControlli->hide();
        QCOMPARE(A().Selezione().size(), 2);

        // A click on a control does not reach it: nothing is typed or toggled.
        Clic("Text1(1)");
        for (const char tasto : {'a', 'b', 'c'})
            QTest::keyClick(m_finestra->windowHandle(), tasto);
        QCOMPARE(static_cast<QLineEdit&>(C("Text1(1)")).text(), QString());
        Clic("Check1(1)");
        QVERIFY(!static_cast<QCheckBox&>(C("Check1(1)")).isChecked());
        QCOMPARE(A().Selezione(), QStringList{"Check1(1)"});

        Mouse(QTest::MouseClick, QPoint(600, 400)); // the bare form
        QVERIFY(A().Selezione().isEmpty());
        QVERIFY(A().Cornici().empty());
        QVERIFY(A().Salvato()); // selecting changes nothing
    }

    void rilascio_data() {
        QTest::addColumn<QString>("chiave");
        QTest::addColumn<QPoint>("punto");
        QTest::addColumn<QPoint>("atteso");
        QTest::newRow("testo") << "Text1(1)" << QPoint(300, 300) << QPoint(200, 289);
        QTest::newRow("casella, metà intera") << "Check1(1)" << QPoint(500, 100) << QPoint(440, 90);
        QTest::newRow("immagine al bordo") << "Image1(1)" << QPoint(10, 5) << QPoint(0, 0);
    }

    void rilascio() {
        QFETCH(QString, chiave);
        QFETCH(QPoint, punto);
        QFETCH(QPoint, atteso);
        Seleziona({"Text1(1)", "Memo1(1)", "Check1(1)"});
        QWidget& controllo = *A().Controllo(chiave);
        const QSize dimensione = controllo.size();
        A().Form_DragDrop(controllo, punto);
        QCOMPARE(controllo.geometry(), QRect(atteso, dimensione));
        QCOMPARE(A().Selezione(), QStringList{chiave});
        QVERIFY(!Disposizione().join(' ').contains("astray"));
        QVERIFY(!A().Salvato());
    }

    // A drag with the mouse: the pointer goes to the control's centre, the control follows it there.
    void trascinamento() {
        Seleziona({"Text1(1)"});
        const QRect memo = C("Memo1(1)").geometry();
        Mouse(QTest::MousePress, memo.topLeft() + QPoint(10, 10));
        Mouse(QTest::MouseMove, memo.topLeft() + QPoint(30, 30));
        QCOMPARE(QCursor::pos(), A().mapToGlobal(QPoint(240 + 75, 60 + 40)));
        Mouse(QTest::MouseMove, QPoint(400, 300));
        Mouse(QTest::MouseRelease, QPoint(400, 300));
        QCOMPARE(C("Memo1(1)").geometry(), QRect(325, 260, 150, 80));
        QCOMPARE(A().Selezione(), QStringList{"Memo1(1)"});
        QVERIFY(!A().Salvato());

        // Let go outside the form, nothing lands.
        const QStringList prima = Disposizione();
        Mouse(QTest::MousePress, C("Text1(1)").geometry().center());
        Mouse(QTest::MouseMove, QPoint(100, 100));
        Mouse(QTest::MouseRelease, QPoint(-5, 100));
        QCOMPARE(Disposizione(), prima);
    }

    void allineaEUguale_data() {
        QTest::addColumn<QStringList>("selezione");
        QTest::addColumn<QString>("comando");
        QTest::addColumn<QStringList>("attesa");
        const QStringList tre{"Text1(1)", "Memo1(1)", "Image1(1)"};
        const QStringList partenza{"20,40 200x22", "240,60 150x80", "60,170 120x100"};
        QTest::newRow("alto") << tre << "mnuAllineaAlto"
                              << QStringList{"20,40 200x22", "240,40 150x80", "60,40 120x100"};
        QTest::newRow("basso") << tre << "mnuAllineaBasso"
                               << QStringList{"20,248 200x22", "240,190 150x80", "60,170 120x100"};
        QTest::newRow("sinistra") << tre << "mnuAllineaSinistra"
                                  << QStringList{"20,40 200x22", "20,60 150x80", "20,170 120x100"};
        QTest::newRow("destra") << tre << "mnuAllineaDestra"
                                << QStringList{"190,40 200x22", "240,60 150x80", "270,170 120x100"};
        QTest::newRow("stessa altezza")
            << tre << "mnuUgualeAltezza" << QStringList{"20,40 200x22", "240,60 150x22", "60,170 120x22"};
        QTest::newRow("stessa larghezza")
            << tre << "mnuUgualeLarghezza" << QStringList{"20,40 120x22", "240,60 120x80", "60,170 120x100"};
        QTest::newRow("entrambe, due") << QStringList{"Memo1(1)", "Image1(1)"} << "mnuUgualeEntrambe"
                                       << QStringList{"20,40 200x22", "240,60 120x80", "60,170 120x80"};
        QTest::newRow("destra, due") << QStringList{"Text1(1)", "Image1(1)"} << "mnuAllineaDestra"
                                     << QStringList{"20,40 200x22", "240,60 150x80", "100,170 120x100"};
        for (const char* comando :
             {"mnuAllineaAlto", "mnuAllineaBasso", "mnuAllineaSinistra", "mnuAllineaDestra",
              "mnuUgualeAltezza", "mnuUgualeLarghezza", "mnuUgualeEntrambe"})
            QTest::addRow("%s, niente selezionato", comando) << QStringList() << comando << partenza;
    }

    void allineaEUguale() {
        QFETCH(QStringList, selezione);
        QFETCH(QString, comando);
        QFETCH(QStringList, attesa);
        Seleziona(selezione);
        A().findChild<QAction*>(comando)->trigger();
        QCOMPARE(Disposizione(), attesa);
        QVERIFY(!A().Salvato()); // a change even when nothing moved
    }

    void passi_data() {
        QTest::addColumn<QString>("comando"); // a menu item, or a key released on the form
        QTest::addColumn<int>("tasto");
        QTest::addColumn<int>("modificatori");
        QTest::addColumn<QSize>("cambio");
        const int ctrl = int((Qt::ControlModifier | Qt::KeypadModifier).toInt());
        const int alt = int((Qt::AltModifier | Qt::KeypadModifier).toInt());
        const int maiusc = int((Qt::ShiftModifier | Qt::KeypadModifier).toInt());
        QTest::newRow("altezza +10") << "mnuAUmentaAltezza10" << 0 << 0 << QSize(0, 10);
        QTest::newRow("altezza +50") << "mnuAUmentaAltezza50" << 0 << 0 << QSize(0, 50);
        QTest::newRow("altezza -10") << "mnuDiminuisciAltezza10" << 0 << 0 << QSize(0, -10);
        QTest::newRow("altezza -50") << "mnuDiminuisciAltezza50" << 0 << 0 << QSize(0, -50);
        QTest::newRow("larghezza +10") << "mnuAumentaLarghezza10" << 0 << 0 << QSize(10, 0);
        QTest::newRow("larghezza +50") << "mnuAumentaLarghezza50" << 0 << 0 << QSize(50, 0);
        QTest::newRow("larghezza -10") << "mnuDiminuisciLarghezza10" << 0 << 0 << QSize(-10, 0);
        QTest::newRow("larghezza -50") << "mnuDiminuisciLarghezza50" << 0 << 0 << QSize(-50, 0);
        QTest::newRow("Ctrl +") << "" << int(Qt::Key_Plus) << ctrl << QSize(10, 0);
        QTest::newRow("Ctrl -") << "" << int(Qt::Key_Minus) << ctrl << QSize(-10, 0);
        QTest::newRow("Alt +") << "" << int(Qt::Key_Plus) << alt << QSize(0, 10);
        QTest::newRow("Alt -") << "" << int(Qt::Key_Minus) << alt << QSize(0, -10);
        QTest::newRow("Ctrl + fuori dal tastierino")
            << "" << int(Qt::Key_Plus) << int(Qt::ControlModifier) << QSize(0, 0);
        QTest::newRow("Maiusc +") << "" << int(Qt::Key_Plus) << maiusc << QSize(0, 0);
        QTest::newRow("Ctrl *") << "" << int(Qt::Key_Asterisk) << ctrl << QSize(0, 0);
    }

    void passi() {
        QFETCH(QString, comando);
        QFETCH(int, tasto);
        QFETCH(int, modificatori);
        QFETCH(QSize, cambio);
        Seleziona({"Memo1(1)", "Image1(1)"});
        if (!comando.isEmpty())
            A().findChild<QAction*>(comando)->trigger();
        else
            QTest::keyRelease(m_finestra->windowHandle(), Qt::Key(tasto),
                              Qt::KeyboardModifiers(modificatori));
        const QString memo = QString("240,60 %1x%2").arg(150 + cambio.width()).arg(80 + cambio.height());
        const QString immagine = QString("60,170 %1x%2").arg(120 + cambio.width()).arg(100 + cambio.height());
        QCOMPARE(Disposizione(), (QStringList{"20,40 200x22", memo, immagine}));
        QCOMPARE(A().Salvato(), cambio.isNull());
    }

    // A size that would go below 0 stops the command at that control, with a message; nothing
    // negative reaches the store and the designer goes on.
    void misuraNegativa() {
        Seleziona({"Memo1(1)", "Image1(1)"});
        InterazioneScriptata script;
        script.Rispondi(Risposta::Ok);
        for (int i = 0; i < 3; ++i)
            A().mnuDiminuisciLarghezza50->trigger();
        VERIFICA_SCRIPT(script);
        QCOMPARE(
            Descrivi(script.Richieste().at(0).messaggio),
            Descrivi({"Valore non valido per la proprietà Width del controllo: -30 (ammessi i valori da 0 "
                      "a 32767).",
                      "Orvix", Pulsanti::Ok, Icona::Critica}));
        QCOMPARE(C("Memo1(1)").width(), 0);
        QCOMPARE(C("Image1(1)").width(), 20);
        QTest::keyRelease(m_finestra->windowHandle(), Qt::Key_Plus, Qt::ControlModifier | Qt::KeypadModifier);
        A().mnuSalva->trigger();
        Recordset larghezze = Database().ApriRecordset("select group_concat(width, ' ') from campi");
        QCOMPARE(larghezze.Campo(0).toString(), QString("200 10 30 120"));
    }
};

QTEST_MAIN(TestDisposizione)
#include "tst_disposizione.moc"
