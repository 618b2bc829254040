#include "esportatesto.h"

#include "archivio.h"
#include "cp1252.h"
#include "fileinuso.h"
#include "testorecord.h"

#include <QDir>
#include <QFile>
#include <QStringList>
#include <algorithm>
#include <stdexcept>
#include <vector>

namespace {

constexpr qsizetype Blocco = 1 << 20;

// One cursor per field, in field-name order (the order of the per-record statement), over the
// field's values from record 1 on: the index on (id_campo, numerorecord) hands them over already in
// record order, so the file is written in one pass without sorting the whole collection.
std::vector<Recordset> CursoriCampi(qint32 idCollezione) {
    std::vector<Recordset> cursori;
    for (Recordset campi =
             Database().ApriRecordset(QStringLiteral("select id from campi where id_collezione=") +
                                      QString::number(idCollezione) + QStringLiteral(" order by nome, id"));
         !campi.Fine(); campi.Successivo())
        cursori.push_back(Database().ApriRecordset(
            QStringLiteral("select numerorecord, valore from valori where id_campo=") +
            campi.Campo(0).toString() + QStringLiteral(" and numerorecord>=1 order by numerorecord")));
    return cursori;
}

bool Esauriti(const std::vector<Recordset>& cursori) {
    return std::all_of(cursori.cbegin(), cursori.cend(), [](const Recordset& c) { return c.Fine(); });
}

QStringList NomiRecord(qint32 idCollezione, qint32 numeroRecord) {
    QStringList nomi;
    for (Recordset righe = Database().ApriRecordset(SqlCampiRecord(idCollezione, numeroRecord));
         !righe.Fine(); righe.Successivo())
        nomi << righe.Testo(QStringLiteral("nome"));
    return nomi;
}

// Met while writing Windows-1252: the file is written again, whole, in UTF-8.
struct CarattereFuoriCodifica {};

// The export file, written a block at a time; each failure says which file and why.
class FileTesto final {
public:
    FileTesto(const QString& percorso, bool utf8)
        : m_file(percorso)
        , m_utf8(utf8) {
        if (!m_file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered))
            Fallisci(QStringLiteral("Impossibile creare il file \""));
        m_blocco.reserve(Blocco + Blocco / 8);
        // The byte-order mark tells spreadsheets, and the program's own import, how to read it.
        if (m_utf8)
            m_blocco.append("\xEF\xBB\xBF");
    }

    void Accoda(QStringView testo) {
        if (m_utf8)
            m_blocco.append(testo.toUtf8());
        else if (!AccodaCp1252(testo, m_blocco))
            throw CarattereFuoriCodifica{};
    }
    void Tab() { m_blocco.append('\t'); }
    void FineRiga() {
        m_blocco.append("\r\n", 2);
        if (m_blocco.size() >= Blocco)
            Svuota();
    }
    void Chiudi() {
        Svuota();
        m_file.close();
    }

private:
    void Svuota() {
        if (m_file.write(m_blocco) != m_blocco.size())
            Fallisci(QStringLiteral("Impossibile scrivere il file \""));
        m_blocco.clear();
    }

    [[noreturn]] void Fallisci(const QString& inizio) const {
        const QString testo = inizio + QDir::toNativeSeparators(m_file.fileName()) + QStringLiteral("\": ") +
                              m_file.errorString();
        throw std::runtime_error(testo.toLocal8Bit().toStdString());
    }

    QFile m_file;
    bool m_utf8;
    QByteArray m_blocco;
};

void Scrivi(qint32 idCollezione, const QString& file, bool utf8) {
    FileTesto uscita(file, utf8);
    std::vector<Recordset> cursori = CursoriCampi(idCollezione);
    if (Esauriti(cursori)) {
        uscita.Chiudi();
        return;
    }
    uscita.Accoda(NomiRecord(idCollezione, 1).join(QLatin1Char('\t')));
    uscita.FineRiga();
    // A record number with no value rows, which the numbering never leaves, still gets its line.
    for (qint64 corrente = 1; !Esauriti(cursori); ++corrente) {
        bool primoCampo = true;
        for (Recordset& cursore : cursori)
            for (; !cursore.Fine() && cursore.Campo(0).toLongLong() == corrente; cursore.Successivo()) {
                if (!primoCampo)
                    uscita.Tab();
                uscita.Accoda(cursore.Campo(1).toString());
                primoCampo = false;
            }
        uscita.FineRiga();
    }
    uscita.Chiudi();
}

} // namespace

// Windows-1252, the code page of the interface; a collection holding a character that code page
// lacks is written in UTF-8 instead, so no character is lost.
void EsportaTesto(qint32 idCollezione, const QString& file) {
    VerificaFileLibero(file, UsoFile::Scrittura);
    try {
        Scrivi(idCollezione, file, false);
    } catch (const CarattereFuoriCodifica&) {
        Scrivi(idCollezione, file, true);
    }
}
