#include "vistaelenco.h"

#include <QHeaderView>

VistaElenco::VistaElenco(QWidget* parent)
    : QTreeView(parent) {
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true); // rows are laid out without asking each one for its size
    setAllColumnsShowFocus(true);
    setAlternatingRowColors(true);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    header()->setSectionsClickable(true);
    header()->setSortIndicatorShown(true);
    header()->setStretchLastSection(false);
    header()->setSectionsMovable(false);
}

void VistaElenco::keyboardSearch(const QString& testo) {
    const QModelIndex corrente = currentIndex();
    if (corrente.isValid() && corrente.column() != 0)
        selectionModel()->setCurrentIndex(corrente.siblingAtColumn(0), QItemSelectionModel::NoUpdate);
    QTreeView::keyboardSearch(testo);
}
