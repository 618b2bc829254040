#pragma once

#include "matricecontrolli.h"

#include <QHash>
#include <QList>
#include <QWidget>

// A window made of the controls of a collection's fields: the control arrays Text1, Memo1,
// Combo1, List1, Check1, Slider1, Image1 and Label1, each with its hidden template element.
class FinestraControlli : public QWidget {
    Q_OBJECT

public:
    explicit FinestraControlli(QWidget* parent = nullptr);
    ~FinestraControlli() override;

    MatriceControlli Text1;
    MatriceControlli Memo1;
    MatriceControlli Combo1;
    MatriceControlli List1;
    MatriceControlli Check1;
    MatriceControlli Slider1;
    MatriceControlli Image1;
    MatriceControlli Label1;

    // Loads a new element of one of this window's arrays.
    QWidget& CaricaElemento(MatriceControlli& matrice);
    // Every loaded element, labels included, in creation order.
    const QList<QWidget*>& Elementi() const { return m_elementi; }
    // The loaded elements that show a field (all but the labels), in creation order.
    const QList<QWidget*>& ControlliCampo() const { return m_controlliCampo; }
    QWidget* Controllo(const QString& chiave) const { return m_perChiave.value(chiave); }
    // Tab order by each field control's "TabIndex"; ties keep the creation order.
    void OrdinaTabulazione();

    // Loading runs the window's load handler; unloading destroys the loaded elements.
    void Carica();
    void Scarica();

    QSize sizeHint() const override;

protected:
    virtual void Form_Load() {}
    // Called for each element as it is loaded, before the builder gives it its field's properties.
    virtual void ElementoCaricato(QWidget& /*elemento*/) {}

private:
    void PreparaModelli();

    QList<QWidget*> m_elementi;
    QList<QWidget*> m_controlliCampo;
    QHash<QString, QWidget*> m_perChiave;
};

// Whether the window is among the program's loaded windows.
bool FormCaricata(const FinestraControlli& finestra);

// The key that ties a control to its field, e.g. "Text1(3)".
QString ChiaveControllo(const QWidget& controllo);
