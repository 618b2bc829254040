#include "registrodisegno.h"

#include <QPaintEngine>
#include <QPixmap>
#include <QTextItem>
#include <QTransform>

namespace {

class MotoreRegistro final : public QPaintEngine {
public:
    explicit MotoreRegistro(RegistroDisegno& registro)
        : QPaintEngine(AllFeatures)
        , m_registro(registro) {}

    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState& stato) override {
        if (stato.state() & DirtyTransform)
            m_trasformazione = stato.transform();
    }
    Type type() const override { return User; }

    void drawTextItem(const QPointF& punto, const QTextItem& testo) override {
        m_registro.testi.append({testo.text(), punto, m_trasformazione.map(punto)});
    }
    void drawLines(const QLineF* linee, int quante) override {
        for (int i = 0; i < quante; ++i)
            m_registro.linee.append(linee[i]);
    }
    void drawLines(const QLine* linee, int quante) override {
        for (int i = 0; i < quante; ++i)
            m_registro.linee.append(QLineF(linee[i]));
    }
    // Shapes are not what a layout is checked by; the base class would turn them into each other forever.
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    void drawPolygon(const QPoint*, int, PolygonDrawMode) override {}
    void drawPixmap(const QRectF& dove, const QPixmap& figura, const QRectF&) override {
        m_registro.figure.append({dove, figura.size()});
    }
    void drawImage(const QRectF& dove, const QImage& figura, const QRectF&,
                   Qt::ImageConversionFlags) override {
        m_registro.figure.append({dove, figura.size()});
    }

private:
    RegistroDisegno& m_registro;
    QTransform m_trasformazione;
};

} // namespace

RegistroDisegno::RegistroDisegno()
    : m_motore(std::make_unique<MotoreRegistro>(*this)) {}

RegistroDisegno::~RegistroDisegno() = default;

QPaintEngine* RegistroDisegno::paintEngine() const {
    return m_motore.get();
}

int RegistroDisegno::metric(PaintDeviceMetric metrica) const {
    switch (metrica) {
    case PdmWidth:
    case PdmHeight:
        return 1'000'000;
    case PdmWidthMM:
    case PdmHeightMM:
        return 1'000'000 / 960 * 254;
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return 96;
    case PdmDevicePixelRatio:
        return 1;
    case PdmDevicePixelRatioScaled:
        return static_cast<int>(devicePixelRatioFScale());
    default:
        return 32;
    }
}

QStringList RegistroDisegno::Testi() const {
    QStringList elenco;
    for (const Testo& testo : testi)
        elenco << testo.testo;
    return elenco;
}

const RegistroDisegno::Testo* RegistroDisegno::Cerca(const QString& testo) const {
    for (const Testo& disegnato : testi)
        if (disegnato.testo == testo)
            return &disegnato;
    return nullptr;
}
