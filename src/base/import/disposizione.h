#pragma once

#include <QPoint>

// Where imported fields go: a first column at left 30 with tops 40 to 440, then a second column at
// left 250 from top 40 downwards without limit.
class Disposizione final {
public:
    // The position of the next field.
    QPoint Prossima();

private:
    int m_left = 0;
    int m_top = 0;
};
