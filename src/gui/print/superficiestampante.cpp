#include "superficiestampante.h"

#include <QFile>
#include <QPrinter>
#include <stdexcept>

namespace {

[[noreturn]] void Fallisci(const QString& testo) {
    throw std::runtime_error(testo.toLocal8Bit().toStdString());
}

} // namespace

SuperficieStampante::SuperficieStampante(QPrinter& stampante)
    : m_stampante(stampante) {}

// A PDF cannot be aborted: what was written of it is removed instead.
SuperficieStampante::~SuperficieStampante() {
    if (!m_pittore.isActive())
        return;
    m_stampante.abort();
    m_pittore.end();
    if (m_stampante.outputFormat() == QPrinter::PdfFormat)
        QFile::remove(m_stampante.outputFileName());
}

QSizeF SuperficieStampante::Area() const {
    return m_stampante.pageLayout().paintRect(QPageLayout::Inch).size() * TwipPerPollice;
}

// A printer whose job fails to begin stays busy for good and refuses every setting the set-up
// makes afterwards, so a job that cannot begin, for want of a printer or of a file to write the
// PDF to, is not begun at all.
bool SuperficieStampante::Pronta() const {
    if (!m_stampante.isValid())
        return false;
    return m_stampante.outputFormat() != QPrinter::PdfFormat || !m_stampante.outputFileName().isEmpty();
}

void SuperficieStampante::Inizia() {
    if (!Pronta() || !m_pittore.begin(&m_stampante))
        Fallisci(QStringLiteral("Impossibile avviare la stampa: scegliere una stampante con \"Imposta "
                                "Stampante\"."));
    const double scala = m_stampante.resolution() / TwipPerPollice;
    m_pittore.scale(scala, scala);
    m_pittore.setRenderHint(QPainter::Antialiasing);
    m_paginaChiesta = false;
}

QPainter& SuperficieStampante::Pittore() {
    if (!m_pittore.isActive()) {
        Inizia();
    } else if (m_paginaChiesta) {
        if (!m_stampante.newPage())
            Fallisci(QStringLiteral("Impossibile passare alla pagina successiva della stampa."));
        m_paginaChiesta = false;
    }
    return m_pittore;
}

void SuperficieStampante::ChiudiLavoro() {
    if (m_pittore.isActive())
        m_pittore.end();
}
