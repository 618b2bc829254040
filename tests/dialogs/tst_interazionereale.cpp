#include "interazionereale.h"

#include <QApplication>
#include <QInputDialog>
#include <QLineEdit>
#include <QTimer>
#include <QtTest>

// The real input box, answered by a timer as a person would.
class TestInterazioneReale final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // A long text offered or typed comes back whole: the line edit's usual 32,767-character limit
    // would cut it without a word.
    void inputBoxKeepsLongTextWhole() {
        const QString offerto = QString(40000, u'a') + QStringLiteral("fine");
        QString mostrato;
        QTimer::singleShot(0, [&] {
            auto* dialogo = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
            QVERIFY(dialogo);
            auto* campo = dialogo->findChild<QLineEdit*>();
            mostrato = campo->text();
            campo->end(false);
            QTest::keyClicks(campo, QStringLiteral("!"));
            dialogo->accept();
        });
        InterazioneReale reale;
        const QString risposta = reale.InputBox(QStringLiteral("Valore:"), QStringLiteral("Prova"), offerto);
        QCOMPARE(mostrato, offerto);
        QCOMPARE(risposta, offerto + QStringLiteral("!"));
    }
};

QTEST_MAIN(TestInterazioneReale)
#include "tst_interazionereale.moc"
