#pragma once

#include <QList>
#include <QString>
#include <functional>

class QWidget;

// A control array: a hidden template element with index 0 and the elements loaded from it at run
// time. Each element is named "Name(index)" and starts as a copy of the template.
class MatriceControlli final {
public:
    using Fabbrica = std::function<QWidget*(QWidget* padre)>;

    // The factory makes a bare widget of the template's class; the template is made with it too.
    MatriceControlli(QString nome, QWidget& finestra, Fabbrica fabbrica);
    MatriceControlli(const MatriceControlli&) = delete;
    MatriceControlli& operator=(const MatriceControlli&) = delete;

    const QString& Nome() const { return m_nome; }
    QWidget& Modello() const { return *m_modello; }
    int LimiteSuperiore() const;
    QWidget* Elemento(int indice) const;

private:
    // Through the window, which keeps every element of its arrays in creation order.
    friend class FinestraControlli;

    // Loads the element upper bound + 1, hidden.
    QWidget& Carica();
    // Destroys every loaded element: only the template is left.
    void Scarica();

    QString m_nome;
    QWidget* m_finestra;
    Fabbrica m_fabbrica;
    QWidget* m_modello;
    QList<QWidget*> m_elementi;
};
