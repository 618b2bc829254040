#include "traduzioneqt.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

bool CaricaTraduzioneQt() {
    static QTranslator traduzione;
    if (!traduzione.isEmpty())
        return true;
    return traduzione.load(QStringLiteral("qtbase_it"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)) &&
           QCoreApplication::installTranslator(&traduzione);
}
