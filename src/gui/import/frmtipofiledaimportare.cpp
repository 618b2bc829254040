#include "frmtipofiledaimportare.h"

#include "pulsantiimporta.h"

#include <QRadioButton>

frmTipoFileDaImportare::frmTipoFileDaImportare(QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("frmTipoFileDaImportare"));
    setWindowTitle(QStringLiteral("Seleziona il tipo di File dal quale intendi partire..."));
    OptFile =
        Opzione("OptFile",
                QStringLiteral("File di testo (es. tabella esportata da programmi quali Excel, Access...)"));
    OptFile->setChecked(true);
    OptAir = Opzione("OptAir", QStringLiteral("Collezione di Tarvino"));
    // Wide enough for its whole caption.
    const PulsantiDialogo pulsanti = DisponiDialogoImporta(
        *this, QStringLiteral("Origine dei dati"), {OptFile, OptAir}, nullptr, [this] { OKButton_Click(); },
        520);
    OKButton = pulsanti.conferma;
    CancelButton = pulsanti.annulla;
}

void frmTipoFileDaImportare::OKButton_Click() {
    m_risultato = OptAir->isChecked() ? QStringLiteral("dat") : QStringLiteral("txt");
    accept();
}

void frmTipoFileDaImportare::reject() {
    m_risultato.clear();
    QDialog::reject();
}
