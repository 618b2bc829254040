// Writes the program's icon as PNG files of the hicolor theme: DEST/NxN/apps/org.example.orvix.png.
// Usage: iconepng DEST
#include "iconaprogramma.h"

#include <QDir>
#include <QGuiApplication>
#include <cstdio>

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication applicazione(argc, argv);
    if (argc != 2) {
        std::fputs("Usage: iconepng DEST\n", stderr);
        return 2;
    }
    for (int lato : {16, 24, 32, 48, 64, 128, 256}) {
        const QString cartella =
            QStringLiteral("%1/%2x%2/apps").arg(QString::fromLocal8Bit(argv[1])).arg(lato);
        const QString file = cartella + QStringLiteral("/org.example.orvix.png");
        if (!QDir().mkpath(cartella) || !DisegnaIcona(lato).save(file)) {
            std::fprintf(stderr, "iconepng: cannot write %s\n", qPrintable(file));
            return 1;
        }
    }
    return 0;
}
