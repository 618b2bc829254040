#pragma once

#include <QLineF>
#include <QList>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QRectF>
#include <algorithm>

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

    QStringList Testi() const {
        QStringList elenco;
        for (const Testo& testo : testi)
            elenco << testo.testo;
        return elenco;
    }
    // The first text equal to `testo`, or nullptr.
    const Testo* Cerca(const QString& testo) const {
        const auto trovato =
            std::find_if(testi.begin(), testi.end(), [&](const Testo& t) { return t.testo == testo; });
        return trovato == testi.end() ? nullptr : &*trovato;
    }

protected:
    int metric(PaintDeviceMetric metrica) const override {
        switch (metrica) {
        case PdmWidth:
        case PdmHeight:
            return 1'000'000;
        case PdmWidthMM:
        case PdmHeightMM:
            return 1'000'000 / 960 * 254;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(devicePixelRatioFScale());
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return 96;
        default:
            return 32;
        }
    }

private:
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    Type type() const override { return User; }
    void drawTextItem(const QPointF& punto, const QTextItem& testo) override {
        testi.append({testo.text(), punto});
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
