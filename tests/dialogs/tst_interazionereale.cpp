#include "dialogofile.h"
#include "interazionereale.h"
#include "interazionescriptata.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QTimer>
#include <QtTest>

// The real dialogs answered by a timer as a person would; the file wrapper through the script.
class TestInterazioneReale final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // A long text offered or typed comes back whole, past the line edit's usual 32,767-character limit.
    void inputBoxKeepsLongTextWhole() {
        const QString offerto = QString(40000, u'a') + "fine";
        QString mostrato;
        QTimer::singleShot(0, [&] {
            auto* dialogo = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
            QVERIFY(dialogo);
            auto* campo = dialogo->findChild<QLineEdit*>();
            mostrato = campo->text();
            campo->end(false);
            QTest::keyClicks(campo, "!");
            dialogo->accept();
        });
        QCOMPARE(InterazioneReale().InputBox("Valore:", "Prova", offerto), offerto + "!");
        QCOMPARE(mostrato, offerto);
    }

    // The NUL-separated filter becomes pairs, the mode is mapped, the answer is cut at its first NUL.
    void dialogoFileAsksWhatTheCallerSaid() {
        const QChar nul(u'\0');
        InterazioneScriptata script;
        script.File("/tmp/a.wzd" + QString(nul) + "resto").File({});
        const QString filtro = QStringList{"File di Modello", "*.wzd", "Tutti i files", "*.*"}.join(nul);
        QCOMPARE(DialogoFile(nullptr, 2, "Esporta", {}, filtro, "/tmp", "wzd"), QString("/tmp/a.wzd"));
        QCOMPARE(DialogoFile(nullptr, 1, "Apri", {}, filtro, {}, {}), QString());
        VERIFICA_SCRIPT(script);
        const RichiestaFile salva = script.Richieste().at(0).file;
        QCOMPARE(salva.filtri,
                 (QList<QPair<QString, QString>>{{"File di Modello", "*.wzd"}, {"Tutti i files", "*.*"}}));
        QCOMPARE(salva.estensione, QString("wzd"));
        QVERIFY(!salva.apertura && script.Richieste().at(1).file.apertura);
    }

    // The real save dialog adds the default extension to a typed name and starts in the given folder.
    void realSaveDialogAddsTheExtension() {
        QTemporaryDir cartella;
        QString iniziale;
        QTimer::singleShot(0, [&] {
            auto* dialogo = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            QVERIFY(dialogo);
            iniziale = dialogo->directory().absolutePath();
            dialogo->selectFile("copia");
            QMetaObject::invokeMethod(dialogo, "accept");
        });
        RichiestaFile richiesta;
        richiesta.apertura = false;
        richiesta.titolo = "File di Backup...";
        richiesta.filtri = {{"Files di Backup...", "*.dat"}};
        richiesta.cartellaIniziale = cartella.path();
        richiesta.estensione = "dat";
        QCOMPARE(InterazioneReale().SceltaFile(richiesta), cartella.filePath("copia.dat"));
        QCOMPARE(iniziale, QDir(cartella.path()).absolutePath());
    }
};

QTEST_MAIN(TestInterazioneReale)
#include "tst_interazionereale.moc"
