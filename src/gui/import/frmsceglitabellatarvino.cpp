#include "frmsceglitabellatarvino.h"

#include "pulsantiimporta.h"

#include <QComboBox>
#include <QRadioButton>

frmScegliTabellaTarvino::frmScegliTabellaTarvino(const QStringList& tabelle, QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("frmScegliTabellaTarvino"));
    setWindowTitle(QStringLiteral("Scegli le collezioni di Tarvino da importare"));
    cmbTabelle = new QComboBox;
    cmbTabelle->setObjectName(QStringLiteral("cmbTabelle"));
    cmbTabelle->addItems(tabelle);
    cmbTabelle->setCurrentIndex(tabelle.isEmpty() ? -1 : 0);
    optOnlyOne = Opzione("optOnlyOne", QStringLiteral("Importa solo la collezione scelta nell'elenco"));
    optOnlyOne->setChecked(true);
    OptTutte = Opzione("OptTutte", QStringLiteral("Importa tutte le collezioni dell'archivio"));
    const PulsantiDialogo pulsanti = DisponiDialogoImporta(
        *this, QStringLiteral("Collezioni dell'archivio"), {optOnlyOne, cmbTabelle, OptTutte}, nullptr,
        [this] { OKButton_Click(); }, 420);
    OKButton = pulsanti.conferma;
    CancelButton = pulsanti.annulla;
}

void frmScegliTabellaTarvino::OKButton_Click() {
    m_risultato = OptTutte->isChecked() ? QStringLiteral("tutte") : cmbTabelle->currentText();
    accept();
}

void frmScegliTabellaTarvino::reject() {
    m_risultato.clear();
    QDialog::reject();
}
