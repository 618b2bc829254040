#include "apriricerca.h"

#include "finestre.h"
#include "frmfind.h"
#include "routinesql.h"

#include <QComboBox>
#include <QMdiSubWindow>
#include <QPointer>
#include <memory>

namespace {

QPointer<frmFind>& Aperta() {
    static QPointer<frmFind> finestra;
    return finestra;
}

// At once, and in the frame together with its sub-window, so that the frame never shows two.
void Chiudi(frmFind& finestra) {
    auto* sottofinestra = qobject_cast<QMdiSubWindow*>(finestra.parentWidget());
    if (sottofinestra)
        delete sottofinestra;
    else
        delete &finestra;
}

} // namespace

frmFind* FinestraRicerca() {
    return Aperta().data();
}

void ApriRicerca(qint32 idCollezione) {
    if (Aperta())
        Chiudi(*Aperta());
    auto finestra = std::make_unique<frmFind>();
    finestra->IdCollezione = idCollezione;
    for (const VoceElenco& campo : ElencoCampi(idCollezione))
        finestra->Combo1->addItem(campo.nome, campo.id);
    if (finestra->Combo1->count() > 0)
        finestra->Combo1->setCurrentIndex(0);
    Aperta() = finestra.release();
    MostraFiglia(Aperta());
}
