#pragma once

#include "finestracontrolli.h"

#include <QPointer>
#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

class CorniceSelezione;
class QAction;
class QMenu;
class QRubberBand;

// The layout designer: a collection's record form, built as the record window is, whose controls
// are selected, dragged, aligned and resized, and whose layout is written back into campi. The
// field controls only show where they are: clicks, keys and the wheel belong to the designer.
// ContenitoreAnteprima hosts it and asks Form_QueryUnload before closing.
class frmAnteprima final : public FinestraControlli {
    Q_OBJECT

public:
    explicit frmAnteprima(QWidget* parent = nullptr);
    ~frmAnteprima() override;

    // The collection shown; the opener sets it once the form is built.
    qint32 IdCollezione = -1;

    QMenu* mnuControlli;
    QMenu* mnuAllinea;
    QAction* mnuAllineaAlto;
    QAction* mnuAllineaBasso;
    QAction* mnuAllineaSinistra;
    QAction* mnuAllineaDestra;
    QMenu* mnualtezza;
    QAction* mnuAUmentaAltezza10;
    QAction* mnuAUmentaAltezza50;
    QAction* mnuDiminuisciAltezza10;
    QAction* mnuDiminuisciAltezza50;
    QMenu* mnularghezza;
    QAction* mnuAumentaLarghezza10;
    QAction* mnuAumentaLarghezza50;
    QAction* mnuDiminuisciLarghezza10;
    QAction* mnuDiminuisciLarghezza50;
    QMenu* mnuUguale;
    QAction* mnuUgualeAltezza;
    QAction* mnuUgualeLarghezza;
    QAction* mnuUgualeEntrambe;
    QAction* mnuSalva;
    QAction* mnuEsci;

    void SelezionaControllo(QWidget& controllo);
    void EliminaTutteSelezioni();
    void SalvaDisposizione();
    bool isControlloSelezionato(const QString& chiave) const;
    // Keeps the control's label 20 pixels above it.
    void SpostaEtichettaControllo(const QWidget& controllo);

    // The selected control keys, in the order they were selected.
    const QStringList& Selezione() const { return m_selezione; }
    const std::vector<std::unique_ptr<CorniceSelezione>>& Cornici() const { return m_cornici; }
    // False from the first change of the layout until it is saved from the menu.
    bool Salvato() const { return m_salvato; }
    // The end of a drag: the control lands centred on the point of the form where it was let go.
    void Form_DragDrop(QWidget& sorgente, QPoint punto);
    // Offers to save a changed layout before the window goes; the closing cannot be cancelled.
    void Form_QueryUnload();

    QSize minimumSizeHint() const override;

protected:
    void Form_Load() override;
    void ElementoCaricato(QWidget& elemento) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseMoveEvent(QMouseEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;
    void keyReleaseEvent(QKeyEvent* evento) override;

private:
    enum class Proprieta { Left, Top, Width, Height };
    static int Leggi(const QWidget& controllo, Proprieta proprieta);
    // Refuses what the store would refuse: a negative size, which Qt would quietly make 0 and
    // so leave a control that can no longer be clicked, or a value past 32767.
    static void Scrivi(QWidget& controllo, Proprieta proprieta, int valore);

    void CreaMenu();
    QAction* Voce(QMenu* menu, const char* nome, const QString& testo, std::function<void()> comando);
    QMenu* Sottomenu(const char* nome, const QString& titolo);
    QWidget* ControlloIn(QPoint punto) const;
    void IniziaTrascinamento();
    void RilascioSinistro(QPoint punto, Qt::KeyboardModifiers tasti);
    QList<QWidget*> Selezionati(bool soloVisibili) const;
    void CambiaDimensione(Proprieta dimensione, int passo);
    void PortaAlMinimo(Proprieta proprieta);
    void PortaAlMassimo(Proprieta posizione, Proprieta dimensione);
    void mnuSalva_Click();
    void mnuEsci_Click();

    bool m_salvato = true;
    QStringList m_selezione;
    std::vector<std::unique_ptr<CorniceSelezione>> m_cornici;
    // The control under the left button since it was pressed, and where it was pressed.
    QPointer<QWidget> m_premuto;
    QPoint m_puntoPremuto;
    bool m_trascinamento = false;
    // The outline that follows the pointer while a control is dragged.
    QRubberBand* m_sagoma;
};
