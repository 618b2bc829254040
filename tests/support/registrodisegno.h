#pragma once

#include <QLineF>
#include <QList>
#include <QPaintDevice>
#include <QRectF>
#include <QString>
#include <memory>

// A paint device that keeps what is drawn on it instead of pixels: the texts with the point they
// were drawn at, the lines and the pictures, each in the painter's own coordinates and in the
// device's (through the painter's transform), so that a test can say what a layout drew and where.
class RegistroDisegno final : public QPaintDevice {
public:
    struct Testo {
        QString testo;
        QPointF punto; // the baseline's start, in the painter's coordinates
        QPointF sulDispositivo;
    };
    struct Figura {
        QRectF dove;
        QSize pixel;
    };

    RegistroDisegno();
    ~RegistroDisegno() override;

    QPaintEngine* paintEngine() const override;

    QList<Testo> testi;
    QList<QLineF> linee;
    QList<Figura> figure;

    QStringList Testi() const;
    // The first text drawn that equals `testo`; nullptr when none.
    const Testo* Cerca(const QString& testo) const;

protected:
    int metric(PaintDeviceMetric metrica) const override;

private:
    std::unique_ptr<QPaintEngine> m_motore;
};
