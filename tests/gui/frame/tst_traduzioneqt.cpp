#include "traduzioneqt.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QtTest>

// Qt's standard buttons and dialogs speak Italian, as the program's own windows do.
class TestTraduzioneQt final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void standardButtonsReadInItalian() {
        QDialogButtonBox prima(QDialogButtonBox::Cancel);
        QCOMPARE(prima.button(QDialogButtonBox::Cancel)->text(), QStringLiteral("Cancel"));
        QVERIFY(CaricaTraduzioneQt());
        QVERIFY(CaricaTraduzioneQt()); // a second call keeps the one installed
        QDialogButtonBox pulsanti(QDialogButtonBox::Cancel | QDialogButtonBox::Yes | QDialogButtonBox::Save);
        QCOMPARE(pulsanti.button(QDialogButtonBox::Cancel)->text(), QStringLiteral("Annulla"));
        QCOMPARE(pulsanti.button(QDialogButtonBox::Yes)->text().remove(u'&'), QStringLiteral("Sì"));
        QCOMPARE(pulsanti.button(QDialogButtonBox::Save)->text().remove(u'&'), QStringLiteral("Salva"));
    }
};

QTEST_MAIN(TestTraduzioneQt)
#include "tst_traduzioneqt.moc"
