#pragma once

// Qt's own Italian texts for its standard dialogs and buttons (file, colour, printer, "Annulla"),
// from the system's Qt translations; false when they are not installed (the texts stay English).
bool CaricaTraduzioneQt();
