#pragma once

#include <QtGlobal>

class QListWidget;

// Fill a list control with names, keeping each id as the item's data (Qt::UserRole).
void CaricaCollezioniInLista(QListWidget& lista);
void CaricaCampiInLista(qint32 idCollezione, QListWidget& lista);
qint32 DatoElemento(const QListWidget& lista, int riga);
