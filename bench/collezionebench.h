#pragma once

#include <QList>
#include <QString>

// One field of the measured collection and the value that record n stores for it,
// as the record window writes it (text, 0/1, slider position, item position).
struct DefinizioneCampo {
    QString nome;
    QString tipo;
    QString formula;
    QString special;
    QString (*valore)(qint32 n);
};

// Ten fields of every kind the record window loads with real work, one of them a formula.
const QList<DefinizioneCampo>& DefinizioniCampi();

struct CollezioneBench {
    qint32 id = -1;
    // campi.id of each definition, in the order of DefinizioniCampi().
    QList<qint32> idCampi;
};

// Creates the collection and its field rows through the program's routines.
CollezioneBench CreaCollezioneBench();
// A second collection of `campi` text boxes with no records, laid out the same way: the form whose
// layout the designer saves.
CollezioneBench CreaCollezioneDisposizione(int campi);
