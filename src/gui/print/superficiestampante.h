#pragma once

#include "superficie.h"

#include <QPainter>

class QPrinter;

// The printer's pages as a print surface. The job starts at the first drawing, and a page asked
// for starts only when something is drawn on it, so no page is left blank and a job with nothing
// to print prints nothing.
class SuperficieStampante final : public Superficie {
public:
    explicit SuperficieStampante(QPrinter& stampante);
    // A job the layout did not end, because it failed, is abandoned rather than half printed.
    ~SuperficieStampante() override;

    bool EStampante() const override { return true; }
    QSizeF Area() const override;

protected:
    QPainter& Pittore() override;
    void IniziaPagina() override { m_paginaChiesta = true; }
    void ChiudiLavoro() override;

private:
    bool Pronta() const;
    void Inizia();

    QPrinter& m_stampante;
    QPainter m_pittore;
    bool m_paginaChiesta = false;
};
