#include "contenitoreanteprima.h"

#include "confine.h"
#include "costruisciform.h"
#include "frmanteprima.h"

#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>

ContenitoreAnteprima::ContenitoreAnteprima(QWidget* parent)
    : QDialog(parent)
    , m_anteprima(new frmAnteprima) {
    setObjectName(QStringLiteral("ContenitoreAnteprima"));
    setWindowTitle(QStringLiteral("Anteprima"));
    auto* barra = new QMenuBar;
    barra->addMenu(m_anteprima->mnuControlli);
    auto* area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setWidget(m_anteprima);
    auto* disposizione = new QVBoxLayout(this);
    disposizione->setContentsMargins(0, 0, 0, 0);
    disposizione->setMenuBar(barra);
    disposizione->addWidget(area);
    m_anteprima->setFocus();
}

void ContenitoreAnteprima::Costruisci(qint32 idCollezione) {
    CostruisciForm(*m_anteprima, idCollezione);
    m_anteprima->IdCollezione = idCollezione;
    const QSize disponibile = screen()->availableGeometry().size() * 9 / 10;
    const QSize voluto = m_anteprima->minimumSizeHint() + QSize(0, layout()->menuBar()->sizeHint().height());
    resize(voluto.boundedTo(disponibile));
}

void ContenitoreAnteprima::done(int risultato) {
    EseguiProtetto([this] { m_anteprima->Form_QueryUnload(); });
    QDialog::done(risultato);
}
