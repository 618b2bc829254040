#include "frmsceglitabellatarvino.h"

#include "confine.h"
#include "pulsantiimporta.h"

#include <QComboBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

frmScegliTabellaTarvino::frmScegliTabellaTarvino(const QStringList& tabelle, QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("frmScegliTabellaTarvino"));
    setWindowTitle(QStringLiteral("Scegli le collezioni di Tarvino da importare"));
    cmbTabelle = new QComboBox;
    cmbTabelle->setObjectName(QStringLiteral("cmbTabelle"));
    cmbTabelle->addItems(tabelle);
    cmbTabelle->setCurrentIndex(tabelle.isEmpty() ? -1 : 0);
    optOnlyOne = new QRadioButton(QStringLiteral("Importa solo la collezione scelta nell'elenco"));
    optOnlyOne->setObjectName(QStringLiteral("optOnlyOne"));
    optOnlyOne->setChecked(true);
    OptTutte = new QRadioButton(QStringLiteral("Importa tutte le collezioni dell'archivio"));
    OptTutte->setObjectName(QStringLiteral("OptTutte"));
    auto* gruppo = new QGroupBox(QStringLiteral("Collezioni dell'archivio"));
    auto* colonna = new QVBoxLayout(gruppo);
    colonna->addWidget(optOnlyOne);
    colonna->addWidget(cmbTabelle);
    colonna->addWidget(OptTutte);
    auto* contenuto = new QVBoxLayout;
    contenuto->addWidget(gruppo);
    const PulsantiDialogo pulsanti = DisponiDialogoImporta(*this, contenuto);
    OKButton = pulsanti.conferma;
    CancelButton = pulsanti.annulla;
    connect(OKButton, &QPushButton::clicked, this, Protetto([this] { OKButton_Click(); }));
    connect(CancelButton, &QPushButton::clicked, this, Protetto([this] { reject(); }));
    resize(420, sizeHint().height());
}

void frmScegliTabellaTarvino::OKButton_Click() {
    m_risultato = OptTutte->isChecked() ? QStringLiteral("tutte") : cmbTabelle->currentText();
    accept();
}

void frmScegliTabellaTarvino::reject() {
    m_risultato.clear();
    QDialog::reject();
}
