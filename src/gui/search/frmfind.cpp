#include "frmfind.h"

#include "aprirecord.h"
#include "archivio.h"
#include "confine.h"
#include "interazione.h"
#include "risultatiricerca.h"
#include "sqlricerca.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>
#include <QVBoxLayout>

frmFind::frmFind(QWidget* parent)
    : QWidget(parent)
    , m_risultati(new RisultatiRicerca(this)) {
    setObjectName(QStringLiteral("frmFind"));
    setWindowTitle(QStringLiteral("Trova Record"));
    setAttribute(Qt::WA_DeleteOnClose);
    CreaControlli();
    connect(cmdGO, &QPushButton::clicked, this, Protetto([this] { cmdGO_Click(); }));
    connect(Text1, &QLineEdit::returnPressed, this, Protetto([this] { cmdGO_Click(); }));
    connect(Lv1, &QTreeView::doubleClicked, this, Protetto([this] { Lv1_DblClick(); }));
    resize(560, 440);
}

void frmFind::CreaControlli() {
    lbl1 = new QLabel(QStringLiteral("Seleziona il Nome del Campo nel quale desideri effettuare la Ricerca"));
    lbl1->setObjectName(QStringLiteral("lbl1"));
    Combo1 = new QComboBox;
    Combo1->setObjectName(QStringLiteral("Combo1"));
    lbl1->setBuddy(Combo1);
    Label1 = new QLabel(QStringLiteral("Inserisci qui sotto il testo (valore) che intendi ricercare"));
    Label1->setObjectName(QStringLiteral("Label1"));
    Text1 = new QLineEdit;
    Text1->setObjectName(QStringLiteral("Text1"));
    Label1->setBuddy(Text1);
    Esatta = new QCheckBox(QStringLiteral("Solo parole intere"));
    Esatta->setObjectName(QStringLiteral("Esatta"));
    cmdGO = new QPushButton(QStringLiteral("VAI"));
    cmdGO->setObjectName(QStringLiteral("cmdGO"));

    Lv1 = new QTreeView;
    Lv1->setObjectName(QStringLiteral("Lv1"));
    Lv1->setModel(m_risultati);
    Lv1->setRootIsDecorated(false);
    Lv1->setItemsExpandable(false);
    Lv1->setUniformRowHeights(true); // rows are laid out without measuring each one
    Lv1->setAllColumnsShowFocus(true);
    Lv1->setAlternatingRowColors(true);
    Lv1->setSelectionBehavior(QAbstractItemView::SelectRows);
    Lv1->setSelectionMode(QAbstractItemView::SingleSelection);
    Lv1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    QHeaderView* intestazione = Lv1->header();
    intestazione->setStretchLastSection(false);
    intestazione->setSectionResizeMode(0, QHeaderView::Stretch);
    const QFontMetrics metrica = Lv1->fontMetrics();
    const int margine = 4 * metrica.averageCharWidth();
    intestazione->resizeSection(1, metrica.horizontalAdvance(QStringLiteral("0000000")) + margine);
    for (int colonna : {2, 3})
        intestazione->resizeSection(colonna,
                                    metrica.horizontalAdvance(QStringLiteral("Modificato")) + margine);

    auto* testo = new QHBoxLayout;
    testo->addWidget(Text1, 1);
    testo->addWidget(cmdGO);
    auto* colonna = new QVBoxLayout(this);
    colonna->addWidget(lbl1);
    colonna->addWidget(Combo1);
    colonna->addSpacing(6);
    colonna->addWidget(Label1);
    colonna->addLayout(testo);
    colonna->addWidget(Esatta);
    colonna->addSpacing(6);
    colonna->addWidget(Lv1, 1);
}

void frmFind::cmdGO_Click() {
    const QString testo = Text1->text();
    if (testo.trimmed().isEmpty()) {
        MsgBox(QStringLiteral("Devi prima specificare cosa intendi cercare!"), Pulsanti::Ok,
               Icona::Esclamativa, QStringLiteral("Avviso..."));
        return;
    }
    if (Combo1->currentIndex() < 0)
        return;
    // An empty list does not invite a double click.
    m_risultati->Svuota();
    Lv1->setToolTip({});
    const QString nome = Combo1->currentText();
    Recordset campo = Database().ApriRecordset(SqlIdCampo(IdCollezione, nome));
    if (campo.Fine())
        return;
    const auto idCampo = static_cast<qint32>(campo.Campo(0).toLongLong());
    campo.Chiudi();
    if (idCampo == 0) {
        MsgBox(QStringLiteral("Errore inatteso IDCAMPO=") + QString::number(idCampo) +
               QStringLiteral(" non trovato!"));
        return;
    }
    m_risultati->ImpostaIntestazioneValore(nome);
    Recordset rs = Database().ApriRecordset(SqlRicerca(idCampo, testo, Esatta->isChecked()));
    m_risultati->Riempi(rs);
    if (m_risultati->rowCount() > 0)
        Lv1->setToolTip(
            QStringLiteral("Fai doppio click sul Record che ti interessa per Visualizzarne i Dettagli"));
}

void frmFind::Lv1_DblClick() {
    const QModelIndex scelto = Lv1->currentIndex();
    if (m_risultati->rowCount() == 0 || !scelto.isValid())
        return;
    const qint32 n = m_risultati->NumeroRecord(scelto.row());
    if (n <= 0)
        return;
    ApriRecord(IdCollezione, n);
}
