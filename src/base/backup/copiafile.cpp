#include "copiafile.h"

#include "erroredatabase.h"

#include <QFile>
#include <QSaveFile>

namespace {

constexpr qint64 Blocco = 1 << 20;

[[noreturn]] void Fallita(const QString& percorso, const QString& motivo) {
    throw ErroreDatabase(QStringLiteral("Copia non riuscita: ") + percorso + QStringLiteral(": ") + motivo);
}

} // namespace

void CopiaFile(const QString& sorgente, const QString& destinazione) {
    QFile origine(sorgente);
    if (!origine.open(QIODevice::ReadOnly))
        Fallita(sorgente, origine.errorString());
    QSaveFile copia(destinazione);
    if (!copia.open(QIODevice::WriteOnly))
        Fallita(destinazione, copia.errorString());
    while (!origine.atEnd()) {
        const QByteArray dati = origine.read(Blocco);
        if (dati.isEmpty() && origine.error() != QFileDevice::NoError)
            Fallita(sorgente, origine.errorString());
        if (copia.write(dati) != dati.size())
            Fallita(destinazione, copia.errorString());
    }
    if (!copia.commit())
        Fallita(destinazione, copia.errorString());
}
