#pragma once

#include <QDialog>
#include <memory>

class CasellaFigura;
class QCheckBox;
class QPrinter;
class QPushButton;
class QScrollArea;

// "Anteprima di Stampa...": the chosen layout drawn into Pic1 as it will be printed, the options,
// the printer set-up and the print command.
class frmPreview final : public QDialog {
    Q_OBJECT

public:
    explicit frmPreview(QWidget* parent = nullptr);
    ~frmPreview() override;

    // The collection to print; the caller sets it before the dialog is shown.
    qint32 IdCollezione = -1;

    QCheckBox* Immagini;
    QCheckBox* NumeroRecord;
    QCheckBox* Tabulare;
    QScrollArea* Scorrimento;
    CasellaFigura* Pic1;
    QPushButton* cmdStampa;
    QPushButton* cmdImpostaStampante;
    QPushButton* cmdAnnulla;

    // The printer "STAMPA" prints to, as the set-up leaves it.
    QPrinter& Stampante() { return *m_stampante; }

    // Clears Pic1 and draws the layout the boxes choose.
    void Ridisegna();
    void Tabulare_Click();
    void cmdStampa_Click();
    void cmdImpostaStampante_Click();

private:
    void CreaControlli();
    void CollegaEventi();
    // Pic1 as wide as the printer's page and at least as tall.
    void AdattaPagina();
    // Scrolled to the bottom of what is drawn: Pic1 grows to twice its height and is drawn again.
    void Allunga();

    std::unique_ptr<QPrinter> m_stampante;
};
