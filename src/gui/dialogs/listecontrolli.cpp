#include "listecontrolli.h"

#include "routinesql.h"

#include <QListWidget>

namespace {

void Riempi(QListWidget& lista, const QList<VoceElenco>& voci) {
    lista.clear();
    for (const VoceElenco& voce : voci) {
        auto* elemento = new QListWidgetItem(voce.nome, &lista);
        elemento->setData(Qt::UserRole, voce.id);
    }
}

} // namespace

void CaricaCollezioniInLista(QListWidget& lista) {
    Riempi(lista, ElencoCollezioni());
}

void CaricaCampiInLista(qint32 idCollezione, QListWidget& lista) {
    Riempi(lista, ElencoCampi(idCollezione));
}

qint32 DatoElemento(const QListWidget& lista, int riga) {
    return lista.item(riga)->data(Qt::UserRole).toInt();
}
