#pragma once

#include <QObject>

class QWidget;

// Keys that work in every window of the program, whatever its menu bar shows: F1 opens the guide
// at the page of the window it is pressed in, Ctrl+Q quits as the frame's "Esci" does.
class TastiProgramma final : public QObject {
    Q_OBJECT

public:
    // Watches the whole application for as long as `frame` lives.
    explicit TastiProgramma(QWidget& frame);

    // Closes the window in front that runs a loop of its own (a modal window, a popup), asking
    // what it asks on closing, then the frame; stops where a window refuses to close.
    void Esci();

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    QWidget& m_frame;
};
