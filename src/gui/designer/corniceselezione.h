#pragma once

#include <QObject>
#include <QPointer>
#include <array>

class QWidget;

// The selection frame of a control: four line segments on the control's window, just outside the
// control's rectangle, that stay there while the control moves or changes size.
class CorniceSelezione final : public QObject {
    Q_OBJECT

public:
    explicit CorniceSelezione(QWidget& controllo);
    ~CorniceSelezione() override;
    CorniceSelezione(const CorniceSelezione&) = delete;
    CorniceSelezione& operator=(const CorniceSelezione&) = delete;

    // The segments: top, bottom, left, right.
    const std::array<QWidget*, 4>& Lati() const { return m_lati; }

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    void Adatta();

    QPointer<QWidget> m_controllo;
    std::array<QWidget*, 4> m_lati{};
};
