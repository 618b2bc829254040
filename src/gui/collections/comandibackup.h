#pragma once

#include <functional>

class QString;
class QWidget;

// "Backup": the whole store copied to a file the user chooses.
void Backup(QWidget* proprietario);

// "Restore": the question when a record window is open and the choice of the backup file. The steps
// that follow unload the very window whose menu started the command, so they belong to the frame,
// which installs them here; until it does, the command stops after the choice.
using Ripristinatore = std::function<void(const QString& backup)>;
void ImpostaRipristinatore(Ripristinatore ripristinatore);
void Restore(QWidget* proprietario);
