#include "tastiprogramma.h"

#include "confine.h"
#include "interazione.h"
#include "paginaguida.h"

#include <QApplication>
#include <QKeyEvent>
#include <QThread>
#include <QTimer>
#include <QWidget>

TastiProgramma::TastiProgramma(QWidget& frame)
    : QObject(&frame)
    , m_frame(frame) {
    qApp->installEventFilter(this);
}

void TastiProgramma::Esci() {
    QWidget* davanti = QApplication::activePopupWidget();
    if (!davanti)
        davanti = QApplication::activeModalWidget();
    // The frame closes from the main loop only: code still waiting on a window that just closed
    // must not find the store already closed.
    const bool annidato = QThread::currentThread()->loopLevel() > 1;
    if (davanti || annidato) {
        if (!davanti || davanti->close())
            QTimer::singleShot(0, this, [this] { Esci(); });
        return;
    }
    m_frame.close();
}

bool TastiProgramma::eventFilter(QObject* oggetto, QEvent* evento) {
    if (evento->type() != QEvent::KeyPress || !oggetto->isWidgetType())
        return false;
    const auto* tasto = static_cast<QKeyEvent*>(evento);
    if (tasto->isAutoRepeat())
        return false;
    const auto modificatori = tasto->modifiers() & ~Qt::KeypadModifier;
    if (tasto->key() == Qt::Key_F1 && modificatori == Qt::NoModifier) {
        const QString pagina = PaginaGuida(static_cast<QWidget*>(oggetto));
        EseguiProtetto([&] { ApriConShell(PercorsoGuida(pagina)); });
        return true;
    }
    if (tasto->key() == Qt::Key_Q && modificatori == Qt::ControlModifier) {
        EseguiProtetto([this] { Esci(); });
        return true;
    }
    return false;
}
