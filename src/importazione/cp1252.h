#pragma once

#include <QByteArrayView>
#include <QString>

// Windows-1252 bytes as text; the five bytes the code page leaves undefined keep their own value.
QString DecodificaCp1252(QByteArrayView byte);
