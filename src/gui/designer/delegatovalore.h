#pragma once

#include <QStyledItemDelegate>
#include <functional>

// In-place editing of the first column of a property list. The edited text is not written by
// the delegate: it goes to the owner's end-of-edit routine, which decides whether to take it.
class DelegatoValore final : public QStyledItemDelegate {
    Q_OBJECT

public:
    using FineModifica = std::function<void(int riga, const QString& nuovoTesto)>;

    DelegatoValore(FineModifica fineModifica, QObject* parent);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

private:
    FineModifica m_fineModifica;
};
