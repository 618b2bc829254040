#pragma once

#include <QDialog>
#include <memory>

class CasellaFigura;
class QCheckBox;
class QPrinter;
class QPushButton;
class QScrollArea;
class QScrollBar;

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
    // Scrolls by records: its value is the number of records above the first one drawn, so a
    // position anywhere is drawn without drawing those before it.
    QScrollBar* Sfoglia;
    QPushButton* cmdStampa;
    QPushButton* cmdImpostaStampante;
    QPushButton* cmdAnnulla;

    // The printer "STAMPA" prints to, as the set-up leaves it.
    QPrinter& Stampante() { return *m_stampante; }

    // Clears Pic1 and draws the layout the boxes choose, from the record Sfoglia is at.
    void Ridisegna();
    void Tabulare_Click();
    void cmdStampa_Click();
    void cmdImpostaStampante_Click();

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    void CreaControlli();
    void CollegaEventi();
    // Pic1 as wide and as tall as the printer's page.
    void AdattaPagina();
    // Sfoglia's range from the record count, its page the records one drawing began.
    void AggiornaSfoglia(qint32 primo, qint32 ultimo);

    std::unique_ptr<QPrinter> m_stampante;
};
