#pragma once

#include <QDialog>
#include <array>

class QLabel;
class QPushButton;
class QRadioButton;

// The control-type chooser of a new field. Its result is the chosen type word; empty means
// the user cancelled.
class FrmScegliCampi final : public QDialog {
    Q_OBJECT

public:
    explicit FrmScegliCampi(QWidget* parent = nullptr);

    QString Risultato() const { return m_risultato; }
    void reject() override;

    QRadioButton* Option1 = nullptr;
    QRadioButton* Option2 = nullptr;
    QRadioButton* Option3 = nullptr;
    QRadioButton* Option4 = nullptr;
    QRadioButton* Option5 = nullptr;
    QRadioButton* Option6 = nullptr;
    QRadioButton* Option7 = nullptr;
    // One preview per option, in the same order; only the chosen one is visible.
    std::array<QLabel*, 7> Pic1{};
    QPushButton* cmdSCEGLI;
    QPushButton* cmdANNULLA;

private:
    QWidget* CreaOpzioni();
    std::array<QRadioButton*, 7> Opzioni() const;
    QWidget* CreaAnteprime();
    void MostraAnteprima(int indice);
    void cmdSCEGLI_Click();

    QLabel* m_suggerimento = nullptr;
    QString m_risultato;
};
