#include "stampatesto.h"

#include <QAbstractTextDocumentLayout>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTextDocument>
#include <QTextOption>
#include <stdexcept>

namespace {

constexpr double MargineMm = 20.0;
constexpr int PuntiCarattere = 11;
constexpr double TabulazionePollici = 1.25;
// Tab stops are given in units of 1/96 inch, which the layout scales to the printer's resolution.
constexpr double UnitaTabulazione = 96.0;

std::function<void(QPrinter&)>& Preparazione() {
    static std::function<void(QPrinter&)> preparazione;
    return preparazione;
}

} // namespace

void StampaTesto(const QString& testo, QPrinter& stampante) {
    stampante.setPageMargins(QMarginsF(MargineMm, MargineMm, MargineMm, MargineMm), QPageLayout::Millimeter);
    QTextDocument documento;
    // Laid out in the printer's own units, on pages of its printable area: no scaling, and no page
    // numbers of the document's own.
    documento.documentLayout()->setPaintDevice(&stampante);
    QFont carattere = documento.defaultFont();
    carattere.setPointSize(PuntiCarattere);
    documento.setDefaultFont(carattere);
    QTextOption opzioni = documento.defaultTextOption();
    opzioni.setTabStopDistance(UnitaTabulazione * TabulazionePollici);
    opzioni.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    documento.setDefaultTextOption(opzioni);
    documento.setDocumentMargin(0);
    documento.setPlainText(testo);
    documento.setPageSize(QSizeF(stampante.width(), stampante.height()));
    documento.print(&stampante);
}

void StampaSuPredefinita(const QString& testo) {
    QPrinter stampante(QPrinter::HighResolution);
    if (Preparazione())
        Preparazione()(stampante);
    else if (QPrinterInfo::defaultPrinter().isNull())
        throw std::runtime_error(
            QStringLiteral("Impossibile stampare: non è installata una stampante predefinita.")
                .toLocal8Bit()
                .toStdString());
    StampaTesto(testo, stampante);
}

void ImpostaStampantePredefinita(std::function<void(QPrinter&)> preparazione) {
    Preparazione() = std::move(preparazione);
}
