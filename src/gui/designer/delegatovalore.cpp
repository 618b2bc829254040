#include "delegatovalore.h"

#include "confine.h"

#include <QLineEdit>
#include <limits>

DelegatoValore::DelegatoValore(FineModifica fineModifica, QObject* parent)
    : QStyledItemDelegate(parent)
    , m_fineModifica(std::move(fineModifica)) {}

QWidget* DelegatoValore::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                      const QModelIndex& index) const {
    // Only the value is editable; the property name is not.
    if (index.column() != 0)
        return nullptr;
    QWidget* editor = QStyledItemDelegate::createEditor(parent, option, index);
    // A long formula or list of items is edited whole: nothing is cut.
    if (auto* campo = qobject_cast<QLineEdit*>(editor))
        campo->setMaxLength(std::numeric_limits<int>::max());
    return editor;
}

void DelegatoValore::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const {
    const auto* campo = qobject_cast<const QLineEdit*>(editor);
    // An editor left as it was opened ends like a cancelled one: only a typed value is an edit.
    if (!campo || !campo->isModified())
        return;
    const QString testo = campo->text();
    const int riga = index.row();
    EseguiProtetto([&] { m_fineModifica(riga, testo); });
}
