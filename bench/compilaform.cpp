#include "compilaform.h"

#include "finestracontrolli.h"
#include "mappacampi.h"

#include <QAbstractSlider>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTextEdit>
#include <stdexcept>

namespace {

void ImpostaControllo(QWidget& controllo, const QString& valore) {
    if (auto* testo = qobject_cast<QLineEdit*>(&controllo))
        testo->setText(valore);
    else if (auto* memo = qobject_cast<QPlainTextEdit*>(&controllo))
        memo->setPlainText(valore);
    else if (auto* ricco = qobject_cast<QTextEdit*>(&controllo))
        ricco->setPlainText(valore);
    else if (auto* casella = qobject_cast<QCheckBox*>(&controllo))
        casella->setChecked(valore.toInt() != 0);
    else if (auto* combo = qobject_cast<QComboBox*>(&controllo))
        combo->setCurrentIndex(valore.toInt());
    else if (auto* lista = qobject_cast<QListWidget*>(&controllo))
        lista->setCurrentRow(valore.toInt());
    else if (auto* cursore = qobject_cast<QAbstractSlider*>(&controllo))
        cursore->setValue(valore.toInt());
    else
        throw std::runtime_error("no way to enter a value into a " +
                                 std::string(controllo.metaObject()->className()));
}

} // namespace

QList<ControlloCampo> ControlliDelForm(const FinestraControlli& finestra, const CollezioneBench& collezione) {
    QList<ControlloCampo> controlli;
    for (QWidget* controllo : finestra.ControlliCampo()) {
        const auto indice = collezione.idCampi.indexOf(IdCampo(collezione.id, ChiaveControllo(*controllo)));
        if (indice >= 0)
            controlli.append({controllo, static_cast<int>(indice)});
    }
    if (controlli.size() != collezione.idCampi.size())
        throw std::runtime_error("the built record window does not show one control per field");
    return controlli;
}

void CompilaForm(const QList<ControlloCampo>& controlli, qint32 n) {
    for (const ControlloCampo& c : controlli)
        ImpostaControllo(*c.controllo, DefinizioniCampi().at(c.definizione).valore(n));
}
