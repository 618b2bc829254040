#include "archiviojet.h"

#include "erroredatabase.h"
#include "intestazionejet.h"
#include "numeri.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QtEndian>
#include <cmath>
#include <mdbtools.h>

namespace {

[[noreturn]] void Errore(const QString& testo, const QString& percorso) {
    throw ErroreDatabase(testo + QStringLiteral(": ") + percorso);
}

IntestazioneJet Intestazione(const QString& percorso) {
    QFile file(percorso);
    if (!file.open(QIODevice::ReadOnly))
        Errore(QStringLiteral("Impossibile aprire l'archivio (") + file.errorString() + QLatin1Char(')'),
               percorso);
    return LeggiIntestazioneJet(file.read(0x200));
}

void VerificaIntestazione(const IntestazioneJet& intestazione, const QString& percorso,
                          const QString& password) {
    if (intestazione.versione == VersioneJet::Ace)
        Errore(QStringLiteral(
                   "L'archivio è nel formato di Access 2007 o successivo, che non può essere importato"),
               percorso);
    if (intestazione.versione == VersioneJet::NonJet)
        Errore(QStringLiteral("Il file non è un archivio di Tarvino"), percorso);
    if (!PasswordAccettata(intestazione, password))
        Errore(QStringLiteral("Password non valida"), percorso);
}

QString DaUtf8(const char* testo) {
    return QString::fromUtf8(testo);
}

// The text of a Jet string or memo as libmdb converts it, with room for the whole of it.
QString TestoJet(MdbHandle& archivio, const char* dati, size_t lunghezza) {
    if (lunghezza == 0)
        return {};
    QByteArray utf8(static_cast<qsizetype>(lunghezza * 3 + 16), Qt::Uninitialized);
    const int scritti =
        mdb_unicode2ascii(&archivio, dati, lunghezza, utf8.data(), static_cast<size_t>(utf8.size()));
    return QString::fromUtf8(utf8.constData(), scritti);
}

// A memo's bytes, whatever their length: inline, on one long-value page, or along a chain of them.
// libmdb's own reader stops at its bind size.
QByteArray BytesMemo(MdbHandle& archivio, int inizio, int lunghezza) {
    constexpr int Testata = 12;
    if (lunghezza < Testata)
        return {};
    const unsigned char* campo = archivio.pg_buf + inizio;
    const quint32 testa = qFromLittleEndian<quint32>(campo);
    qint32 pagRiga = qFromLittleEndian<qint32>(campo + 4);
    if (testa & 0x80000000u)
        return QByteArray(reinterpret_cast<const char*>(campo + Testata), lunghezza - Testata);
    void* pagina = nullptr;
    int posizione = 0;
    size_t dimensione = 0;
    if (testa & 0x40000000u) {
        if (mdb_find_pg_row(&archivio, pagRiga, &pagina, &posizione, &dimensione) != 0)
            return {};
        return QByteArray(static_cast<const char*>(pagina) + posizione, static_cast<qsizetype>(dimensione));
    }
    const qsizetype totale = testa & 0x3FFFFFFFu;
    QByteArray memo;
    while (pagRiga != 0 && memo.size() < totale) {
        if (mdb_find_pg_row(&archivio, pagRiga, &pagina, &posizione, &dimensione) != 0 || dimensione < 4)
            break;
        const auto* riga = static_cast<const unsigned char*>(pagina) + posizione;
        memo.append(reinterpret_cast<const char*>(riga + 4), static_cast<qsizetype>(dimensione - 4));
        pagRiga = qFromLittleEndian<qint32>(riga);
    }
    return memo.left(totale);
}

// Rows that libmdb cannot reach (a page missing, or no longer the table's) are skipped without a
// word; only the count the table definition keeps shows them missing.
bool RigheIntere(MdbTableDef* tabella) {
    if (!mdb_read_columns(tabella))
        return false;
    mdb_rewind_table(tabella);
    unsigned long lette = 0;
    while (mdb_fetch_row(tabella))
        ++lette;
    return lette == tabella->num_rows;
}

constexpr unsigned long PaginaCatalogo = 2;

// libmdb reads a table's page maps without checking that their pages exist, and crashes on the
// garbage it gets from a file cut short: the definition page and both maps must lie in the file.
bool MappeNelFile(MdbHandle& archivio, unsigned long definizione, qint64 pagine) {
    if (static_cast<qint64>(definizione) >= pagine || mdb_read_pg(&archivio, definizione) <= 0)
        return false;
    for (const guint16 posizione : {archivio.fmt->tab_usage_map_offset, archivio.fmt->tab_free_map_offset}) {
        const auto pagRiga = static_cast<quint32>(mdb_get_int32(archivio.pg_buf, posizione));
        if (static_cast<qint64>(pagRiga >> 8) >= pagine)
            return false;
    }
    return true;
}

// The catalog table read again on its own: a file cut short loses catalog rows, which would
// otherwise look like an archive without tables.
bool CatalogoIntero(MdbHandle& archivio) {
    MdbCatalogEntry voce{};
    voce.mdb = &archivio;
    qstrncpy(voce.object_name, "MSysObjects", sizeof voce.object_name);
    voce.object_type = MDB_TABLE;
    voce.table_pg = PaginaCatalogo;
    MdbTableDef* catalogo = mdb_read_table(&voce);
    const bool intero = catalogo && RigheIntere(catalogo);
    if (catalogo)
        mdb_free_tabledef(catalogo);
    return intero;
}

template <typename T> T Fisso(const MdbHandle& archivio, int inizio) {
    return qFromLittleEndian<T>(archivio.pg_buf + inizio);
}

QString Decimale(char* testo) {
    QString numero = DaUtf8(testo);
    g_free(testo);
    return numero.replace(QLatin1Char('.'), QLocale().decimalPoint());
}

} // namespace

QString TestoDataJet(double giorni) {
    const double interi = std::floor(giorni);
    const qint64 secondi = std::llround((giorni - interi) * 86400.0);
    const QDateTime momento =
        QDateTime(QDate(1899, 12, 30).addDays(static_cast<qint64>(interi)), QTime(0, 0)).addSecs(secondi);
    const QLocale locale;
    QString formatoData = locale.dateFormat(QLocale::ShortFormat);
    if (!formatoData.contains(QLatin1String("yyyy")))
        formatoData.replace(QLatin1String("yy"), QLatin1String("yyyy"));
    QString formatoOra = locale.timeFormat(QLocale::LongFormat);
    formatoOra.remove(QLatin1Char('t')).replace(QLatin1String("  "), QLatin1String(" "));
    formatoOra = formatoOra.trimmed();
    const QString data = locale.toString(momento.date(), formatoData);
    const QString ora = locale.toString(momento.time(), formatoOra);
    if (interi == 0 && secondi != 0)
        return ora;
    return secondi == 0 ? data : data + QLatin1Char(' ') + ora;
}

TabellaJet::TabellaJet(MdbHandle& archivio, S_MdbTableDef* tabella)
    : m_archivio(archivio)
    , m_tabella(tabella) {
    for (unsigned int i = 0; i < tabella->num_cols; ++i) {
        const auto* colonna = static_cast<const MdbColumn*>(g_ptr_array_index(tabella->columns, i));
        const char* richiesto = mdb_col_get_prop(colonna, "Required");
        m_colonne.append({DaUtf8(colonna->name), colonna->col_type,
                          richiesto && QByteArrayView(richiesto) == QByteArrayView("yes")});
    }
    mdb_rewind_table(m_tabella);
}

TabellaJet::~TabellaJet() {
    mdb_free_tabledef(m_tabella);
}

bool TabellaJet::ProssimaRiga(QStringList& valori) {
    if (!mdb_fetch_row(m_tabella)) {
        if (m_lette != m_tabella->num_rows)
            throw ErroreDatabase(
                QStringLiteral("La tabella %1 dell'archivio è danneggiata: lette %2 righe su %3.")
                    .arg(DaUtf8(m_tabella->name), QString::number(m_lette),
                         QString::number(m_tabella->num_rows)));
        return false;
    }
    ++m_lette;
    valori.clear();
    for (int i = 0; i < m_colonne.size(); ++i)
        valori << Valore(i);
    return true;
}

// Each value straight from the row on the page, without binding: numbers and dates as a user of
// this program types them (no thousands separator), a Boolean as the check box stores it.
QString TabellaJet::Valore(int indice) const {
    const auto* colonna = static_cast<const MdbColumn*>(g_ptr_array_index(m_tabella->columns, indice));
    const int inizio = colonna->cur_value_start;
    const int lunghezza = colonna->cur_value_len;
    if (colonna->col_type == MDB_BOOL)
        return lunghezza == 0 ? QStringLiteral("1") : QStringLiteral("0"); // the value is its null bit
    if (lunghezza == 0)
        return {};
    const auto* dati = reinterpret_cast<const char*>(m_archivio.pg_buf + inizio);
    switch (colonna->col_type) {
    case MDB_BYTE:
        return QString::number(Fisso<quint8>(m_archivio, inizio));
    case MDB_INT:
        return QString::number(Fisso<qint16>(m_archivio, inizio));
    case MDB_LONGINT:
        return QString::number(Fisso<qint32>(m_archivio, inizio));
    case MDB_FLOAT: {
        QLocale locale;
        locale.setNumberOptions(locale.numberOptions() | QLocale::OmitGroupSeparator);
        return locale.toString(static_cast<double>(Fisso<float>(m_archivio, inizio)), 'g', 7);
    }
    case MDB_DOUBLE:
        return NumeroInTesto(Fisso<double>(m_archivio, inizio));
    case MDB_MONEY:
        return NumeroInTesto(static_cast<double>(Fisso<qint64>(m_archivio, inizio)) / 10000.0);
    case MDB_DATETIME:
        return TestoDataJet(Fisso<double>(m_archivio, inizio));
    case MDB_NUMERIC:
        return Decimale(mdb_numeric_to_string(&m_archivio, inizio, colonna->col_scale, colonna->col_prec));
    case MDB_TEXT:
        return TestoJet(m_archivio, dati, static_cast<size_t>(lunghezza));
    case MDB_MEMO: {
        const QByteArray memo = BytesMemo(m_archivio, inizio, lunghezza);
        return TestoJet(m_archivio, memo.constData(), static_cast<size_t>(memo.size()));
    }
    case MDB_REPID: {
        char* guid = mdb_uuid_to_string(m_archivio.pg_buf, inizio);
        const QString testo = DaUtf8(guid);
        g_free(guid);
        return testo;
    }
    default:
        return {}; // pictures and binary data have no text
    }
}

ArchivioJet::ArchivioJet(const QString& percorso, const QString& password)
    : m_percorso(percorso) {
    VerificaIntestazione(Intestazione(percorso), percorso, password);
    m_archivio = mdb_open(QFile::encodeName(percorso).constData(), MDB_NOFLAGS);
    if (!m_archivio)
        Errore(QStringLiteral("Impossibile aprire l'archivio"), percorso);
    const qint64 byte = QFileInfo(percorso).size();
    m_pagine = byte / m_archivio->fmt->pg_size;
    if (byte % m_archivio->fmt->pg_size != 0 || !MappeNelFile(*m_archivio, PaginaCatalogo, m_pagine))
        Danneggiato(QStringLiteral("il file è incompleto"));
    if (!mdb_read_catalog(m_archivio, MDB_TABLE))
        Danneggiato(QStringLiteral("il suo catalogo non si legge"));
    if (!CatalogoIntero(*m_archivio))
        Danneggiato(QStringLiteral("il file è incompleto"));
}

void ArchivioJet::Danneggiato(const QString& perche) {
    mdb_close(m_archivio);
    Errore(QStringLiteral("L'archivio è danneggiato: ") + perche, m_percorso);
}

ArchivioJet::~ArchivioJet() {
    mdb_close(m_archivio);
}

QStringList ArchivioJet::Tabelle() const {
    QStringList nomi;
    for (unsigned int i = 0; i < m_archivio->num_catalog; ++i) {
        const auto* voce = static_cast<const MdbCatalogEntry*>(g_ptr_array_index(m_archivio->catalog, i));
        const QString nome = DaUtf8(voce->object_name);
        if (voce->object_type == MDB_TABLE && !nome.toLower().startsWith(QLatin1String("msys")))
            nomi << nome;
    }
    return nomi;
}

std::unique_ptr<TabellaJet> ArchivioJet::ApriTabella(const QString& nome) {
    MdbCatalogEntry* voce = mdb_get_catalogentry_by_name(m_archivio, nome.toUtf8().constData());
    MdbTableDef* tabella =
        voce && MappeNelFile(*m_archivio, voce->table_pg, m_pagine) ? mdb_read_table(voce) : nullptr;
    if (!tabella)
        Errore(QStringLiteral("La tabella ") + nome + QStringLiteral(" non si apre"), m_percorso);
    if (!mdb_read_columns(tabella)) {
        mdb_free_tabledef(tabella);
        Errore(QStringLiteral("Le colonne della tabella ") + nome + QStringLiteral(" non si leggono"),
               m_percorso);
    }
    return std::make_unique<TabellaJet>(*m_archivio, tabella);
}
