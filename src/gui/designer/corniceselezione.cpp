#include "corniceselezione.h"

#include <QEvent>
#include <QWidget>

namespace {

constexpr int Spessore = 2;
// Between the control's edge and the segment, so the segment never covers the control.
constexpr int Distacco = 2;

} // namespace

CorniceSelezione::CorniceSelezione(QWidget& controllo)
    : m_controllo(&controllo) {
    QWidget* finestra = controllo.parentWidget();
    const QColor colore = finestra->palette().color(QPalette::Highlight);
    for (QWidget*& lato : m_lati) {
        lato = new QWidget(finestra);
        lato->setAttribute(Qt::WA_TransparentForMouseEvents);
        QPalette tavolozza = lato->palette();
        tavolozza.setColor(QPalette::Window, colore);
        lato->setPalette(tavolozza);
        lato->setAutoFillBackground(true);
        lato->show();
    }
    Adatta();
    controllo.installEventFilter(this);
}

// The segments belong to the window, which may outlive the frame; the frame is always gone first.
CorniceSelezione::~CorniceSelezione() {
    for (QWidget* lato : m_lati)
        delete lato;
}

bool CorniceSelezione::eventFilter(QObject* oggetto, QEvent* evento) {
    if (oggetto == m_controllo && (evento->type() == QEvent::Move || evento->type() == QEvent::Resize))
        Adatta();
    return QObject::eventFilter(oggetto, evento);
}

void CorniceSelezione::Adatta() {
    if (!m_controllo)
        return;
    const QRect fuori = m_controllo->geometry().adjusted(-Distacco - Spessore, -Distacco - Spessore,
                                                         Distacco + Spessore, Distacco + Spessore);
    m_lati[0]->setGeometry(fuori.left(), fuori.top(), fuori.width(), Spessore);
    m_lati[1]->setGeometry(fuori.left(), fuori.bottom() - Spessore + 1, fuori.width(), Spessore);
    m_lati[2]->setGeometry(fuori.left(), fuori.top(), Spessore, fuori.height());
    m_lati[3]->setGeometry(fuori.right() - Spessore + 1, fuori.top(), Spessore, fuori.height());
    for (QWidget* lato : m_lati)
        lato->raise();
}
