#pragma once

#include "finestre.h"

#include <QMainWindow>

class QMdiArea;
class QMdiSubWindow;
class QMenu;
class QStatusBar;

// The main frame: a multiple-document parent holding the collections window and the record windows.
class frmMAIN final : public QMainWindow, public OspiteFinestre {
    Q_OBJECT

public:
    explicit frmMAIN(QWidget* parent = nullptr);
    ~frmMAIN() override;

    void MostraFiglia(QWidget* finestra) override;
    void MostraStato(const QString& testo) override;
    QMdiArea* AreaFigli() const { return m_area; }

    // Unloads every window of the program but the frame itself.
    void ScaricaFinestre();

    void mnuApriGestioneCollezioni_Click();
    void mnuHelp_Click();
    void mnuAbout_Click();
    // Side by side in columns (vertical) or stacked in rows (horizontal).
    void Affianca(bool verticale);

    QMenu* mnuFIle;
    QMenu* mnuWindow;
    QMenu* mnuH;
    QStatusBar* Sbar1;

protected:
    void closeEvent(QCloseEvent* evento) override;

private:
    void CreaMenu();
    void AggiornaMenu();
    void DisponiFrame();
    QList<QRect> AltriFigli(const QMdiSubWindow* escluso) const;

    QMdiArea* m_area;
};

// "title - versione M.m.r BETA"
QString TitoloFrame(int maggiore, int minore, int revisione);
