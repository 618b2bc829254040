#include "pulsantiimporta.h"

#include <QPushButton>

PulsantiDialogo DisponiDialogoImporta(QDialog& dialogo, QLayout* contenuto) {
    const PulsantiDialogo pulsanti = DisponiDialogo(dialogo, contenuto, QStringLiteral("OK"));
    pulsanti.conferma->setObjectName(QStringLiteral("OKButton"));
    pulsanti.annulla->setObjectName(QStringLiteral("CancelButton"));
    return pulsanti;
}
