#include "form1.h"

#include "aprianteprima.h"
#include "aprirecord.h"
#include "apriricerca.h"
#include "archivio.h"
#include "comandibackup.h"
#include "comandicampi.h"
#include "comandimodelli.h"
#include "comandostampa.h"
#include "confine.h"
#include "esportacollezione.h"
#include "grigliaproprieta.h"
#include "importa.h"
#include "interazione.h"
#include "listecontrolli.h"
#include "routinesql.h"

#include <QAction>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPointer>
#include <QSignalBlocker>

namespace {

QPointer<Form1>& Istanza() {
    static QPointer<Form1> istanza;
    return istanza;
}

QLabel* Intestazione(const QString& testo, QWidget* buddy) {
    auto* etichetta = new QLabel(testo);
    QFont carattere = etichetta->font();
    carattere.setBold(true);
    etichetta->setFont(carattere);
    etichetta->setBuddy(buddy);
    return etichetta;
}

} // namespace

Form1* IstanzaForm1() {
    return Istanza().data();
}

Form1& CaricaForm1() {
    if (!Istanza())
        Istanza() = new Form1;
    return *Istanza();
}

Form1::Form1(QWidget* parent)
    : QWidget(parent) {
    setObjectName(QStringLiteral("Form1"));
    setWindowTitle(QStringLiteral("Gestione Collezioni"));
    setAttribute(Qt::WA_DeleteOnClose);
    CreaControlli();
    CreaMenu();
    CollegaEventi();
    resize(820, 460);
}

void Form1::CreaControlli() {
    List1 = new QListWidget;
    List1->setObjectName(QStringLiteral("List1"));
    List2 = new QListWidget;
    List2->setObjectName(QStringLiteral("List2"));
    Lv1 = new GrigliaProprieta(*this);
    Lv1->setObjectName(QStringLiteral("Lv1"));

    auto* griglia = new QGridLayout(this);
    griglia->addWidget(Intestazione(QStringLiteral("Collezioni Create"), List1), 0, 0);
    griglia->addWidget(Intestazione(QStringLiteral("Campi della Collezione"), List2), 0, 1);
    griglia->addWidget(Intestazione(QStringLiteral("Proprietà del Campo della Collezione"), Lv1), 0, 2);
    griglia->addWidget(List1, 1, 0);
    griglia->addWidget(List2, 1, 1);
    griglia->addWidget(Lv1, 1, 2);
    griglia->setColumnStretch(0, 3);
    griglia->setColumnStretch(1, 3);
    griglia->setColumnStretch(2, 5);
}

QAction* Form1::Voce(QMenu* menu, const char* nome, const QString& testo) {
    QAction* azione = menu->addAction(testo);
    azione->setObjectName(QLatin1String(nome));
    return azione;
}

void Form1::CreaMenu() {
    mnuCollezioni = new QMenu(QStringLiteral("Collezione"), this);
    mnuCollezioni->setObjectName(QStringLiteral("mnuCollezioni"));
    mnuNewCollection = Voce(mnuCollezioni, "mnuNewCollection", QStringLiteral("Nuova"));
    mnuNuovaColleazioneDaModello =
        Voce(mnuCollezioni, "mnuNuovaColleazioneDaModello", QStringLiteral("Nuova da Modello..."));
    mnuRinominaCollezione = Voce(mnuCollezioni, "mnuRinominaCollezione", QStringLiteral("Rinomina"));
    mnuDelCollection = Voce(mnuCollezioni, "mnuDelCollection", QStringLiteral("Elimina"));
    mnuCollezioni->addSeparator()->setObjectName(QStringLiteral("mnuSep2"));
    mnuInserisciRecord = Voce(mnuCollezioni, "mnuInserisciRecord", QStringLiteral("Inserisci Record"));
    mnuCollezioni->addSeparator()->setObjectName(QStringLiteral("mnuSep1"));
    mnuEsporta1 = mnuCollezioni->addMenu(QStringLiteral("Esporta"));
    mnuEsporta1->setObjectName(QStringLiteral("mnuEsporta1"));
    mnuEsporta1->menuAction()->setObjectName(QStringLiteral("mnuEsporta1"));
    mnuEsporta = Voce(mnuEsporta1, "mnuEsporta", QStringLiteral("Esporta &Collezione"));
    mnuEsportaModello = Voce(mnuEsporta1, "mnuEsportaModello", QStringLiteral("Esporta &Modello"));
    mnuImportaStrutturaeDati = Voce(mnuCollezioni, "mnuImportaStrutturaeDati", QStringLiteral("Importa..."));
    mnuStampa = Voce(mnuCollezioni, "mnuStampa", QStringLiteral("Stampa..."));
    mnuCollezioni->addSeparator()->setObjectName(QStringLiteral("mnusep4"));
    mnuEseguiRicerca = Voce(mnuCollezioni, "mnuEseguiRicerca", QStringLiteral("Esegui Ricerca"));
    mnuCollezioni->addSeparator()->setObjectName(QStringLiteral("mnusepBack"));
    mnuBackup = Voce(mnuCollezioni, "mnuBackup", QStringLiteral("Backup"));
    mnuRestore = Voce(mnuCollezioni, "mnuRestore", QStringLiteral("Restore"));

    mnuCampi = new QMenu(QStringLiteral("Campi"), this);
    mnuCampi->setObjectName(QStringLiteral("mnuCampi"));
    mnuNewCampo = Voce(mnuCampi, "mnuNewCampo", QStringLiteral("Crea Nuovo Campo"));
    mnuElliminaCampo = Voce(mnuCampi, "mnuElliminaCampo", QStringLiteral("Elimina Campo"));
    mnuCampi->addSeparator()->setObjectName(QStringLiteral("mnusepCampi"));
    mnuPermettiModifichePropCampi =
        Voce(mnuCampi, "mnuPermettiModifichePropCampi", QStringLiteral("Consenti Modifica Proprietà"));
    mnuPermettiModifichePropCampi->setCheckable(true);
    mnuAnteprima = Voce(mnuCampi, "mnuAnteprima", QStringLiteral("Visualizza in Anteprima"));
}

void Form1::CollegaEventi() {
    connect(mnuNewCollection, &QAction::triggered, this, Protetto([this] { mnuNewCollection_Click(); }));
    connect(mnuNuovaColleazioneDaModello, &QAction::triggered, this,
            Protetto([this] { NuovaCollezioneDaModello(this, *List1); }));
    connect(mnuEsportaModello, &QAction::triggered, this,
            Protetto([this] { EsportaModello(this, m_idCollezione); }));
    connect(mnuRinominaCollezione, &QAction::triggered, this,
            Protetto([this] { mnuRinominaCollezione_Click(); }));
    connect(mnuDelCollection, &QAction::triggered, this, Protetto([this] { mnuDelCollection_Click(); }));
    connect(mnuInserisciRecord, &QAction::triggered, this, Protetto([this] { InserisciRecord(*List1); }));
    connect(mnuEsporta, &QAction::triggered, this,
            Protetto([this] { EsportaCollezione(this, m_idCollezione); }));
    connect(mnuStampa, &QAction::triggered, this, Protetto([this] { ApriStampa(m_idCollezione, this); }));
    connect(mnuImportaStrutturaeDati, &QAction::triggered, this,
            Protetto([this] { ImportaStrutturaeDati(*List1); }));
    connect(mnuEseguiRicerca, &QAction::triggered, this, Protetto([this] { mnuEseguiRicerca_Click(); }));
    connect(mnuBackup, &QAction::triggered, this, Protetto([this] { Backup(this); }));
    connect(mnuRestore, &QAction::triggered, this, Protetto([this] { Restore(this); }));
    connect(mnuNewCampo, &QAction::triggered, this, Protetto([this] { CreaNuovoCampo(*this); }));
    connect(mnuElliminaCampo, &QAction::triggered, this, Protetto([this] { EliminaCampo(*this); }));
    connect(mnuPermettiModifichePropCampi, &QAction::toggled, this,
            Protetto([this](bool consentita) { Lv1->ImpostaModificaConsentita(consentita); }));
    connect(mnuAnteprima, &QAction::triggered, this,
            Protetto([this] { ApriAnteprima(m_idCollezione, this); }));

    connect(List1, &QListWidget::itemSelectionChanged, this, Protetto([this] { List1_Click(); }));
    connect(List1, &QListWidget::itemDoubleClicked, this, Protetto([this] { InserisciRecord(*List1); }));
    connect(List2, &QListWidget::itemSelectionChanged, this, Protetto([this] { List2_Click(); }));
    for (QListWidget* lista : {List1, List2}) {
        lista->installEventFilter(this);
        lista->viewport()->installEventFilter(this);
    }
}

QList<QMenu*> Form1::MenuFinestra() const {
    return {mnuCollezioni, mnuCampi};
}

bool Form1::SelezionatoIn(const QListWidget& lista) const {
    return lista.count() > 0 && !lista.selectedItems().isEmpty();
}

void Form1::List1_Click() {
    if (!SelezionatoIn(*List1))
        return;
    const QListWidgetItem* elemento = List1->selectedItems().constFirst();
    m_nomeCollezione = elemento->text();
    m_idCollezione = elemento->data(Qt::UserRole).toInt();
    const QSignalBlocker blocco(List2);
    CaricaCampiInLista(m_idCollezione, *List2);
}

void Form1::List2_Click() {
    if (!SelezionatoIn(*List2))
        return;
    m_idCampo = List2->selectedItems().constFirst()->data(Qt::UserRole).toInt();
    Lv1->Riempi(m_idCampo, m_idCollezione);
}

bool Form1::eventFilter(QObject* oggetto, QEvent* evento) {
    const bool inList1 = oggetto == List1 || oggetto == List1->viewport();
    const bool inList2 = oggetto == List2 || oggetto == List2->viewport();
    if (!inList1 && !inList2)
        return QWidget::eventFilter(oggetto, evento);
    if (evento->type() == QEvent::KeyRelease && static_cast<QKeyEvent*>(evento)->key() == Qt::Key_Delete) {
        EseguiProtetto([&] { inList1 ? mnuDelCollection_Click() : EliminaCampo(*this); });
        return true;
    }
    if (evento->type() == QEvent::MouseButtonRelease) {
        const auto* mouse = static_cast<QMouseEvent*>(evento);
        if (mouse->button() == Qt::RightButton) {
            QWidget* area = inList1 ? List1->viewport() : List2->viewport();
            MostraPopup(inList1 ? mnuCollezioni : mnuCampi, area, mouse->position().toPoint());
            return true;
        }
    }
    return QWidget::eventFilter(oggetto, evento);
}

void Form1::MostraPopup(QMenu* menu, QWidget* sopra, const QPoint& punto) {
    menu->popup(sopra->mapToGlobal(punto));
}

void Form1::mnuNewCollection_Click() {
    RichiediDatabase();
    const QString nome =
        InputBox(QStringLiteral("Digita il nome della nuova Collezione?"), QStringLiteral("Cosa collezioni?"))
            .trimmed();
    if (nome.isEmpty())
        return;
    const QString descrizione =
        InputBox(
            QStringLiteral("Se desideri puoi anche accompagnare alla tua collezione una breve descrizione?"),
            QStringLiteral("Descrivi la tua collezione"))
            .trimmed();
    const qint32 id = CreaCollezione(nome, descrizione);
    if (id > 0) {
        auto* elemento = new QListWidgetItem(nome, List1);
        elemento->setData(Qt::UserRole, id);
        m_idCollezione = id;
    }
    // The user goes straight on to the first field, whether or not the name was new.
    CreaNuovoCampo(*this);
}

void Form1::mnuRinominaCollezione_Click() {
    if (m_idCollezione < 0) {
        MsgBox(QStringLiteral("Selezionare una Collezione dall'apposita Lista!"));
        return;
    }
    RichiediDatabase();
    QListWidgetItem* selezionato =
        List1->selectedItems().isEmpty() ? nullptr : List1->selectedItems().constFirst();
    const QString nome =
        InputBox(QStringLiteral("Digita il nuovo Nome della Collezione:"), QStringLiteral("Nuovo nome..."),
                 selezionato ? selezionato->text() : QString())
            .trimmed();
    if (nome.isEmpty())
        return;
    const QString descrizione =
        InputBox(QStringLiteral("E' possibile modificare anche la descrizione della Collezione selezionata:"),
                 QStringLiteral("Nuova Descrizione..."));
    if (selezionato)
        selezionato->setText(nome);
    const QString dove = QStringLiteral(" where id=") + QString::number(m_idCollezione);
    if (!descrizione.isEmpty()) {
        // The statement has no comma between the two assignments: the engine refuses it and the
        // failure reaches the user, while the list already shows the new name.
        Database().Esegui(QStringLiteral("Update collezioni set nome='") + Quote(nome) +
                          QStringLiteral("' descrizione='") + Quote(descrizione) + QStringLiteral("'") +
                          dove);
    } else {
        Database().Esegui(QStringLiteral("Update collezioni set nome='") + Quote(nome) + QStringLiteral("'") +
                          dove);
    }
}

void Form1::mnuDelCollection_Click() {
    if (!SelezionatoIn(*List1))
        return;
    RichiediDatabase();
    if (MsgBox(QStringLiteral("Sicuro di voler cancellare definitivamente la collezione selezionata?"),
               Pulsanti::SiNoAnnulla, Icona::Domanda, QStringLiteral("Attenzione!"), 2) != Risposta::Si)
        return;
    QListWidgetItem* selezionato = List1->selectedItems().constFirst();
    Recordset rs = Database().ApriRecordset(QStringLiteral("select * from collezioni where id=") +
                                            QString::number(selezionato->data(Qt::UserRole).toInt()));
    rs.Elimina();
    rs.Chiudi();
    {
        const QSignalBlocker blocco(List1);
        delete selezionato;
        List1->clearSelection();
        List1->setCurrentRow(-1);
    }
    {
        const QSignalBlocker blocco(List2);
        List2->clear();
    }
    Lv1->Svuota();
    m_idCollezione = -1;
    m_idCampo = -1;
}

void Form1::mnuEseguiRicerca_Click() {
    if (m_idCollezione < 0) {
        MsgBox(QStringLiteral("Selezionare una Collezione dall'apposita Lista"));
        return;
    }
    if (List2->count() == 0) {
        MsgBox(QStringLiteral("Nella collezione non è presente nemmeno un campo!"));
        return;
    }
    ApriRicerca(m_idCollezione);
}
