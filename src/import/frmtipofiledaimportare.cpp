#include "frmtipofiledaimportare.h"

#include "confine.h"
#include "pulsantiimporta.h"

#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

frmTipoFileDaImportare::frmTipoFileDaImportare(QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("frmTipoFileDaImportare"));
    setWindowTitle(QStringLiteral("Seleziona il tipo di File dal quale intendi partire..."));
    OptFile = new QRadioButton(
        QStringLiteral("File di testo (es. tabella esportata da programmi quali Excel, Access...)"));
    OptFile->setObjectName(QStringLiteral("OptFile"));
    OptFile->setChecked(true);
    OptAir = new QRadioButton(QStringLiteral("Collezione di Tarvino"));
    OptAir->setObjectName(QStringLiteral("OptAir"));
    auto* gruppo = new QGroupBox(QStringLiteral("Origine dei dati"));
    auto* opzioni = new QVBoxLayout(gruppo);
    opzioni->addWidget(OptFile);
    opzioni->addWidget(OptAir);
    auto* contenuto = new QVBoxLayout;
    contenuto->addWidget(gruppo);
    const PulsantiDialogo pulsanti = DisponiDialogoImporta(*this, contenuto);
    OKButton = pulsanti.conferma;
    CancelButton = pulsanti.annulla;
    connect(OKButton, &QPushButton::clicked, this, Protetto([this] { OKButton_Click(); }));
    connect(CancelButton, &QPushButton::clicked, this, Protetto([this] { reject(); }));
    // Wide enough for its whole caption.
    resize(520, sizeHint().height());
}

void frmTipoFileDaImportare::OKButton_Click() {
    m_risultato = OptAir->isChecked() ? QStringLiteral("dat") : QStringLiteral("txt");
    accept();
}

void frmTipoFileDaImportare::reject() {
    m_risultato.clear();
    QDialog::reject();
}
