#pragma once

#include <QDialog>

class QComboBox;
class QPushButton;
class QRadioButton;

// Which tables of a legacy archive to import: the name of the one shown in the list, "tutte" for
// all of them, empty when cancelled.
class frmScegliTabellaTarvino final : public QDialog {
    Q_OBJECT

public:
    explicit frmScegliTabellaTarvino(const QStringList& tabelle, QWidget* parent = nullptr);

    QString Risultato() const { return m_risultato; }
    void reject() override;

    QComboBox* cmbTabelle;
    QRadioButton* optOnlyOne;
    QRadioButton* OptTutte;
    QPushButton* OKButton;
    QPushButton* CancelButton;

private:
    void OKButton_Click();

    QString m_risultato;
};
