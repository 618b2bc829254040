#pragma once

#include <QPaintDevice>
#include <QPaintEngine>

// A paint device, its own engine, recording texts, lines and picture rectangles in painter coordinates.
class RegistroDisegno final : public QPaintDevice, private QPaintEngine {
public:
    struct Testo {
        QString testo;
        QPointF punto; // the baseline's start
    };
    QList<Testo> testi;
    QList<QLineF> linee;
    QList<QRectF> figure;

    RegistroDisegno()
        : QPaintEngine(AllFeatures) {}
    QPaintEngine* paintEngine() const override { return const_cast<RegistroDisegno*>(this); }

    QStringList Testi() const { return m_elenco; }

protected:
    int metric(PaintDeviceMetric metrica) const override {
        if (metrica == PdmWidth || metrica == PdmHeight)
            return 1'000'000;
        if (metrica == PdmWidthMM || metrica == PdmHeightMM)
            return 1'000'000 / 960 * 254;
        if (metrica == PdmDevicePixelRatioScaled)
            return static_cast<int>(devicePixelRatioFScale());
        if (metrica == PdmDevicePixelRatio)
            return 1;
        return metrica >= PdmDpiX && metrica <= PdmPhysicalDpiY ? 96 : 32;
    }

private:
    QStringList m_elenco;

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    Type type() const override { return User; }
    void drawTextItem(const QPointF& punto, const QTextItem& testo) override {
        testi.append({testo.text(), punto});
        m_elenco.append(testo.text());
    }
    // Integer lines reach this through the base class.
    void drawLines(const QLineF* inizio, int quante) override {
        linee.append(QList<QLineF>(inizio, inizio + quante));
    }
    // Shapes are ignored; left to the base class, its two polygon versions would call each other forever.
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    void drawPixmap(const QRectF& dove, const QPixmap&, const QRectF&) override { figure.append(dove); }
    void drawImage(const QRectF& dove, const QImage&, const QRectF&, Qt::ImageConversionFlags) override {
        figure.append(dove);
    }
};
