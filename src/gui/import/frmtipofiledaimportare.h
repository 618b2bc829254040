#pragma once

#include <QDialog>

class QPushButton;
class QRadioButton;

// Which kind of source an import starts from. Its result is "txt" for a text file, "dat" for a
// legacy archive, empty when cancelled.
class frmTipoFileDaImportare final : public QDialog {
    Q_OBJECT

public:
    explicit frmTipoFileDaImportare(QWidget* parent = nullptr);

    QString Risultato() const { return m_risultato; }
    void reject() override;

    QRadioButton* OptFile;
    QRadioButton* OptAir;
    QPushButton* OKButton;
    QPushButton* CancelButton;

private:
    void OKButton_Click();

    QString m_risultato;
};
