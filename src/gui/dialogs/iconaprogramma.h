#pragma once

#include <QIcon>
#include <QImage>

// The program's icon, from the same SVG that the desktop menu shows, built into the program so
// every window carries it on any platform.
QIcon IconaProgramma();
// The icon drawn at one size, for the window icon and for the PNG files installed beside the SVG.
QImage DisegnaIcona(int lato);
