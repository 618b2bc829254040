#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class QRadioButton;

// The separator of a text file to import: ";", "," or a TAB; empty when cancelled.
class frmImportaExt1 final : public QDialog {
    Q_OBJECT

public:
    explicit frmImportaExt1(QWidget* parent = nullptr);

    QString Risultato() const { return m_risultato; }
    void reject() override;

    QRadioButton* Option1;
    QRadioButton* Option2;
    QRadioButton* Option3;
    QLabel* Label1;
    QPushButton* OKButton;
    QPushButton* CancelButton;

private:
    void OKButton_Click();

    QString m_risultato;
};
