#include "costruisciform.h"

#include "archivio.h"
#include "cursore.h"
#include "finestracontrolli.h"
#include "immagine.h"
#include "mappacampi.h"
#include "numeri.h"
#include "recordset.h"

#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QToolBar>
#include <optional>
#include <stdexcept>

namespace {

constexpr int DistanzaEtichetta = 20;

bool SiChiamaFrmRecord(const FinestraControlli& target) {
    return target.objectName() == QLatin1String("frmRecord");
}

[[noreturn]] void ErroreCampo(const Recordset& riga, const QString& motivo) {
    const QString testo = QStringLiteral("Impossibile costruire il campo \"") +
                          riga.Testo(QStringLiteral("nome")) + QStringLiteral("\": ") + motivo;
    throw std::runtime_error(testo.toLocal8Bit().toStdString());
}

QWidget& NuovoCursore(FinestraControlli& target, const QString& special) {
    auto& cursore = static_cast<Cursore&>(target.CaricaElemento(target.Slider1));
    cursore.ImpostaMin(CLng(Val(special)));
    const qsizetype barra = special.indexOf(QLatin1Char('|'));
    cursore.ImpostaMax(CLng(Val(barra < 0 ? special : special.mid(barra + 1))));
    return cursore;
}

QWidget& NuovaCasella(FinestraControlli& target, const Recordset& riga) {
    auto& casella = static_cast<QCheckBox&>(target.CaricaElemento(target.Check1));
    const QString etichetta = riga.Testo(QStringLiteral("etichetta"));
    casella.setText(etichetta.isEmpty() ? riga.Testo(QStringLiteral("nome")) : etichetta);
    return casella;
}

QWidget& NuovaImmagine(FinestraControlli& target, const Recordset& riga) {
    const QString special = riga.Testo(QStringLiteral("special"));
    bool valido = false;
    const bool stretch = CBoolTesto(special, &valido);
    if (!valido)
        ErroreCampo(riga, QStringLiteral("l'immagine richiede TRUE o FALSE, non \"") + special +
                              QStringLiteral("\"."));
    auto& immagine = static_cast<Immagine&>(target.CaricaElemento(target.Image1));
    immagine.setScaledContents(stretch);
    return immagine;
}

QWidget& NuovoElenco(FinestraControlli& target, MatriceControlli& matrice, const Recordset& riga) {
    QWidget& elenco = target.CaricaElemento(matrice);
    RiempiLista(riga.Testo(QStringLiteral("special")), elenco);
    return elenco;
}

QWidget& NuovoControllo(FinestraControlli& target, const Recordset& riga) {
    const QString tipo = riga.Testo(QStringLiteral("tipo")).toLower();
    if (tipo == QLatin1String("textbox"))
        return target.CaricaElemento(target.Text1);
    if (tipo == QLatin1String("memo"))
        return target.CaricaElemento(target.Memo1);
    if (tipo == QLatin1String("combo"))
        return NuovoElenco(target, target.Combo1, riga);
    if (tipo == QLatin1String("list"))
        return NuovoElenco(target, target.List1, riga);
    if (tipo == QLatin1String("checkbox"))
        return NuovaCasella(target, riga);
    if (tipo == QLatin1String("slider"))
        return NuovoCursore(target, riga.Testo(QStringLiteral("special")));
    if (tipo == QLatin1String("image"))
        return NuovaImmagine(target, riga);
    ErroreCampo(riga, QStringLiteral("\"") + tipo + QStringLiteral("\" non è un tipo di controllo."));
}

// A column that cannot be applied (NULL, or a size the control cannot take) leaves the
// template's value in place.
std::optional<int> Intero(const Recordset& riga, const QString& colonna) {
    bool ok = false;
    const int valore = riga.Campo(colonna).toInt(&ok);
    return ok ? std::optional<int>(valore) : std::nullopt;
}

std::optional<int> Dimensione(const Recordset& riga, const QString& colonna) {
    const std::optional<int> valore = Intero(riga, colonna);
    return valore && *valore >= 0 ? valore : std::nullopt;
}

void ImpostaTop(const FinestraControlli& target, QWidget& controllo, int top) {
    controllo.move(controllo.x(), top);
    if (!SiChiamaFrmRecord(target))
        return;
    // The layout's y = 0 is the first pixel below the toolbar.
    if (const auto* barra = target.findChild<const QToolBar*>(QStringLiteral("Toolbar1")))
        controllo.move(controllo.x(), top + barra->height());
}

void Posiziona(const FinestraControlli& target, QWidget& controllo, const Recordset& riga) {
    controllo.setVisible(true);
    if (const auto tabIndex = Intero(riga, QStringLiteral("tabindex")))
        controllo.setProperty("TabIndex", *tabIndex);
    if (const auto top = Intero(riga, QStringLiteral("top")))
        ImpostaTop(target, controllo, *top);
    if (const auto width = Dimensione(riga, QStringLiteral("width")))
        controllo.resize(*width, controllo.height());
    if (const auto left = Intero(riga, QStringLiteral("left")))
        controllo.move(*left, controllo.y());
    if (const auto height = Dimensione(riga, QStringLiteral("height")))
        controllo.resize(controllo.width(), *height);
    if (SiChiamaFrmRecord(target))
        controllo.setToolTip(riga.Testo(QStringLiteral("tooltip")));
}

void AggiungiEtichetta(FinestraControlli& target, const QWidget& controllo, const Recordset& riga) {
    const QString testo = riga.Testo(QStringLiteral("etichetta"));
    if (testo.isEmpty() || qobject_cast<const QCheckBox*>(&controllo))
        return;
    auto& etichetta = static_cast<QLabel&>(target.CaricaElemento(target.Label1));
    etichetta.setText(testo);
    etichetta.move(controllo.x(), controllo.y() - DistanzaEtichetta);
    etichetta.setProperty("Tag", ChiaveControllo(controllo));
    etichetta.setVisible(true);
}

} // namespace

void CostruisciForm(FinestraControlli& target, qint32 idCollezione) {
    CancellaMappaCampi(idCollezione);
    Recordset righe = Database().ApriRecordset(QStringLiteral("select * from campi where id_collezione=") +
                                               QString::number(idCollezione));
    if (FormCaricata(target))
        target.Scarica();
    target.Carica();
    for (; !righe.Fine(); righe.Successivo())
        CreaControllo(target, righe);
    target.OrdinaTabulazione();
}

QWidget* CreaControllo(FinestraControlli& target, const Recordset& riga) {
    QWidget& controllo = NuovoControllo(target, riga);
    RegistraCampo(riga.Campo(QStringLiteral("id_collezione")).toInt(), ChiaveControllo(controllo),
                  riga.Campo(QStringLiteral("id")).toInt());
    Posiziona(target, controllo, riga);
    AggiungiEtichetta(target, controllo, riga);
    return &controllo;
}

void RiempiLista(const QString& testo, QWidget& listaOCombo) {
    if (testo.isEmpty())
        return;
    const QStringList voci = testo.split(QLatin1Char('|'));
    if (auto* combo = qobject_cast<QComboBox*>(&listaOCombo)) {
        // Adding items does not choose one.
        const int scelta = combo->currentIndex();
        combo->addItems(voci);
        combo->setCurrentIndex(scelta);
    } else if (auto* lista = qobject_cast<QListWidget*>(&listaOCombo)) {
        lista->addItems(voci);
    }
}
