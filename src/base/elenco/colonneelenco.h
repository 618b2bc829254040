#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// One field of a collection as the list shows it: a column headed by its label.
struct ColonnaElenco {
    qint32 id = 0;
    QString intestazione; // the label, or the field's name when it has none
    QString tipo;         // the control type in lower case
    QString formula;
    QStringList voci; // a combo's or list's items
};

// The collection's fields in the form's tab order.
QList<ColonnaElenco> ColonneElenco(qint32 idCollezione);
// The collection's name; empty when there is none.
QString NomeCollezione(qint32 idCollezione);
