#pragma once

#include <QWidget>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeView;
class RisultatiRicerca;

// The search window: the records of one collection whose value in a chosen field equals, or
// contains, a text; a double click on a hit opens that record.
class frmFind final : public QWidget {
    Q_OBJECT

public:
    explicit frmFind(QWidget* parent = nullptr);

    // The collection searched, set by the opener before the window is shown.
    qint32 IdCollezione = -1;

    QLabel* lbl1;
    QComboBox* Combo1;
    QLabel* Label1;
    QLineEdit* Text1;
    QCheckBox* Esatta;
    QPushButton* cmdGO;
    QTreeView* Lv1;

    void cmdGO_Click();
    void Lv1_DblClick();
    const RisultatiRicerca& Risultati() const { return *m_risultati; }

private:
    void CreaControlli();

    RisultatiRicerca* m_risultati;
};
