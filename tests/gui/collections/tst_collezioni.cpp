#include "archiviotemporaneo.h"
#include "barradistato.h"
#include "campiprova.h"
#include "interazionescriptata.h"
#include "letture.h"

#include "archivio.h"
#include "form1.h"
#include "grigliaproprieta.h"
#include "listecontrolli.h"
#include "programma.h"
#include "routinesql.h"

#include <QAction>
#include <QDialog>
#include <QDir>
#include <QPushButton>
#include <QtTest>
#include <filesystem>

namespace {

struct Finestra {
    explicit Finestra(int riga = 0) {
        CaricaCollezioniInLista(*form.List1);
        form.show();
        form.List1->setCurrentRow(riga);
    }
    Form1 form;
    InterazioneScriptata script;
};

// A file's bytes, or only the size of a shared index, which readers write to; "-" when it is not there.
QByteArray Impronta(const QString& percorso) {
    if (!QFile::exists(percorso))
        return "-";
    return percorso.endsWith("-shm") ? QByteArray::number(QFileInfo(percorso).size()) : Contenuto(percorso);
}

QByteArrayList FileArchivio(const QString& archivio) {
    QByteArrayList impronte;
    for (const char* suffisso : {"", "-wal", "-shm", "-journal"})
        impronte << Impronta(archivio + suffisso);
    return impronte;
}

} // namespace

class TestCollezioni final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // A duplicate is silently not created (a quote is the start-up test's); a new name is trimmed, stored
    // with its description and made current without a selection.
    void newCollectionIsTrimmedAndDuplicatesRefused() {
        ArchivioTemporaneo archivio;
        CreaCollezione(QStringLiteral("Dischi"), QString());
        Finestra f(-1);
        f.script.Digita(QStringLiteral("dischi")).Digita(QString()).Rispondi(Risposta::Ok);
        f.form.mnuNewCollection->trigger();
        QCOMPARE(Valori("select count(*) from collezioni"), "1");
        f.script.Digita(QStringLiteral("  Farfalle  "))
            .Digita(QStringLiteral(" europee "))
            .Modale([](QDialog& d) { d.findChild<QPushButton*>(QStringLiteral("cmdANNULLA"))->click(); });
        f.form.mnuNewCollection->trigger();
        VERIFICA_SCRIPT(f.script);
        QCOMPARE(Elencati(*f.form.List1), QStringList({"Dischi", "Farfalle"}));
        QCOMPARE(f.form.IdCollezioneCorrente(), f.form.List1->item(1)->data(Qt::UserRole).toInt());
        QVERIFY(f.form.List1->selectedItems().isEmpty());
        QCOMPARE(Valori("select descrizione from collezioni where nome='Farfalle'"), "europee");
    }

    // With a description the rename statement lacks its comma: the engine refuses it, the list shows the
    // new name and the store keeps the old one.
    void renameWithAndWithoutDescription() {
        ArchivioTemporaneo archivio;
        CreaCollezione(QStringLiteral("Dischi"), QStringLiteral("vecchia"));
        Finestra f;
        f.script.Digita(QStringLiteral(" Vinili d'epoca ")).Digita(QString());
        f.form.mnuRinominaCollezione->trigger();
        f.script.Digita(QStringLiteral("Dischi 2")).Digita(QStringLiteral("nuova")).Rispondi(Risposta::Ok);
        f.form.mnuRinominaCollezione->trigger();
        VERIFICA_SCRIPT(f.script);
        QVERIFY(f.script.TestiMessaggi().last().contains(QLatin1String("syntax error")));
        QCOMPARE(f.form.List1->item(0)->text(), QStringLiteral("Dischi 2"));
        QCOMPARE(Valori(QStringLiteral("select nome||'|'||descrizione from collezioni")),
                 QStringLiteral("Vinili d'epoca|vecchia"));
    }

    // No keeps the collection; Yes clears the lists, the grid and the current ids, and leaves its fields.
    void deleteAsksAndClearsEverything() {
        ArchivioTemporaneo archivio;
        const qint32 dischi = CreaCollezione(QStringLiteral("Dischi"), QString());
        CreaCollezione(QStringLiteral("Film"), QString());
        AggiungiCampo(dischi, {{"nome", "Titolo"}});
        Finestra f;
        f.form.List2->setCurrentRow(0);
        f.script.Rispondi(Risposta::No).Rispondi(Risposta::Si);
        f.form.mnuDelCollection->trigger();
        QCOMPARE(f.form.List1->count(), 2);
        QTest::keyClick(f.form.List1, Qt::Key_Delete);
        VERIFICA_SCRIPT(f.script);
        QCOMPARE(QList<int>({int(f.form.List1->count()), int(f.form.List2->count()),
                             f.form.Lv1->topLevelItemCount(), f.form.IdCollezioneCorrente(),
                             f.form.IdCampoCorrente()}),
                 QList<int>({1, 0, 0, -1, -1}));
        QCOMPARE(Valori("select (select count(*) from collezioni), (select count(*) from campi)"), "1;1");
    }

    // "Esporta Collezione" writes the current collection where chosen, and nothing when cancelled.
    void exportWritesTheChosenFile() {
        ArchivioTemporaneo archivio;
        ScriviValore(AggiungiCampo(CreaCollezione("Libri", QString()), {{"nome", "Titolo"}}), 1, "Perché");
        Finestra f;
        const QString file = QDir(archivio.Cartella()).filePath("libri.txt");
        f.script.File("").File(file);
        f.form.mnuEsporta->trigger();
        QVERIFY(!QFile::exists(file));
        BarraDiStato barra;
        f.form.mnuEsporta->trigger();
        VERIFICA_SCRIPT(f.script);
        QCOMPARE(Contenuto(file), QByteArray("Titolo\r\nPerch\xe9\r\n"));
        QCOMPARE(barra.testi, QStringList{"Collezione esportata in " + QDir::toNativeSeparators(file)});
    }

    // No command writes over the store, the files beside it or the program's lock, by whatever name the
    // file is chosen: it says so before writing a byte, and the store opens again as it was.
    void storeIsNeverAWriteTarget_data() {
        QTest::addColumn<QString>("comando");
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QString>("motivo");
        const QString archivio("è l'archivio delle collezioni in uso.");
        const QString accessorio("è un file dell'archivio delle collezioni in uso.");
        const QList<std::pair<const char*, QString>> casi{
            {"store", "personalizza.orx"},     {"log", "personalizza.orx-wal"},
            {"index", "personalizza.orx-shm"}, {"journal", "personalizza.orx-journal"},
            {"link", "collegamento"},          {"dotdot", "sotto/../personalizza.orx"},
            {"hard link", "stesso"},           {"lock", ""}};
        for (const char* comando : {"mnuEsporta", "mnuEsportaModello", "mnuBackup"})
            for (const auto& [caso, nome] : casi) {
                const QString motivo = nome.isEmpty() ? QString("è il file che impedisce di avviare il "
                                                                "programma due volte.")
                                       : nome.contains('-') ? accessorio
                                                            : archivio;
                QTest::addRow("%s %s", comando, caso) << QString::fromLatin1(comando) << nome << motivo;
            }
    }
    void storeIsNeverAWriteTarget() {
        QFETCH(QString, comando);
        QFETCH(QString, nome);
        QFETCH(QString, motivo);
        ArchivioTemporaneo archivio;
        ScriviValore(AggiungiCampo(CreaCollezione("Libri", QString()), {{"nome", "Titolo"}}), 1, "Perché");
        const QDir cartella(archivio.Cartella());
        QVERIFY(cartella.mkdir("sotto"));
        QVERIFY(QFile::link(archivio.PercorsoArchivio(), cartella.filePath("collegamento")));
        std::filesystem::create_hard_link(archivio.PercorsoArchivio().toStdString(),
                                          cartella.filePath("stesso").toStdString());
        const QString bersaglio = nome.isEmpty() ? Programma::FileIstanza() : cartella.filePath(nome);
        const QByteArray prima = Impronta(bersaglio);
        const QByteArrayList archivioPrima = FileArchivio(archivio.PercorsoArchivio());
        Finestra f;
        BarraDiStato barra;
        f.script.File(bersaglio).Rispondi(Risposta::Ok);
        f.form.findChild<QAction*>(comando)->trigger();
        VERIFICA_SCRIPT(f.script);
        QCOMPARE(f.script.TestiMessaggi(), QStringList{"Non è possibile scrivere su " +
                                                       QDir::toNativeSeparators(bersaglio) + ": " + motivo});
        QVERIFY(barra.testi.isEmpty());
        QCOMPARE(FileArchivio(archivio.PercorsoArchivio()), archivioPrima);
        QCOMPARE(Impronta(bersaglio), prima);
        ChiudiDatabase();
        ApriDatabase(archivio.Cartella());
        QCOMPARE(RigheSql("select valore from valori"), QStringList{"Perché"});
    }

    // With no store open (a failed restore leaves the program so), every command that would ask
    // something first says so before asking: no name, file, type or confirmation is typed in vain.
    void withoutAStoreNothingIsAskedFirst() {
        ArchivioTemporaneo archivio;
        AggiungiCampo(CreaCollezione(QStringLiteral("Dischi"), QString()), {{"nome", "Titolo"}});
        Finestra f;
        f.form.List2->setCurrentRow(0);
        ChiudiDatabase();
        const QList<QAction*> comandi{f.form.mnuNewCollection,  f.form.mnuNuovaColleazioneDaModello,
                                      f.form.mnuEsportaModello, f.form.mnuRinominaCollezione,
                                      f.form.mnuDelCollection,  f.form.mnuEsporta,
                                      f.form.mnuNewCampo,       f.form.mnuElliminaCampo};
        for (QAction* comando : comandi) {
            f.script.Rispondi(Risposta::Ok);
            comando->trigger();
        }
        VERIFICA_SCRIPT(f.script);
        QCOMPARE(f.script.TestiMessaggi(),
                 QStringList(comandi.size(), QStringLiteral("Il database non è aperto")));
    }
};

QTEST_MAIN(TestCollezioni)
#include "tst_collezioni.moc"
