#include "pulsantiimporta.h"

#include "confine.h"

#include <QDialog>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

PulsantiDialogo DisponiDialogoImporta(QDialog& dialogo, const QString& gruppo, const QList<QWidget*>& scelte,
                                      QWidget* nota, const std::function<void()>& conferma, int larghezza) {
    auto* riquadro = new QGroupBox(gruppo);
    auto* colonna = new QVBoxLayout(riquadro);
    for (QWidget* scelta : scelte)
        colonna->addWidget(scelta);
    auto* contenuto = new QVBoxLayout;
    contenuto->addWidget(riquadro);
    if (nota)
        contenuto->addWidget(nota);
    const PulsantiDialogo pulsanti = DisponiDialogo(dialogo, contenuto, QStringLiteral("OK"));
    pulsanti.conferma->setObjectName(QStringLiteral("OKButton"));
    pulsanti.annulla->setObjectName(QStringLiteral("CancelButton"));
    QObject::connect(pulsanti.conferma, &QPushButton::clicked, &dialogo, Protetto(conferma));
    QObject::connect(pulsanti.annulla, &QPushButton::clicked, &dialogo,
                     Protetto([&dialogo] { dialogo.reject(); }));
    dialogo.resize(larghezza, dialogo.sizeHint().height());
    return pulsanti;
}

QRadioButton* Opzione(const char* nome, const QString& testo) {
    auto* opzione = new QRadioButton(testo);
    opzione->setObjectName(QLatin1String(nome));
    return opzione;
}
