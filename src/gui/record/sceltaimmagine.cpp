#include "sceltaimmagine.h"

#include "archivio.h"
#include "dialogofile.h"

#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <stdexcept>

namespace {

[[noreturn]] void Fallisci(const QString& percorso, const QString& motivo) {
    const QString testo = QStringLiteral("Impossibile caricare l'immagine \"") +
                          QDir::toNativeSeparators(percorso) + QStringLiteral("\": ") + motivo;
    throw std::runtime_error(testo.toLocal8Bit().toStdString());
}

} // namespace

QString ScegliImmagine(QWidget* proprietario) {
    return DialogoFile(
        proprietario, 1, QStringLiteral("Scegli Immagine..."), QString(),
        QStringLiteral("Immagini Supportate\0*.bmp;*.gif;*.jpg;*.jpeg;*.png;*.wmf\0Tutti i files\0*.*\0"),
        AppPath(), QString());
}

QPixmap CaricaImmagine(const QString& percorso) {
    if (!QFileInfo(percorso).isFile())
        Fallisci(percorso, QStringLiteral("il file non esiste."));
    QImageReader lettore(percorso);
    const QImage immagine = lettore.read();
    if (immagine.isNull())
        Fallisci(percorso,
                 QStringLiteral("formato non riconosciuto (") + lettore.errorString() + QStringLiteral(")."));
    return QPixmap::fromImage(immagine);
}
