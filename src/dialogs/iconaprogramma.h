#pragma once

#include <QIcon>

// The program's icon, drawn rather than shipped so that every window carries it on any platform.
QIcon IconaProgramma();
