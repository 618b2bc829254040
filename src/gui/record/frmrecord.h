#pragma once

#include "finestracontrolli.h"
#include "finestre.h"

#include <QPixmap>
#include <QStyle>

class Immagine;
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
    QAction* mnuElenco;
    QAction* mnuClipBoard;
    QAction* mnuStampa;
    QAction* mnuEsci;
    QMenu* mnuOpzioni;
    QMenu* mnuColori;
    QAction* mnuColoreTestoEtichette;
    QAction* mnuColoreSfondoEtichette;
    QAction* mnuColoreSfondo;
    QAction* mnuColoreTestoControlli;
    QMenu* mnuImmagineSfondo;
    QAction* mnuScegliImmagine;
    QAction* mnuRimuovi;

    void Toolbar1_ButtonClick(const QString& chiave);
    void mnuTrova_Click();
    void mnuElenco_Click();
    void mnuClipBoard_Click();
    void mnuStampa_Click();
    void mnuEsci_Click();
    // A colour menu: the chosen colour is stored under its key and shown at once.
    void mnuColore_Click(const QString& chiave);
    void mnuScegliImmagine_Click();
    void mnuRimuovi_Click();
    void Image1_Click(Immagine& immagine);
    // Every time the window becomes active: the collection's colours and background picture.
    void Form_Activate();
    const QPixmap& ImmagineSfondo() const { return m_sfondo; }
    void ImpostaStatoBottoni();
    void ImpostaStatoControlli();
    QAction* Pulsante(const QString& chiave) const;
    // Sizes the window, and its sub-window in the frame, to show every control.
    void AdattaAlContenuto();

    QList<QMenu*> MenuFinestra() const override;
    QSize sizeHint() const override;

protected:
    void Form_Load() override;
    void ElementoCaricato(QWidget& elemento) override;
    bool event(QEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void paintEvent(QPaintEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;

private:
    QWidget& Contenitore();
    void CreaBarra();
    void AggiungiPulsante(const QString& chiave, QStyle::StandardPixmap icona, const QString& suggerimento);
    void AggiungiPulsante(const QString& chiave, const QIcon& icona, const QString& suggerimento);
    void CreaMenu();
    void CreaMenuOpzioni();
    QAction* Voce(QMenu* menu, const char* nome, const QString& testo);
    void CaricaSfondo();
    void SeguiAttivazione();
    void Conferma();
    void Annulla();
    void Nuovo();
    void Modifica();
    void Elimina();
    void Ultimo();
    void Successivo();
    void Vai(qint32 numero);

    int m_larghezzaBarra = 0;
    QPixmap m_sfondo;
    QString m_percorsoSfondo;
};

// The one record window, created when first needed; closing it destroys it.
frmRecord& FinestraRecord();
// The record window while it is loaded, or nullptr.
frmRecord* IstanzaRecord();
