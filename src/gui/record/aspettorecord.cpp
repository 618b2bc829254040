#include "aspettorecord.h"

#include "finestracontrolli.h"
#include "opzioniaspetto.h"
#include "valorecontrollo.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <optional>

namespace {

void Colora(QWidget& controllo, QPalette::ColorRole ruolo, const QColor& colore) {
    QPalette tavolozza = controllo.palette();
    tavolozza.setColor(ruolo, colore);
    controllo.setPalette(tavolozza);
}

bool Etichetta(const QWidget& controllo) {
    return qobject_cast<const QLabel*>(&controllo) || qobject_cast<const QCheckBox*>(&controllo);
}

bool MostraTesto(const QWidget& controllo) {
    return CasellaDiTesto(controllo) || qobject_cast<const QListWidget*>(&controllo) ||
           qobject_cast<const QComboBox*>(&controllo);
}

void ColoraSfondoFinestra(QWidget& finestra, const std::optional<QColor>& colore) {
    // The same window shows one collection after another: a colour not set goes back to its own.
    finestra.setPalette(QPalette());
    finestra.setAutoFillBackground(colore.has_value());
    if (colore)
        Colora(finestra, QPalette::Window, *colore);
}

} // namespace

void ApplicaColori(FinestraControlli& finestra, qint32 idCollezione) {
    ColoraSfondoFinestra(finestra, LeggiColore(idCollezione, OpzioniAspetto::ColoreSfondo));
    const std::optional<QColor> sfondoEtichette =
        LeggiColore(idCollezione, OpzioniAspetto::ColoreSfondoEtichette);
    const std::optional<QColor> testoControlli =
        LeggiColore(idCollezione, OpzioniAspetto::ColoreTestoControlli);
    const std::optional<QColor> testoEtichette =
        LeggiColore(idCollezione, OpzioniAspetto::ColoreTestoEtichette);
    for (QWidget* controllo : finestra.Elementi()) {
        if (Etichetta(*controllo) && sfondoEtichette) {
            controllo->setAutoFillBackground(true);
            Colora(*controllo, QPalette::Window, *sfondoEtichette);
        }
        if (Etichetta(*controllo) && testoEtichette)
            Colora(*controllo, QPalette::WindowText, *testoEtichette);
        if (MostraTesto(*controllo) && testoControlli) {
            Colora(*controllo, QPalette::Text, *testoControlli);
            Colora(*controllo, QPalette::ButtonText, *testoControlli); // a closed combo draws its text so
        }
    }
}
