#pragma once

#include <QString>

class frmMAIN;

// The program's start routine: single instance, store, main frame, collections window, and the
// first collection when there is none. Answers the process exit code.
int Avvio(int argc, char** argv);

// Everything after the single-instance check; throws when the store cannot be opened.
frmMAIN* EseguiAvvio(const QString& cartellaProgramma);

// Loads the collections window into the frame and fills its list; true when there is no collection.
bool CaricaCollezioni(frmMAIN& frame);

// Holds the single-instance lock in the user's runtime folder; false when another instance holds it.
bool PrimaIstanza();
