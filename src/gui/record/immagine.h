#pragma once

#include <QLabel>

// The picture of an image field. Disabled, it still shows its picture as it is: a picture
// greyed out while the user only browses would misrepresent the record. Enabled (a record being
// entered or edited), a click on it asks for its picture.
class Immagine final : public QLabel {
    Q_OBJECT

public:
    explicit Immagine(QWidget* parent = nullptr);

Q_SIGNALS:
    void Click();

protected:
    void paintEvent(QPaintEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;
};
