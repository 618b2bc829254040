#include "filetesto.h"

#include "cp1252.h"
#include "erroredatabase.h"

namespace {

bool Continuazione(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// Where a block may be cut so that no UTF-8 sequence is split: before its last byte that starts a
// character. Cutting there keeps invalid bytes invalid, since such a byte never continues one.
qsizetype Taglio(const QByteArray& blocco) {
    qsizetype taglio = blocco.size();
    while (taglio > 0 && Continuazione(blocco.at(taglio - 1)))
        --taglio;
    return taglio > 0 ? taglio - 1 : 0;
}

qsizetype FineRiga(const QByteArray& blocco, qsizetype da) {
    const char* inizio = blocco.constData();
    for (const char *p = inizio + da, *fine = inizio + blocco.size(); p != fine; ++p)
        if (*p == '\n' || *p == '\r')
            return p - inizio;
    return -1;
}

} // namespace

FileTesto::FileTesto(const QString& percorso)
    : m_file(percorso) {
    if (!m_file.open(QIODevice::ReadOnly))
        Errore();
    m_utf8 = Utf8Valido();
    if (!m_file.seek(0))
        Errore();
    Riempi();
}

void FileTesto::Errore() const {
    throw ErroreDatabase(QStringLiteral("Impossibile leggere il file ") + m_file.fileName() +
                         QStringLiteral(": ") + m_file.errorString());
}

// A first pass over the file, a block at a time, that only checks the bytes.
bool FileTesto::Utf8Valido() {
    QByteArray resto;
    for (;;) {
        const QByteArray letto = m_file.read(Blocco);
        if (letto.isEmpty() && m_file.error() != QFileDevice::NoError)
            Errore();
        if (letto.isEmpty())
            return QByteArrayView(resto).isValidUtf8();
        const QByteArray blocco = resto + letto;
        const qsizetype taglio = Taglio(blocco);
        // A character takes at most four bytes: a longer tail is no UTF-8, and is not carried on.
        if (blocco.size() - taglio > 4 || !QByteArrayView(blocco).first(taglio).isValidUtf8())
            return false;
        resto = blocco.mid(taglio);
    }
}

void FileTesto::Riempi() {
    if (!Fine())
        return;
    m_posizione = 0;
    m_blocco = m_file.read(Blocco);
    if (m_blocco.isEmpty() && m_file.error() != QFileDevice::NoError)
        Errore();
}

QString FileTesto::ProssimaRiga() {
    QByteArray riga;
    while (!Fine()) {
        const qsizetype fine = FineRiga(m_blocco, m_posizione);
        if (fine < 0) {
            riga += QByteArrayView(m_blocco).sliced(m_posizione);
            m_posizione = m_blocco.size();
            Riempi();
            continue;
        }
        riga += QByteArrayView(m_blocco).sliced(m_posizione, fine - m_posizione);
        const bool cr = m_blocco.at(fine) == '\r';
        m_posizione = fine + 1;
        Riempi();
        if (cr && !Fine() && m_blocco.at(m_posizione) == '\n') {
            ++m_posizione;
            Riempi();
        }
        break;
    }
    return Decodifica(std::move(riga));
}

QString FileTesto::Decodifica(QByteArray riga) {
    const bool prima = std::exchange(m_primaRiga, false);
    if (!m_utf8)
        return DaCp1252(riga);
    if (prima && riga.startsWith("\xEF\xBB\xBF"))
        riga.remove(0, 3);
    return QString::fromUtf8(riga);
}
