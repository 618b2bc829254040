#include "superficie.h"

#include <QImage>
#include <QPainter>
#include <QPen>
#include <cmath>

namespace {

// Ten points, the size a printed sheet is read at.
QFont CarattereStampa() {
    QFont carattere;
    carattere.setPixelSize(200);
    return carattere;
}

} // namespace

Superficie::Superficie()
    : m_carattere(CarattereStampa())
    , m_metriche(m_carattere) {}

bool Superficie::Piena() const {
    return !EStampante() && CurrentY >= ScaleHeight();
}

QPainter& Superficie::PittoreConCarattere() {
    QPainter& pittore = Pittore();
    pittore.setFont(m_carattere);
    pittore.setPen(QPen(Qt::black, TwipPerPixel));
    return pittore;
}

// The line goes on at the same x on the new page.
void Superficie::FaiSpazio() {
    if (!EStampante() || CurrentY <= 0 || CurrentY + AltezzaRiga() <= ScaleHeight())
        return;
    const double x = CurrentX;
    NuovaPagina();
    CurrentX = x;
}

// A memo keeps its line breaks as CR LF; a lone CR or LF breaks the line too.
void Superficie::Stampa(const QString& testo) {
    qsizetype inizio = 0;
    for (qsizetype i = 0; i < testo.size(); ++i) {
        const QChar c = testo.at(i);
        if (c != QLatin1Char('\r') && c != QLatin1Char('\n'))
            continue;
        StampaRiga(QStringView(testo).sliced(inizio, i - inizio));
        FineRiga();
        if (c == QLatin1Char('\r') && i + 1 < testo.size() && testo.at(i + 1) == QLatin1Char('\n'))
            ++i;
        inizio = i + 1;
    }
    StampaRiga(QStringView(testo).sliced(inizio));
}

void Superficie::StampaRiga(QStringView riga) {
    if (riga.isEmpty())
        return;
    FaiSpazio();
    const QString testo = riga.toString();
    PittoreConCarattere().drawText(QPointF(CurrentX, CurrentY + m_metriche.ascent()), testo);
    CurrentX += LarghezzaTesto(testo);
}

void Superficie::FineRiga() {
    CurrentX = 0;
    CurrentY += AltezzaRiga();
}

void Superficie::Tab(int colonna, int passo) {
    const double destinazione = colonna * LarghezzaColonna();
    if (CurrentX <= destinazione) {
        CurrentX = destinazione;
        return;
    }
    const double fermata = passo * LarghezzaColonna();
    CurrentX = (std::floor(CurrentX / fermata) + 1) * fermata;
}

void Superficie::Linea(const QPointF& da, const QPointF& a) {
    PittoreConCarattere().drawLine(da, a);
    CurrentX = a.x();
    CurrentY = a.y();
}

void Superficie::Dipingi(const QImage& figura) {
    const QRectF dove(CurrentX, CurrentY, figura.width() * TwipPerPixel, figura.height() * TwipPerPixel);
    PittoreConCarattere().drawImage(dove, figura);
}

double Superficie::LarghezzaTesto(const QString& testo) const {
    return m_metriche.horizontalAdvance(testo);
}

double Superficie::AltezzaRiga() const {
    return m_metriche.lineSpacing();
}

double Superficie::LarghezzaColonna() const {
    return m_metriche.averageCharWidth();
}

void Superficie::NuovaPagina() {
    CurrentX = 0;
    CurrentY = 0;
    IniziaPagina();
}

void Superficie::FineLavoro() {
    ChiudiLavoro();
}
