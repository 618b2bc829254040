#include "importazioneincorso.h"

#include "finestre.h"

#include <QApplication>
#include <QKeyEvent>

namespace {

bool ConteggioRecord(const QString& testo) {
    return testo.startsWith(QLatin1String("Sto inserendo il record "));
}

bool InputUtente(QEvent::Type tipo) {
    switch (tipo) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletRelease:
    case QEvent::Drop:
        return true;
    default:
        return false;
    }
}

} // namespace

ImportazioneInCorso::ImportazioneInCorso() {
    qApp->installEventFilter(this);
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

ImportazioneInCorso::~ImportazioneInCorso() {
    if (!m_inAttesa.isEmpty())
        MostraStato(m_inAttesa);
    QApplication::restoreOverrideCursor();
    qApp->removeEventFilter(this);
}

void ImportazioneInCorso::Stato(const QString& testo) {
    if (ConteggioRecord(testo) && m_ultimo.isValid() && m_ultimo.elapsed() < IntervalloMs) {
        m_inAttesa = testo;
        return;
    }
    Mostra(testo);
}

void ImportazioneInCorso::Mostra(const QString& testo) {
    m_inAttesa.clear();
    MostraStato(testo);
    QCoreApplication::processEvents();
    m_ultimo.start();
}

bool ImportazioneInCorso::eventFilter(QObject* oggetto, QEvent* evento) {
    if (evento->type() == QEvent::Close && oggetto->isWidgetType()) {
        evento->ignore();
        return true;
    }
    if (evento->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(evento)->key() == Qt::Key_Escape)
        m_interrotta = true;
    if (InputUtente(evento->type())) {
        evento->accept();
        return true;
    }
    return QObject::eventFilter(oggetto, evento);
}
