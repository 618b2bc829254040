#include "frmimportaext1.h"

#include "confine.h"
#include "pulsantiimporta.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

QRadioButton* Opzione(const char* nome, const QString& testo, QLayout& colonna) {
    auto* opzione = new QRadioButton(testo);
    opzione->setObjectName(QLatin1String(nome));
    colonna.addWidget(opzione);
    return opzione;
}

} // namespace

frmImportaExt1::frmImportaExt1(QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("frmImportaExt1"));
    setWindowTitle(QStringLiteral("Che tipo di file si intende importare?"));
    auto* gruppo = new QGroupBox(QStringLiteral("Separatore dei valori"));
    auto* opzioni = new QVBoxLayout(gruppo);
    Option1 = Opzione("Option1", QStringLiteral("Record separati da  ;  (punto e virgola)"), *opzioni);
    Option2 = Opzione("Option2", QStringLiteral("Record separati da  ,  (virgola)"), *opzioni);
    Option3 = Opzione("Option3", QStringLiteral("Record separati da  TAB  (tabulatore)"), *opzioni);
    Option1->setChecked(true);
    Label1 = new QLabel(QStringLiteral(
        "Se intendi importare record presenti in tabelle EXCEL o ACCESS ricorda che dai suddetti programmi "
        "puoi tranquillamente esportare le tabelle che ti interessano in almeno uno dei 3 tipi di file "
        "supportati da Orvix for Tarvino"));
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setWordWrap(true);
    auto* contenuto = new QVBoxLayout;
    contenuto->addWidget(gruppo);
    contenuto->addWidget(Label1);
    const PulsantiDialogo pulsanti = DisponiDialogoImporta(*this, contenuto);
    OKButton = pulsanti.conferma;
    CancelButton = pulsanti.annulla;
    connect(OKButton, &QPushButton::clicked, this, Protetto([this] { OKButton_Click(); }));
    connect(CancelButton, &QPushButton::clicked, this, Protetto([this] { reject(); }));
    resize(460, sizeHint().height());
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
