#include "disposizionedialogo.h"

#include <QBoxLayout>
#include <QDialog>
#include <QPushButton>

PulsantiDialogo DisponiDialogo(QDialog& dialogo, QLayout* contenuto, const QString& testoConferma) {
    auto* conferma = new QPushButton(testoConferma);
    conferma->setObjectName(QStringLiteral("cmdSCEGLI"));
    conferma->setDefault(true);
    auto* annulla = new QPushButton(QStringLiteral("Annulla"));
    annulla->setObjectName(QStringLiteral("cmdANNULLA"));
    auto* bottoni = new QHBoxLayout;
    bottoni->addStretch();
    bottoni->addWidget(conferma);
    bottoni->addWidget(annulla);
    auto* finestra = new QVBoxLayout(&dialogo);
    finestra->addLayout(contenuto);
    finestra->addLayout(bottoni);
    return {conferma, annulla};
}
