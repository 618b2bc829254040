#pragma once

#include <QtGlobal>

class FinestraControlli;

// Applies the collection's stored colours to the window and its controls: the window's
// background; background and text of labels and check boxes; text of text boxes, lists and
// combos. A colour not set leaves the controls as built and the window with its own colour.
void ApplicaColori(FinestraControlli& finestra, qint32 idCollezione);
