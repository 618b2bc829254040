#pragma once

#include <QLabel>

// The picture of an image field. Disabled, it still shows its picture as it is: a picture
// greyed out while the user only browses would misrepresent the record.
class Immagine final : public QLabel {
    Q_OBJECT

public:
    explicit Immagine(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* evento) override;
};
