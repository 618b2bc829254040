#include "archivio.h"
#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "contenitoreanteprima.h"
#include "frmanteprima.h"
#include "interazionescriptata.h"
#include "mappacampi.h"
#include "routinesql.h"

#include <QTest>
#include <QtWidgets>
#include <memory>

namespace {

// A field's stored place and size, as Disposizione writes them.
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
    void Seleziona(const QStringList& chiavi) {
        for (const QString& chiave : chiavi)
            A().SelezionaControllo(C(chiave));
    }

    // Mouse events go through the window, as the platform delivers them.
    void Mouse(QTest::MouseAction azione, QPoint punto, Qt::KeyboardModifiers tasti = {}) {
        QTest::mouseEvent(azione, m_finestra->windowHandle(), Qt::LeftButton, tasti,
                          A().mapTo(m_finestra.get(), punto));
    }
    void Tasto(Qt::Key tasto, Qt::KeyboardModifiers modificatori) {
        QTest::keyRelease(m_finestra->windowHandle(), tasto, modificatori);
    }

    // The text box, the memo and the picture, each marked when its label is not 20 pixels above it.
    QStringList Disposizione() {
        QStringList righe;
        for (const QString& chiave : QStringList{"Text1(1)", "Memo1(1)", "Image1(1)"}) {
            const QRect r = C(chiave).geometry();
            righe << QString("%1,%2 %3x%4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
            for (const QWidget* elemento : A().Elementi())
                if (elemento->property("Tag") == chiave && elemento->pos() != r.topLeft() - QPoint(0, 20))
                    righe.last() += " label astray";
        }
        return righe;
    }

private Q_SLOTS:
    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        m_id = CreaCollezione("Dischi", QString());
        m_campi.clear();
        for (const QString& tipo : QStringList{"textbox", "memo", "image"}) {
            const QStringList n = partenza.at(m_campi.size()).split(QRegularExpression("[, x]"));
            QVariantHash campo{{"nome", tipo}, {"etichetta", tipo}, {"tipo", tipo}, {"special", "TRUE"}};
            campo.insert({{"left", n[0]}, {"top", n[1]}, {"width", n[2]}, {"height", n[3]}});
            m_campi << AggiungiCampo(m_id, campo);
            ScriviValore(m_campi.last(), 1, "uno");
        }
        m_finestra = std::make_unique<ContenitoreAnteprima>();
        m_finestra->Costruisci(m_id);
        m_finestra->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_finestra.get()));
    }

    void cleanup() {
        m_finestra.reset();
        m_archivio.reset();
    }

    // Ctrl+click adds to the selection; keys never reach a control; the bare form clears the selection.
    void selezione() {
        Mouse(QTest::MouseClick, QPoint(24, 44));
        Mouse(QTest::MouseClick, QPoint(64, 174), Qt::ControlModifier);
        QTest::keyClick(m_finestra->windowHandle(), 'a');
        QCOMPARE(A().Selezione(), (QStringList{"Text1(1)", "Image1(1)"}));
        QCOMPARE(static_cast<QLineEdit&>(C("Text1(1)")).text(), QString());
        Mouse(QTest::MouseClick, QPoint(600, 400));
        QVERIFY(A().Selezione().isEmpty() && A().Salvato());
    }

    // Dragged with the mouse, a control lands centred where it is let go; dropped near the corner, the
    // form's edge stops it and only it stays selected; labels follow their controls.
    void trascinamentoERilascio() {
        Mouse(QTest::MousePress, QPoint(250, 70));
        Mouse(QTest::MouseMove, QPoint(400, 300));
        Mouse(QTest::MouseRelease, QPoint(400, 300));
        QCOMPARE(C("Memo1(1)").geometry(), QRect(325, 260, 150, 80));
        Seleziona({"Text1(1)", "Memo1(1)"});
        A().Form_DragDrop(C("Image1(1)"), QPoint(10, 5));
        QCOMPARE(C("Image1(1)").geometry(), QRect(0, 0, 120, 100));
        QCOMPARE(A().Selezione(), QStringList{"Image1(1)"});
        QVERIFY(!Disposizione().join(' ').contains("astray"));
    }

    // The layout starts where campi says, with no toolbar to make room for. Aligning with nothing
    // selected moves nothing yet counts as a change; sides align to the farthest
    // edge; Ctrl and Alt with the keypad's + and - resize by 10, the main keyboard's + does nothing.
    void comandi() {
        A().mnuAllineaAlto->trigger();
        QCOMPARE(Disposizione(), partenza);
        QVERIFY(!A().Salvato());
        Seleziona({"Text1(1)", "Memo1(1)", "Image1(1)"});
        A().mnuAllineaBasso->trigger();
        QCOMPARE(Disposizione(), (QStringList{"20,248 200x22", "240,190 150x80", partenza[2]}));
        Tasto(Qt::Key_Plus, Qt::ControlModifier | Qt::KeypadModifier);
        Tasto(Qt::Key_Minus, Qt::AltModifier | Qt::KeypadModifier);
        Tasto(Qt::Key_Plus, Qt::ControlModifier);
        QCOMPARE(Disposizione(), (QStringList{"20,248 210x12", "240,190 160x70", "60,170 130x90"}));
    }

    // The layout goes into campi through the field map; values are never touched. A control the map
    // does not know is skipped; a stale entry never reaches another collection.
    void salvataggio() {
        const qint32 estraneo = AggiungiCampo(CreaCollezione("Libri", QString()), {{"nome", "Autore"}});
        const QStringList valori = RigheSql("select * from valori");
        A().Form_DragDrop(C("Text1(1)"), QPoint(300, 211));
        Seleziona({"Memo1(1)", "Image1(1)"});
        A().mnuAumentaLarghezza50->trigger();
        RegistraCampo(m_id, "Memo1(1)", 0);
        RegistraCampo(m_id, "Image1(1)", estraneo);
        A().mnuSalva->trigger();
        QVERIFY(A().Salvato());
        QCOMPARE((QStringList{Archiviato(m_campi[0]), Archiviato(m_campi[1]), Archiviato(m_campi[2]),
                              Archiviato(estraneo)}),
                 (QStringList{"200,200 250x22", partenza[1], partenza[2], "10,30 120x21"}));
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
        A().mnuAumentaLarghezza10->trigger();
        A().mnuSalva->trigger();
        QCOMPARE(Archiviato(m_campi[1]) + " " + Archiviato(m_campi[2]),
                 QString("240,60 10x80 60,170 30x100"));
        Database().Esegui("create trigger blocca before update on campi when new.nome='image' "
                          "begin select raise(abort, 'vietato'); end");
        A().Form_DragDrop(C("Text1(1)"), QPoint(300, 300));
        A().mnuSalva->trigger();
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.TestiMessaggi().at(1), QString("vietato"));
        QCOMPARE(Archiviato(m_campi[0]), partenza[0]);
        QVERIFY(!A().Salvato());
    }

    // Closing a changed layout, even with Esc, asks whether to save it; Sì saves it and the window goes.
    void chiusura() {
        InterazioneScriptata script;
        script.Rispondi(Risposta::Si);
        Seleziona({"Text1(1)"});
        A().mnuAUmentaAltezza10->trigger();
        QTest::keyClick(m_finestra.get(), Qt::Key_Escape);
        QVERIFY(!m_finestra->isVisible());
        VERIFICA_SCRIPT(script);
        QCOMPARE(Archiviato(m_campi[0]), QString("20,40 200x32"));
    }
};

QTEST_MAIN(TestAnteprima)
#include "tst_anteprima.moc"
