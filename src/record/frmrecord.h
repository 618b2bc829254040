#pragma once

#include "finestracontrolli.h"
#include "finestre.h"

#include <QStyle>

class QAction;
class QMenu;
class QToolBar;

// The record window: one record of one collection at a time, browsed and edited from its toolbar.
class frmRecord final : public FinestraControlli, public FinestraConMenu {
    Q_OBJECT

public:
    explicit frmRecord(QWidget* parent = nullptr);

    qint32 CurrTabella = 0;
    qint32 RecordCorrente = 0;
    bool NuovoRecord = false;
    bool ModificaRecord = false;

    // Nine buttons keyed "first", "prev", "next", "last", "new", "del", "edit", "ok", "no".
    QToolBar* Toolbar1;
    QMenu* mnuFile;
    QAction* mnuTrova;
    QAction* mnuEsci;

    void Toolbar1_ButtonClick(const QString& chiave);
    void mnuTrova_Click();
    void mnuEsci_Click();
    void ImpostaStatoBottoni();
    void ImpostaStatoControlli();
    QAction* Pulsante(const QString& chiave) const;
    // Sizes the window, and its sub-window in the frame, to show every control.
    void AdattaAlContenuto();

    QList<QMenu*> MenuFinestra() const override;
    QSize sizeHint() const override;

protected:
    void Form_Load() override;
    void resizeEvent(QResizeEvent* evento) override;

private:
    QWidget& Contenitore();
    void CreaBarra();
    void AggiungiPulsante(const QString& chiave, QStyle::StandardPixmap icona, const QString& suggerimento);
    void AggiungiPulsante(const QString& chiave, const QIcon& icona, const QString& suggerimento);
    void CreaMenu();
    void Conferma();
    void Annulla();
    void Nuovo();
    void Modifica();
    void Elimina();
    void Ultimo();
    void Successivo();
    void Vai(qint32 numero);

    int m_larghezzaBarra = 0;
};

// The one record window, created when first needed; closing it destroys it.
frmRecord& FinestraRecord();
// The record window while it is loaded, or nullptr.
frmRecord* IstanzaRecord();
