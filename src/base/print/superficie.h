#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QSizeF>

class QImage;
class QPainter;
class QPointF;
class QString;

// What the print layout draws on: a printer's pages or a picture box. Every coordinate is in
// twips (1440 to the inch), from the top-left corner of the drawing area, so a page and its
// preview get the same layout. Beside the drawing it keeps the print position, as text output
// moves it line by line and to tab columns.
class Superficie {
public:
    static constexpr double TwipPerPixel = 15.0; // a pixel at 96 dots per inch
    static constexpr double TwipPerPollice = 1440.0;

    Superficie();
    virtual ~Superficie() = default;
    Superficie(const Superficie&) = delete;
    Superficie& operator=(const Superficie&) = delete;

    // Only the printer has pages and a job to end.
    virtual bool EStampante() const = 0;
    // Width and height of the drawing area (one page on the printer), in twips.
    virtual QSizeF Area() const = 0;

    double ScaleWidth() const { return Area().width(); }
    double ScaleHeight() const { return Area().height(); }
    // Nothing drawn from the print position on can ever be seen: it is past a picture box's
    // bottom. A printer is never full: it goes on on a new page.
    bool Piena() const;

    // Text at the print position, which moves past it on the same line; each line break in it
    // ends the line, as FineRiga does.
    void Stampa(const QString& testo);
    // Ends the line: back to the left edge, one line down. On the printer a line that no longer
    // fits on the page goes to the top of a new one.
    void FineRiga();
    // Moves to print column `colonna` (column 0 is the left edge); when the line already reaches
    // it, to the first multiple of `passo` columns past the line's end.
    void Tab(int colonna, int passo);
    // A line between two points; the print position ends at the second one.
    void Linea(const QPointF& da, const QPointF& a);
    // The picture at the print position at its natural size, 96 pixels to the inch.
    void Dipingi(const QImage& figura);

    double LarghezzaTesto(const QString& testo) const;
    double AltezzaRiga() const;
    double LarghezzaColonna() const;

    // Starts a new page (the print position back at the top-left) and ends the job; the layout
    // calls them only on the printer.
    void NuovaPagina();
    void FineLavoro();

    double CurrentX = 0;
    double CurrentY = 0;

protected:
    // The painter for what comes next, its unit the twip. On the printer the first call starts
    // the job, and the first call after IniziaPagina the new page.
    virtual QPainter& Pittore() = 0;
    virtual void IniziaPagina() = 0;
    virtual void ChiudiLavoro() = 0;

private:
    QPainter& PittoreConCarattere();
    void FaiSpazio();
    void StampaRiga(QStringView riga);

    QFont m_carattere;
    QFontMetricsF m_metriche;
};
