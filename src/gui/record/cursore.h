#pragma once

#include <QSlider>

// A horizontal slider whose Min may exceed its Max, as a field's range may be written: the track
// then runs from Max to Min, reversed.
class Cursore final : public QSlider {
    Q_OBJECT
    Q_PROPERTY(int Min READ Min WRITE ImpostaMin)
    Q_PROPERTY(int Max READ Max WRITE ImpostaMax)

public:
    explicit Cursore(QWidget* parent = nullptr);

    int Min() const { return m_min; }
    int Max() const { return m_max; }
    void ImpostaMin(int valore);
    void ImpostaMax(int valore);

private:
    void AggiornaIntervallo();

    int m_min = 0;
    int m_max = 10;
};
