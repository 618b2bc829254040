#include "filetesto.h"

#include "cp1252.h"
#include "erroredatabase.h"

#include <QFile>
#include <QStringDecoder>

QString DecodificaTesto(const QByteArray& byte) {
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    // The decoder drops a leading byte-order mark itself.
    QString testo = utf8.decode(byte);
    return utf8.hasError() ? DaCp1252(byte) : testo;
}

FileTesto::FileTesto(const QString& percorso) {
    QFile file(percorso);
    if (!file.open(QIODevice::ReadOnly))
        throw ErroreDatabase(QStringLiteral("Impossibile leggere il file ") + percorso +
                             QStringLiteral(": ") + file.errorString());
    m_testo = DecodificaTesto(file.readAll());
}

QString FileTesto::ProssimaRiga() {
    if (Fine())
        return {};
    qsizetype fine = m_testo.indexOf(QLatin1Char('\n'), m_posizione);
    if (fine < 0)
        fine = m_testo.size();
    qsizetype lunghezza = fine - m_posizione;
    if (lunghezza > 0 && m_testo.at(fine - 1) == QLatin1Char('\r'))
        --lunghezza;
    QString riga = m_testo.mid(m_posizione, lunghezza);
    m_posizione = fine + 1;
    return riga;
}
