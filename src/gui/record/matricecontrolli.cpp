#include "matricecontrolli.h"

#include <QMetaProperty>
#include <QWidget>

namespace {

QString Chiave(const QString& nome, int indice) {
    return nome + QLatin1Char('(') + QString::number(indice) + QLatin1Char(')');
}

// Visibility and the name belong to the element, not to the template.
bool DaCopiare(const QMetaProperty& proprieta) {
    const QLatin1String nome(proprieta.name());
    return proprieta.isWritable() && proprieta.isStored() && nome != QLatin1String("objectName") &&
           nome != QLatin1String("visible");
}

// Only what differs from a bare widget is copied, so that what the template inherits from the
// window (font, palette) stays inherited in the copy.
void CopiaProprieta(const QWidget& modello, QWidget& copia) {
    const QMetaObject* meta = modello.metaObject();
    for (int i = 0; i < meta->propertyCount(); ++i) {
        const QMetaProperty proprieta = meta->property(i);
        if (!DaCopiare(proprieta))
            continue;
        const QVariant valore = proprieta.read(&modello);
        if (valore != proprieta.read(&copia))
            proprieta.write(&copia, valore);
    }
    const QList<QByteArray> dinamiche = modello.dynamicPropertyNames();
    for (const QByteArray& nome : dinamiche)
        copia.setProperty(nome.constData(), modello.property(nome.constData()));
}

} // namespace

MatriceControlli::MatriceControlli(QString nome, QWidget& finestra, Fabbrica fabbrica)
    : m_nome(std::move(nome))
    , m_finestra(&finestra)
    , m_fabbrica(std::move(fabbrica))
    , m_modello(m_fabbrica(&finestra)) {
    m_modello->setObjectName(Chiave(m_nome, 0));
    m_modello->hide();
}

int MatriceControlli::LimiteSuperiore() const {
    return static_cast<int>(m_elementi.size());
}

QWidget* MatriceControlli::Elemento(int indice) const {
    if (indice == 0)
        return m_modello;
    return indice > 0 && indice <= m_elementi.size() ? m_elementi.at(indice - 1) : nullptr;
}

QWidget& MatriceControlli::Carica() {
    QWidget* elemento = m_fabbrica(m_finestra);
    elemento->hide();
    CopiaProprieta(*m_modello, *elemento);
    // Set even when equal: a widget never sized takes its own size hint when first shown.
    elemento->setGeometry(m_modello->geometry());
    elemento->setObjectName(Chiave(m_nome, LimiteSuperiore() + 1));
    m_elementi.append(elemento);
    return *elemento;
}

void MatriceControlli::Scarica() {
    qDeleteAll(m_elementi);
    m_elementi.clear();
}
