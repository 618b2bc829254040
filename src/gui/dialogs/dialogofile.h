#pragma once

#include <QString>

class QWidget;

// The one file dialog of the program. Mode 1 opens an existing file, any other mode saves (asking
// before overwriting). `filtro` lists caption and pattern pairs separated by NUL characters, e.g.
// "File di Modello\0*.wzd"; the first pair is preselected. Cancel gives the empty text, and so does a
// file the program holds chosen to be opened, after saying so.
QString DialogoFile(QWidget* proprietario, int modo, const QString& titolo, const QString& nomeFile,
                    const QString& filtro, const QString& cartellaIniziale, const QString& estensione);
