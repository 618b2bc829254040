#include "finestracontrolli.h"

#include "casellatesto.h"
#include "cursore.h"
#include "immagine.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <algorithm>
#include <limits>

namespace {

constexpr int MargineFinestra = 12;

QList<const FinestraControlli*>& FinestreCaricate() {
    static QList<const FinestraControlli*> finestre;
    return finestre;
}

template <typename T> MatriceControlli::Fabbrica FabbricaDi() {
    return [](QWidget* padre) -> QWidget* { return new T(padre); };
}

int TabIndex(const QWidget* controllo) {
    const QVariant valore = controllo->property("TabIndex");
    return valore.isValid() ? valore.toInt() : std::numeric_limits<int>::max();
}

} // namespace

FinestraControlli::FinestraControlli(QWidget* parent)
    : QWidget(parent)
    , Text1(QStringLiteral("Text1"), *this, FabbricaDi<CasellaRiga>())
    , Memo1(QStringLiteral("Memo1"), *this, FabbricaDi<CasellaMemo>())
    , Combo1(QStringLiteral("Combo1"), *this, FabbricaDi<QComboBox>())
    , List1(QStringLiteral("List1"), *this, FabbricaDi<QListWidget>())
    , Check1(QStringLiteral("Check1"), *this, FabbricaDi<QCheckBox>())
    , Slider1(QStringLiteral("Slider1"), *this, FabbricaDi<Cursore>())
    , Image1(QStringLiteral("Image1"), *this, FabbricaDi<Immagine>())
    , Label1(QStringLiteral("Label1"), *this, FabbricaDi<QLabel>()) {
    PreparaModelli();
}

FinestraControlli::~FinestraControlli() {
    FinestreCaricate().removeAll(this);
}

// The design-time look every element starts from.
void FinestraControlli::PreparaModelli() {
    // A text box takes a stored value whole, however long: nothing is cut without the user doing it.
    static_cast<QLineEdit&>(Text1.Modello()).setMaxLength(std::numeric_limits<int>::max());
    auto& memo = static_cast<QPlainTextEdit&>(Memo1.Modello());
    memo.setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    memo.setLineWrapMode(QPlainTextEdit::WidgetWidth);
    static_cast<QListWidget&>(List1.Modello()).setSelectionMode(QAbstractItemView::SingleSelection);
    static_cast<Cursore&>(Slider1.Modello()).setTickPosition(QSlider::TicksBelow);
    auto& immagine = static_cast<Immagine&>(Image1.Modello());
    immagine.setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    auto& etichetta = static_cast<QLabel&>(Label1.Modello());
    etichetta.resize(200, 18);
    etichetta.setTextFormat(Qt::PlainText);
    etichetta.setAlignment(Qt::AlignLeft | Qt::AlignBottom);
}

QWidget& FinestraControlli::CaricaElemento(MatriceControlli& matrice) {
    QWidget& elemento = matrice.Carica();
    m_elementi.append(&elemento);
    if (&matrice != &Label1)
        m_controlliCampo.append(&elemento);
    m_perChiave.insert(ChiaveControllo(elemento), &elemento);
    ElementoCaricato(elemento);
    return elemento;
}

void FinestraControlli::OrdinaTabulazione() {
    QList<QWidget*> ordine = m_controlliCampo;
    std::stable_sort(ordine.begin(), ordine.end(),
                     [](const QWidget* a, const QWidget* b) { return TabIndex(a) < TabIndex(b); });
    for (qsizetype i = 1; i < ordine.size(); ++i)
        QWidget::setTabOrder(ordine.at(i - 1), ordine.at(i));
}

void FinestraControlli::Carica() {
    if (!FinestreCaricate().contains(this))
        FinestreCaricate().append(this);
    Form_Load();
}

void FinestraControlli::Scarica() {
    for (MatriceControlli* matrice : {&Text1, &Memo1, &Combo1, &List1, &Check1, &Slider1, &Image1, &Label1})
        matrice->Scarica();
    m_elementi.clear();
    m_controlliCampo.clear();
    m_perChiave.clear();
    FinestreCaricate().removeAll(this);
}

QSize FinestraControlli::sizeHint() const {
    QRect area;
    for (const QWidget* elemento : m_elementi)
        if (!elemento->isHidden())
            area |= elemento->geometry();
    return QSize(area.x() + area.width() + MargineFinestra, area.y() + area.height() + MargineFinestra);
}

bool FormCaricata(const FinestraControlli& finestra) {
    return FinestreCaricate().contains(&finestra);
}

QString ChiaveControllo(const QWidget& controllo) {
    return controllo.objectName();
}
