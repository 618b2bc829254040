#include "archiviotemporaneo.h"
#include "campiprova.h"
#include "interazionescriptata.h"
#include "prune_pc.h"

#include "archivio.h"
#include "form1.h"
#include "listecontrolli.h"
#include "routinesql.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QListWidget>
#include <QMenu>
#include <QtTest>
#include <memory>

// "Esporta Collezione" from the collections window: where it sits, what it asks, what it writes.
class TestEsportaCollezione final : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ArchivioTemporaneo> m_archivio;
    std::unique_ptr<Form1> m_form;

    QString Percorso(const QString& nome) const { return QDir(m_archivio->Cartella()).filePath(nome); }

    void Scegli(const QString& collezione) {
        m_form->List1->setCurrentItem(m_form->List1->findItems(collezione, Qt::MatchExactly).at(0));
    }

private Q_SLOTS:
    void init() {
        m_archivio = std::make_unique<ArchivioTemporaneo>();
        const qint32 libri = CreaCollezione("Libri", QString());
        ScriviValore(AggiungiCampo(libri, {{"nome", "Titolo"}}), 1, "Perché");
        ScriviValore(AggiungiCampo(libri, {{"nome", "Anno"}}), 1, "1881");
        m_form = std::make_unique<Form1>();
        CaricaCollezioniInLista(*m_form->List1);
        m_form->show();
    }

    void cleanup() {
        m_form.reset();
        m_archivio.reset();
    }

    // "Esporta" in the collection menu opens the submenu whose first command is this one.
    void posizioneNelMenu() {
        const QList<QAction*> voci = m_form->mnuCollezioni->actions();
        const auto esporta =
            std::find_if(voci.begin(), voci.end(), [](QAction* a) { return a->text() == "Esporta"; });
        QVERIFY(esporta != voci.end());
        QCOMPARE((*esporta)->menu(), m_form->mnuEsporta1);
        QCOMPARE(m_form->mnuEsporta1->actions().value(0), m_form->mnuEsporta);
        QCOMPARE(m_form->mnuEsporta->text(), QString("Esporta &Collezione"));
    }

    // With no collection chosen nothing is asked; a cancelled dialog writes nothing; success says nothing.
    void esporta() {
        InterazioneScriptata script;
        m_form->mnuEsporta->trigger();
        VERIFICA_SCRIPT(script);
        QVERIFY(script.Richieste().isEmpty());
        Scegli("Libri");
        const QString file = Percorso("libri.txt");
        script.File("").File(file);
        m_form->mnuEsporta->trigger();
        QVERIFY(!QFile::exists(file));
        m_form->mnuEsporta->trigger();
        VERIFICA_SCRIPT(script);
        QCOMPARE(script.Richieste().size(), 2);
        QCOMPARE(DialogoFile(script.Richieste().at(0).file),
                 "salva|Esporta File...||" + AppPath() + "|txt|Tutti i files=*.*");
        QCOMPARE(Contenuto(file), QByteArray("Anno\tTitolo\r\n1881\tPerch\xe9\r\n"));
    }

    // A file that cannot be written: the message names it, the window stays.
    void fileNonScrivibile() {
        Scegli("Libri");
        const QString file = Percorso("manca/libri.txt");
        InterazioneScriptata script;
        script.File(file).Rispondi(Risposta::Ok);
        m_form->mnuEsporta->trigger();
        VERIFICA_SCRIPT(script);
        const Messaggio& messaggio = script.Richieste().at(1).messaggio;
        QVERIFY2(messaggio.testo.startsWith("Impossibile creare il file \"" + QDir::toNativeSeparators(file) +
                                            "\": "),
                 qPrintable(messaggio.testo));
        QCOMPARE(messaggio.icona, Icona::Critica);
        QVERIFY(m_form->isVisible());
    }
};

QTEST_MAIN(TestEsportaCollezione)
#include "tst_esportacollezione.moc"
