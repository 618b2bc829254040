#pragma once

#include <QPixmap>
#include <QString>

class QWidget;

// "Scegli Immagine...": the open dialog for a picture, starting in the program's folder. The
// chosen path, or an empty text when the user cancels.
QString ScegliImmagine(QWidget* proprietario);
// The picture in a file. A missing file, or one whose format cannot be read (a Windows metafile
// among them), fails with a message that names the file.
QPixmap CaricaImmagine(const QString& percorso);
