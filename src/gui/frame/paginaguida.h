#pragma once

#include <QString>

class QWidget;

// The help guide: guidaorvix/ among the shipped files, one page per area of the program.
QString PercorsoGuida(const QString& pagina = QStringLiteral("index.html"));

// The page that tells about the window `dove` lies in: the nearest window of the program, out
// through the windows that own it, that the guide has a page for; the index when none has one.
QString PaginaGuida(const QWidget* dove);
