#pragma once

#include <QTreeView>

// The list's view: typing jumps by the first column (the record number) whichever cell is current,
// so that a jump never reads the store row by row.
class VistaElenco final : public QTreeView {
    Q_OBJECT

public:
    explicit VistaElenco(QWidget* parent = nullptr);
    void keyboardSearch(const QString& testo) override;
};
