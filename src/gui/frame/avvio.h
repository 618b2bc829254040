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

// Brings the frame to the front, restored if minimized, and over it the modal window it waits on
// (at the first start, the first collection's prompt): what a second start asks for.
void PortaDavanti();
