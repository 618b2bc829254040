#pragma once

#include <QDialog>

class frmAnteprima;

// The modal window the layout designer lives in: its menu bar, and the form, scrolled when larger
// than the screen. Whichever way it closes, the designer is asked first whether to save.
class ContenitoreAnteprima final : public QDialog {
    Q_OBJECT

public:
    explicit ContenitoreAnteprima(QWidget* parent = nullptr);

    frmAnteprima& Anteprima() const { return *m_anteprima; }
    // Builds the collection's form in the designer and sizes the window to show it, within the screen.
    void Costruisci(qint32 idCollezione);
    void done(int risultato) override;

private:
    frmAnteprima* m_anteprima;
};
