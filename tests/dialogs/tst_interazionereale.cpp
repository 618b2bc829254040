#include "dialogofile.h"
#include "interazionereale.h"
#include "interazionescriptata.h"

#include <QApplication>
#include <QFileDialog>
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

    // The wrapper turns the NUL-separated filter into pairs, maps the mode and cuts the answer at
    // its first NUL.
    void dialogoFileAsksWhatTheCallerSaid() {
        InterazioneScriptata script;
        script.File(QStringLiteral("/tmp/a.wzd") + QChar(u'\0') + QStringLiteral("resto")).File({});
        const QString filtro = QStringLiteral("File di Modello") + QChar(u'\0') + QStringLiteral("*.wzd") +
                               QChar(u'\0') + QStringLiteral("Tutti i files") + QChar(u'\0') +
                               QStringLiteral("*.*");
        QCOMPARE(DialogoFile(nullptr, 2, QStringLiteral("Esporta"), {}, filtro, QStringLiteral("/tmp"),
                             QStringLiteral("wzd")),
                 QStringLiteral("/tmp/a.wzd"));
        QCOMPARE(DialogoFile(nullptr, 1, QStringLiteral("Apri"), {}, filtro, {}, {}), QString());
        VERIFICA_SCRIPT(script);
        const RichiestaFile salva = script.Richieste().at(0).file;
        QVERIFY(!salva.apertura);
        QCOMPARE(salva.filtri.size(), 2);
        QCOMPARE(salva.filtri.at(1).first, QStringLiteral("Tutti i files"));
        QCOMPARE(salva.filtri.at(1).second, QStringLiteral("*.*"));
        QCOMPARE(salva.estensione, QStringLiteral("wzd"));
        QVERIFY(script.Richieste().at(1).file.apertura);
    }

    // The real save dialog adds the default extension to a typed name and starts in the given folder.
    void realSaveDialogAddsTheExtension() {
        QTemporaryDir cartella;
        QString iniziale;
        QTimer::singleShot(0, [&] {
            auto* dialogo = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            QVERIFY(dialogo);
            iniziale = dialogo->directory().absolutePath();
            dialogo->selectFile(QStringLiteral("copia"));
            QMetaObject::invokeMethod(dialogo, "accept");
        });
        RichiestaFile richiesta;
        richiesta.apertura = false;
        richiesta.titolo = QStringLiteral("File di Backup...");
        richiesta.filtri = {{QStringLiteral("Files di Backup..."), QStringLiteral("*.dat")}};
        richiesta.cartellaIniziale = cartella.path();
        richiesta.estensione = QStringLiteral("dat");
        InterazioneReale reale;
        QCOMPARE(reale.SceltaFile(richiesta), cartella.filePath(QStringLiteral("copia.dat")));
        QCOMPARE(iniziale, QDir(cartella.path()).absolutePath());
    }
};

QTEST_MAIN(TestInterazioneReale)
#include "tst_interazionereale.moc"
