#include "fileprofilo.h"

#include "cp1252.h"

#include <QFile>
#include <QSaveFile>
#include <optional>

namespace {

const QString FineRiga = QStringLiteral("\r\n");
constexpr QChar Bom(0xFEFF);

bool Blank(QChar c) {
    return c == u' ' || c == u'\t';
}

// Spaces and tabs removed at both ends; other white space is part of the value.
QString SenzaBlank(const QString& testo) {
    qsizetype inizio = 0;
    qsizetype fine = testo.size();
    while (inizio < fine && Blank(testo.at(inizio)))
        ++inizio;
    while (fine > inizio && Blank(testo.at(fine - 1)))
        --fine;
    return testo.mid(inizio, fine - inizio);
}

std::optional<QString> NomeSezione(const QString& riga) {
    const QString pulita = SenzaBlank(riga);
    const qsizetype chiusa = pulita.indexOf(u']');
    if (!pulita.startsWith(u'[') || chiusa < 0)
        return std::nullopt;
    return SenzaBlank(pulita.mid(1, chiusa - 1));
}

// Where the "=" of a key line is; -1 for a comment, a blank line or any other line.
qsizetype Uguale(const QString& riga) {
    if (SenzaBlank(riga).startsWith(u';'))
        return -1;
    return riga.indexOf(u'=');
}

bool StessoNome(const QString& a, const QString& b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

QString Tagliato(const QString& valore) {
    if (valore.size() <= FileProfilo::LunghezzaMassima)
        return valore;
    qsizetype taglio = FileProfilo::LunghezzaMassima;
    // Never half of a character that takes two units.
    if (valore.at(taglio - 1).isHighSurrogate())
        --taglio;
    return valore.left(taglio);
}

} // namespace

FileProfilo::FileProfilo(const QString& percorso)
    : m_percorso(percorso) {
    QFile file(percorso);
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QByteArray byte = file.readAll();
    m_utf8 = LettoComeUtf8(byte);
    QString testo = DaCp1252OUtf8(byte);
    m_bom = testo.startsWith(Bom);
    m_righe = Dividi(m_bom ? testo.mid(1) : testo);
}

QList<FileProfilo::Riga> FileProfilo::Dividi(const QString& testo) {
    QList<Riga> righe;
    qsizetype inizio = 0;
    for (qsizetype i = 0; i < testo.size(); ++i) {
        const QChar c = testo.at(i);
        if (c != u'\n' && c != u'\r')
            continue;
        const qsizetype lunghezzaFine =
            c == u'\r' && i + 1 < testo.size() && testo.at(i + 1) == u'\n' ? 2 : 1;
        righe.append({testo.mid(inizio, i - inizio), testo.mid(i, lunghezzaFine)});
        i += lunghezzaFine - 1;
        inizio = i + 1;
    }
    if (inizio < testo.size())
        righe.append({testo.mid(inizio), QString()});
    return righe;
}

FileProfilo::Intervallo FileProfilo::Sezione(const QString& nome) const {
    Intervallo sezione{-1, m_righe.size()};
    for (qsizetype i = 0; i < m_righe.size(); ++i) {
        const std::optional<QString> trovato = NomeSezione(m_righe.at(i).testo);
        if (!trovato)
            continue;
        if (sezione.intestazione >= 0) {
            sezione.fine = i;
            break;
        }
        if (StessoNome(*trovato, nome))
            sezione.intestazione = i;
    }
    return sezione;
}

qsizetype FileProfilo::Chiave(const Intervallo& sezione, const QString& nome) const {
    if (sezione.intestazione < 0)
        return -1;
    for (qsizetype i = sezione.intestazione + 1; i < sezione.fine; ++i) {
        const QString& riga = m_righe.at(i).testo;
        const qsizetype uguale = Uguale(riga);
        if (uguale >= 0 && StessoNome(SenzaBlank(riga.left(uguale)), nome))
            return i;
    }
    return -1;
}

QString FileProfilo::Leggi(const QString& sezione, const QString& chiave) const {
    const qsizetype trovata = Chiave(Sezione(sezione), chiave);
    if (trovata < 0)
        return {};
    const QString& riga = m_righe.at(trovata).testo;
    return Tagliato(SenzaBlank(riga.mid(Uguale(riga) + 1)));
}

// Puts the text's lines in place of `quante` lines from `dove`. A value may hold line breaks of its
// own: it is kept as the lines a later read of the file will find.
void FileProfilo::Sostituisci(qsizetype dove, qsizetype quante, const QString& testo) {
    if (dove > 0 && m_righe.at(dove - 1).fine.isEmpty())
        m_righe[dove - 1].fine = FineRiga;
    m_righe.remove(dove, quante);
    const QList<Riga> nuove = Dividi(testo);
    for (qsizetype i = 0; i < nuove.size(); ++i)
        m_righe.insert(dove + i, nuove.at(i));
}

void FileProfilo::Scrivi(const QString& sezione, const QString& chiave, const QString& valore) {
    const Intervallo trovata = Sezione(sezione);
    if (trovata.intestazione < 0) {
        Sostituisci(m_righe.size(), 0,
                    QLatin1Char('[') + sezione + QLatin1Char(']') + FineRiga + chiave + QLatin1Char('=') +
                        valore + FineRiga);
        return;
    }
    const qsizetype riga = Chiave(trovata, chiave);
    if (riga >= 0) {
        // The key keeps its own spelling and the line its own end.
        const Riga& vecchia = m_righe.at(riga);
        Sostituisci(riga, 1, vecchia.testo.left(Uguale(vecchia.testo) + 1) + valore + vecchia.fine);
        return;
    }
    // After the section's last line that is not blank: blank lines stay before the next section.
    qsizetype dove = trovata.fine;
    while (dove - 1 > trovata.intestazione && SenzaBlank(m_righe.at(dove - 1).testo).isEmpty())
        --dove;
    Sostituisci(dove, 0, chiave + QLatin1Char('=') + valore + FineRiga);
}

bool FileProfilo::Salva() const {
    QString testo = m_bom ? QString(Bom) : QString();
    for (const Riga& riga : m_righe)
        testo += riga.testo + riga.fine;
    QByteArray byte;
    if (!m_utf8 && Cp1252Contiene(testo))
        byte = InCp1252(testo);
    // Windows-1252 bytes that happen to be valid UTF-8 would read back as other text.
    if (byte.isNull() || LettoComeUtf8(byte))
        byte = testo.toUtf8();
    QSaveFile file(m_percorso);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(byte);
    return file.commit();
}

bool ScriviIni(const QString& sezione, const QString& chiave, const QString& valore, const QString& file) {
    FileProfilo profilo(file);
    profilo.Scrivi(sezione, chiave, valore);
    return profilo.Salva();
}

QString LeggiIni(const QString& sezione, const QString& chiave, const QString& file) {
    return FileProfilo(file).Leggi(sezione, chiave);
}
