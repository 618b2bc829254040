#pragma once

#include <QList>
#include <QString>

// A profile file ("[section]" lines followed by "key=value" lines) held in memory for several reads
// and writes. Section and key names match without regard to case; values are the text after "=" with
// the blanks around it removed, at most 254 characters of it. A write changes or adds one line and
// leaves every other byte of the file as it was. The file is read as UTF-8 when its bytes are valid
// UTF-8, else as Windows-1252; it is written in Windows-1252 unless it holds a character that code page
// lacks, or was UTF-8 already: then the whole file is written in UTF-8, which reads back the same text.
class FileProfilo final {
public:
    // A missing or unreadable file reads as an empty one.
    explicit FileProfilo(const QString& percorso);

    QString Leggi(const QString& sezione, const QString& chiave) const;
    // Replaces the key's value in place, or adds the key at the end of its section, or the section
    // at the end of the file. A value is written as it is: a line break in it ends the value on reading.
    void Scrivi(const QString& sezione, const QString& chiave, const QString& valore);
    // Writes the file whole, or leaves it as it was; false when it cannot be written.
    bool Salva() const;

    // The longest value a read gives back.
    static constexpr qsizetype LunghezzaMassima = 254;

private:
    struct Riga {
        QString testo;
        QString fine; // CR LF, LF, CR, or empty on a last line without one
    };
    struct Intervallo {
        qsizetype intestazione; // the "[section]" line; -1 when the section is missing
        qsizetype fine;         // the first line past the section
    };

    static QList<Riga> Dividi(const QString& testo);
    Intervallo Sezione(const QString& nome) const;
    qsizetype Chiave(const Intervallo& sezione, const QString& nome) const;
    void Sostituisci(qsizetype dove, qsizetype quante, const QString& testo);

    QString m_percorso;
    QList<Riga> m_righe;
    bool m_bom = false; // a byte-order mark opens the file, not its first line
    bool m_utf8 = false;
};

// One key written to, or read from, a profile file: every access opens the file anew.
bool ScriviIni(const QString& sezione, const QString& chiave, const QString& valore, const QString& file);
QString LeggiIni(const QString& sezione, const QString& chiave, const QString& file);
