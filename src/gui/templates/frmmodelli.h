#pragma once

#include <QDialog>

class QLabel;
class QListWidget;
class QListWidgetItem;
class QPushButton;

// The template gallery: the templates in the folder beside the program, each under its collection's
// name. Its list is built once, when it is made; its buttons hide it and it stays for the whole run,
// keeping the choice between showings.
class frmModelli final : public QDialog {
    Q_OBJECT

public:
    explicit frmModelli(QWidget* parent = nullptr);

    // The full path of the chosen template; empty when there is no choice.
    QString FileModelloDaImportare;

    QListWidget* Lv1;
    QLabel* lblDescrizione;
    QPushButton* cmdImporta;
    QPushButton* OKButton;
    QPushButton* CancelButton;

    // Annulla, Escape and the frame's close button alike: no choice.
    void reject() override;

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    void CreaControlli();
    void CollegaEventi();
    void CaricaElenco();
    void AggiungiVoce(const QString& testo, const QString& percorso, bool conIcona);
    QListWidgetItem* Selezionato() const;
    void Lv1_Click();
    void Lv1_DblClick();
    void Lv1_Elimina();
    void cmdImporta_Click();
};

// The gallery of this run, made on first use.
frmModelli& CaricaFrmModelli(QWidget* proprietario);
