#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

// A text file read line by line, never whole: as UTF-8 when all its bytes are valid UTF-8 (a
// byte-order mark is dropped), otherwise as Windows-1252. A line ends at LF, CR LF or a lone CR.
class FileTesto final {
public:
    // Bytes read at a time, in the scan that decides the encoding and while reading lines.
    static constexpr qsizetype Blocco = 64 * 1024;

    // Throws ErroreDatabase with the reason when the file cannot be read.
    explicit FileTesto(const QString& percorso);

    bool Fine() const { return m_posizione >= m_blocco.size(); }
    // The next line; an empty text at the end.
    QString ProssimaRiga();

private:
    bool Utf8Valido();
    void Riempi();
    [[noreturn]] void Errore() const;
    QString Decodifica(QByteArray riga);

    QFile m_file;
    QByteArray m_blocco;
    qsizetype m_posizione = 0;
    bool m_utf8 = true;
    bool m_primaRiga = true;
};
