#pragma once

#include <QString>

// A text file read whole: as UTF-8 when its bytes are valid UTF-8 (a byte-order mark is dropped),
// otherwise as Windows-1252. Lines end at LF, with the CR of a CR LF dropped; a CR elsewhere stays.
class FileTesto final {
public:
    // Throws ErroreDatabase with the reason when the file cannot be read.
    explicit FileTesto(const QString& percorso);

    bool Fine() const { return m_posizione >= m_testo.size(); }
    // The next line; an empty text at the end.
    QString ProssimaRiga();

private:
    QString m_testo;
    qsizetype m_posizione = 0;
};

// The text of file bytes, decoded as FileTesto decodes them.
QString DecodificaTesto(const QByteArray& byte);
