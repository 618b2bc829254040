#include "dialogofile.h"
#include "interazionereale.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTimer>
#include <QtTest>

// The real dialogs answered by a timer as a person would.
class TestInterazioneReale final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // A long text offered and typed to comes back whole, past the line edit's usual 32,767 characters.
    void inputBoxKeepsLongTextWhole() {
        const QString offerto = QString(40000, u'a') + "fine";
        QTimer::singleShot(0, [] {
            auto* campo = QApplication::activeModalWidget()->findChild<QLineEdit*>();
            campo->end(false);
            QTest::keyClicks(campo, "!");
            qobject_cast<QDialog*>(QApplication::activeModalWidget())->accept();
        });
        QCOMPARE(InterazioneReale().InputBox("Valore:", "Prova", offerto), offerto + "!");
    }

    // The real save dialog, reached through the wrapper with a NUL-separated filter, starts in the given
    // folder and adds the default extension to a typed name.
    void saveDialogAddsTheExtension() {
        const QString filtro = QStringList{"Files di Backup...", "*.dat"}.join(QChar(u'\0'));
        QTemporaryDir cartella;
        QTimer::singleShot(0, [&] {
            auto* dialogo = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            QCOMPARE(dialogo->directory().absolutePath(), QDir(cartella.path()).absolutePath());
            dialogo->selectFile("copia");
            QMetaObject::invokeMethod(dialogo, "accept");
        });
        QCOMPARE(DialogoFile(nullptr, 2, "Backup", {}, filtro, cartella.path(), "dat"),
                 cartella.filePath("copia.dat"));
    }
};

QTEST_MAIN(TestInterazioneReale)
#include "tst_interazionereale.moc"
