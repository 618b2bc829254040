#pragma once

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QString>

// What a text box of a record window last showed: the stored value it was given and the text it
// displayed for it. Kept as members, not dynamic properties: records are shown many times over, and
// every property set would send the box an event.
class MemoriaCasella {
public:
    QString valoreMostrato;
    QString testoMostrato;

protected:
    MemoriaCasella() = default;
    ~MemoriaCasella() = default;
};

// The single-line text box of the Text1 array.
class CasellaRiga final : public QLineEdit, public MemoriaCasella {
public:
    explicit CasellaRiga(QWidget* parent = nullptr)
        : QLineEdit(parent) {}
};

// The multi-line text box of the Memo1 array.
class CasellaMemo final : public QPlainTextEdit, public MemoriaCasella {
public:
    explicit CasellaMemo(QWidget* parent = nullptr)
        : QPlainTextEdit(parent) {}
};

// The memory of a text box built as one of the above; nullptr for any other widget.
MemoriaCasella* MemoriaDi(QWidget& casella);
const MemoriaCasella* MemoriaDi(const QWidget& casella);
