#include "archivio.h"

#include "indiciricerca.h"
#include "programma.h"

#include <QCoreApplication>
#include <QDir>

namespace {

QString& PercorsoApplicazione() {
    static QString percorso;
    return percorso;
}

QStringList& Tipi() {
    static QStringList tipi;
    return tipi;
}

} // namespace

const QString& AppPath() {
    return PercorsoApplicazione();
}

Connessione& Database() {
    static Connessione connessione;
    return connessione;
}

const QStringList& ControlTypes() {
    return Tipi();
}

QString ConSeparatoreFinale(const QString& cartella) {
    const QString nativa = QDir::toNativeSeparators(cartella);
    return nativa.endsWith(QDir::separator()) ? nativa : nativa + QDir::separator();
}

void ApriDatabase(const QString& cartella) {
    PercorsoApplicazione() = ConSeparatoreFinale(cartella);
    Database().Apri(AppPath() + Programma::NomeArchivio(), Programma::PasswordArchivio());
    CompletaIndiciRicerca(Database());
    Tipi() = QStringLiteral("textbox|combo|checkbox|slider|memo|list|image").split(QLatin1Char('|'));
}

void ApriDatabase() {
    ApriDatabase(AppPath().isEmpty() ? QCoreApplication::applicationDirPath() : AppPath());
}

void ChiudiDatabase() {
    Database().Chiudi();
}

void RichiediDatabase() {
    if (!Database().Aperta())
        Database().Fallisci();
}
