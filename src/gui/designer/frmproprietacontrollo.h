#pragma once

#include <QDialog>
#include <QStringList>

class QPlainTextEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

// The properties of a field being created: one row per property of the chosen control type,
// with its starting value, edited in place and checked on confirmation. Writes nothing itself.
class frmProprietaControllo final : public QDialog {
    Q_OBJECT

public:
    // The role that keeps each row's description.
    static constexpr int RuoloTag = Qt::UserRole;

    // campiElencati: the names the collections window lists for the current collection.
    frmProprietaControllo(const QString& tipo, const QStringList& campiElencati, QWidget* parent = nullptr);

    // End of an in-place edit of a row's value; the delegate commits through here.
    void FineModifica(QTreeWidgetItem* riga, const QString& nuovoTesto);
    void reject() override;

    QTreeWidget* LV1;
    QPlainTextEdit* Text1;
    QPushButton* cmdSCEGLI;
    QPushButton* cmdANNULLA;
    bool Confermato = false;

private:
    void CreaControlli();
    void CaricaRighe(const QString& tipo);
    void AggiungiRiga(const QString& proprieta, const QString& valore, const QString& descrizione);
    void MostraDescrizione(const QTreeWidgetItem* riga);
    void cmdSCEGLI_Click();
    bool Valida();

    QStringList m_campiElencati;
};
