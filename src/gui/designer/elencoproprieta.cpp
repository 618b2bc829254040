#include "elencoproprieta.h"

#include <QHeaderView>
#include <QStringList>
#include <QTreeWidget>

void PreparaElencoProprieta(QTreeWidget& elenco, DelegatoValore::FineModifica fineModifica) {
    elenco.setColumnCount(2);
    elenco.setHeaderLabels({QStringLiteral("Valore"), QStringLiteral("Proprietà")});
    elenco.setRootIsDecorated(false);
    elenco.setUniformRowHeights(true);
    elenco.setAlternatingRowColors(true);
    elenco.setAllColumnsShowFocus(true);
    elenco.setItemDelegate(new DelegatoValore(std::move(fineModifica), &elenco));
    QHeaderView* intestazione = elenco.header();
    intestazione->setSectionsMovable(false);
    intestazione->setStretchLastSection(false);
    intestazione->setSectionResizeMode(0, QHeaderView::Stretch);
    intestazione->setSectionResizeMode(1, QHeaderView::Interactive);
    elenco.setColumnWidth(1, 110);
}

QTreeWidgetItem* AggiungiProprieta(QTreeWidget& elenco, const QString& valore, const QString& proprieta) {
    auto* riga = new QTreeWidgetItem(&elenco, {valore, proprieta});
    riga->setFlags(riga->flags() | Qt::ItemIsEditable);
    return riga;
}

bool ProprietaNumerica(const QString& proprieta) {
    static const QStringList numeriche{QStringLiteral("top"), QStringLiteral("width"),
                                       QStringLiteral("height"), QStringLiteral("left"),
                                       QStringLiteral("tabindex")};
    return numeriche.contains(proprieta);
}
