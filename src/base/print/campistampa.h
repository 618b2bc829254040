#pragma once

#include <QList>
#include <QString>

// One field of a record as both print layouts read it.
struct CampoStampa {
    QString nome;
    QString etichetta;
    QString tipo;
    QString valore;

    // The label, or the name when the label is empty.
    QString Etichetta() const;
    bool Immagine() const;
};

// The fields of record `numero` in the order of their names; a field with no value row for the
// record is not there. `conDimensioni`: the sheet layout's statement, which also reads the
// control's size.
QList<CampoStampa> CampiDelRecord(qint32 idCollezione, qint32 numero, bool conDimensioni);
