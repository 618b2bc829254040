#pragma once

#include "superficie.h"

#include <QList>
#include <QMarginsF>
#include <QPainter>
#include <QPicture>
#include <QWidget>

// A picture box that keeps what is drawn on it, shown as a sheet of paper: the drawing area sits
// inside the page's margins, 15 twips to a pixel. It has no pages: it is as tall as its owner
// makes it, and what is drawn below its bottom cannot be seen.
class CasellaFigura final : public QWidget, public Superficie {
    Q_OBJECT

public:
    explicit CasellaFigura(QWidget* parent = nullptr);

    // The page it stands for, in twips: its whole width, and the margins around the drawing area.
    void ImpostaPagina(double larghezza, const QMarginsF& margini);
    // Clears the drawing and puts the print position back at the top-left.
    void Cls();
    // What has been drawn so far, in the order it was drawn.
    QList<QPicture> Disegni();

    bool EStampante() const override { return false; }
    QSizeF Area() const override;

protected:
    void paintEvent(QPaintEvent* evento) override;
    QPainter& Pittore() override;
    void IniziaPagina() override {}
    void ChiudiLavoro() override {}

private:
    static constexpr int DisegniPerPezzo = 256;

    void Conserva();

    QMarginsF m_margini;
    QList<QPicture> m_disegni;
    QPicture m_corrente;
    QPainter m_pittore;
    int m_disegnati = 0;
};
