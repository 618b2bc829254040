#include "frmimportaext1.h"

#include "pulsantiimporta.h"

#include <QLabel>
#include <QRadioButton>

frmImportaExt1::frmImportaExt1(QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("frmImportaExt1"));
    setWindowTitle(QStringLiteral("Che tipo di file si intende importare?"));
    Option1 = Opzione("Option1", QStringLiteral("Record separati da  ;  (punto e virgola)"));
    Option2 = Opzione("Option2", QStringLiteral("Record separati da  ,  (virgola)"));
    Option3 = Opzione("Option3", QStringLiteral("Record separati da  TAB  (tabulatore)"));
    Option1->setChecked(true);
    Label1 = new QLabel(QStringLiteral(
        "Se intendi importare record presenti in tabelle EXCEL o ACCESS ricorda che dai suddetti programmi "
        "puoi tranquillamente esportare le tabelle che ti interessano in almeno uno dei 3 tipi di file "
        "supportati da Orvix for Tarvino"));
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setWordWrap(true);
    const PulsantiDialogo pulsanti = DisponiDialogoImporta(
        *this, QStringLiteral("Separatore dei valori"), {Option1, Option2, Option3}, Label1,
        [this] { OKButton_Click(); }, 460);
    OKButton = pulsanti.conferma;
    CancelButton = pulsanti.annulla;
}

void frmImportaExt1::OKButton_Click() {
    if (Option1->isChecked())
        m_risultato = QStringLiteral(";");
    else if (Option2->isChecked())
        m_risultato = QStringLiteral(",");
    else
        m_risultato = QStringLiteral("\t");
    accept();
}

void frmImportaExt1::reject() {
    m_risultato.clear();
    QDialog::reject();
}
