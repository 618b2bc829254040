#include "archiviojetprova.h"

#include "intestazionejet.h"

#include <QFile>
#include <QtEndian>
#include <cstring>
#include <stdexcept>

namespace {

constexpr int Pagina = 4096;
constexpr int InizioRighe = 14;
constexpr int PezzoLval = 4000;
constexpr quint32 Sconosciuto = 0x0659;
constexpr auto Ole = static_cast<TipoJet>(11);

template <typename T> void Metti(QByteArray& b, qsizetype pos, T v) {
    qToLittleEndian(v, b.data() + pos);
}
// The value's little-endian bytes.
template <typename T> QByteArray Le(T v) {
    QByteArray b(static_cast<qsizetype>(sizeof(T)), '\0');
    Metti(b, 0, v);
    return b;
}
// UTF-16 little-endian, as the tests' hosts keep it.
QByteArray Ucs2(const QString& testo) {
    return QByteArray(reinterpret_cast<const char*>(testo.utf16()), testo.size() * 2);
}

// Text is stored compressed (one byte a character) when every character allows it.
QByteArray TestoJet(const QString& testo) {
    const QByteArray latino = testo.toLatin1();
    return QString::fromLatin1(latino) == testo && !latino.contains('\0') ? "\xFF\xFE" + latino : Ucs2(testo);
}

bool Fissa(TipoJet tipo) {
    return tipo != TipoJet::Testo && tipo != TipoJet::Memo && tipo != Ole;
}

// The bytes a fixed column takes in a row, a text column's longest value in bytes.
int Dimensione(TipoJet tipo) {
    constexpr int dimensioni[] = {0, 0, 0, 2, 4, 0, 0, 8, 8, 0, 510, 8, 0};
    return dimensioni[static_cast<int>(tipo)];
}

// The whole file as pages, and where rows go.
struct Archivio {
    int NuovaPagina(quint8 tipo, quint32 proprietario) {
        QByteArray p = QByteArray(1, static_cast<char>(tipo)) + '\1' + QByteArray(Pagina - 2, '\0');
        if (tipo == 1) {
            Metti<quint16>(p, 2, Pagina - InizioRighe);
            Metti<quint32>(p, 4, proprietario);
        }
        m_pagine << p;
        return static_cast<int>(m_pagine.size() - 1);
    }

    // Adds a row to a data page when it fits; the row's pg_row, or 0.
    quint32 Riga(int pagina, const QByteArray& riga) {
        QByteArray& p = m_pagine[pagina];
        const int righe = qFromLittleEndian<quint16>(p.constData() + 12),
                  libero = qFromLittleEndian<quint16>(p.constData() + 2);
        if (righe >= 255 || libero < riga.size() + 2)
            return 0;
        const int fine =
            righe == 0 ? Pagina : qFromLittleEndian<quint16>(p.constData() + InizioRighe + 2 * (righe - 1));
        const int inizio = fine - static_cast<int>(riga.size());
        std::memcpy(p.data() + inizio, riga.constData(), static_cast<std::size_t>(riga.size()));
        Metti<quint16>(p, InizioRighe + 2 * righe, static_cast<quint16>(inizio));
        Metti<quint16>(p, 12, static_cast<quint16>(righe + 1));
        Metti<quint16>(p, 2, static_cast<quint16>(libero - riga.size() - 2));
        return static_cast<quint32>(pagina) << 8 | static_cast<quint32>(righe);
    }

    // A long value as a chain of rows on long-value pages, one a piece, the first piece first.
    quint32 Lval(const QByteArray& dati) {
        quint32 successivo = 0;
        for (qsizetype fine = dati.size(); fine > 0;) {
            const qsizetype inizio = ((fine - 1) / PezzoLval) * PezzoLval;
            const int pagina = NuovaPagina(1, 0);
            std::memcpy(m_pagine[pagina].data() + 4, "LVAL", 4);
            successivo = Riga(pagina, Le<quint32>(successivo) + dati.mid(inizio, fine - inizio));
            fine = inizio;
        }
        return successivo;
    }

    QList<QByteArray> m_pagine;
};

// A memo field: its length (flagged when the value follows in the row), where the value lies, and a short
// value itself.
QByteArray Memo(Archivio& archivio, const QByteArray& dati) {
    const bool inLinea = dati.size() <= 1024;
    const QByteArray campo = Le<quint32>(static_cast<quint32>(dati.size()) | (inLinea ? 0x80000000u : 0u)) +
                             Le<quint32>(inLinea ? 0 : archivio.Lval(dati)) + QByteArray(4, '\0');
    return inLinea ? campo + dati : campo;
}

// The bytes of one column value in a row; empty for NULL, a Boolean and an empty text.
QByteArray Valore(Archivio& archivio, TipoJet tipo, const QVariant& valore) {
    const QString testo = valore.toString();
    switch (tipo) {
    case TipoJet::Intero:
        return Le<quint16>(static_cast<quint16>(valore.toInt()));
    case TipoJet::Lungo:
        return Le<quint32>(static_cast<quint32>(valore.toInt()));
    case TipoJet::Doppio:
    case TipoJet::DataOra:
        return Le<double>(valore.toDouble());
    case TipoJet::Testo:
        return testo.isEmpty() ? QByteArray() : TestoJet(testo);
    case TipoJet::Memo:
        return testo.isEmpty() ? QByteArray() : Memo(archivio, TestoJet(testo));
    default:
        return {};
    }
}

QByteArray Riga(Archivio& archivio, const QList<ColonnaProva>& colonne, const QVariantList& valori) {
    const int n = static_cast<int>(colonne.size());
    QByteArray riga = Le<quint16>(static_cast<quint16>(n)), variabili, fine, nulli((n + 7) / 8, '\0');
    for (int i = 0; i < n; ++i) {
        const TipoJet tipo = colonne.at(i).tipo;
        const QVariant valore = valori.value(i);
        if (tipo == TipoJet::Booleano ? valore.toBool() : !valore.isNull())
            nulli[i / 8] = static_cast<char>(nulli.at(i / 8) | (1 << (i % 8)));
        const QByteArray dati = valore.isNull() ? QByteArray() : Valore(archivio, tipo, valore);
        if (!Fissa(tipo)) {
            fine.prepend(Le<quint16>(static_cast<quint16>(variabili.size())));
            variabili += dati;
        } else if (tipo != TipoJet::Booleano)
            riga += dati.isEmpty() ? QByteArray(Dimensione(tipo), '\0') : dati;
    }
    // Variable values follow the fixed ones; their offsets (last first), the end and the count close the row.
    for (qsizetype i = 0; i < fine.size(); i += 2)
        Metti<quint16>(fine, i,
                       static_cast<quint16>(qFromLittleEndian<quint16>(fine.constData() + i) + riga.size()));
    if (!fine.isEmpty())
        fine = Le<quint16>(static_cast<quint16>(riga.size() + variabili.size())) + fine +
               Le<quint16>(static_cast<quint16>(fine.size() / 2));
    return riga + variabili + fine + nulli;
}

QByteArray Definizione(const QList<ColonnaProva>& colonne, bool sistema, quint32 righe, quint32 usate,
                       quint32 libere) {
    QByteArray t = QByteArray::fromHex("0201") + QByteArray(61, '\0'), nomi, variabili;
    for (const auto& [posizione, valore] :
         {std::pair{12, Sconosciuto}, {16, righe}, {55, usate}, {59, libere}})
        Metti<quint32>(t, posizione, valore);
    t[24] = 1;
    t[40] = sistema ? 0x53 : 0x4E;
    Metti<quint16>(t, 41, static_cast<quint16>(colonne.size()));
    Metti<quint16>(t, 45, static_cast<quint16>(colonne.size()));
    int posizioneFissa = 0;
    for (int i = 0; i < colonne.size(); ++i) {
        const TipoJet tipo = colonne.at(i).tipo;
        QByteArray e(25, '\0');
        e[0] = static_cast<char>(tipo);
        Metti<quint32>(e, 1, Sconosciuto);
        Metti<quint16>(e, 5, static_cast<quint16>(i));
        Metti<quint16>(e, 9, static_cast<quint16>(i));
        if (tipo == TipoJet::Testo || tipo == TipoJet::Memo)
            Metti<quint16>(e, 11, 0x0409);
        e[15] = Fissa(tipo) ? 0x03 : 0x02;
        e[16] = tipo == TipoJet::Testo ? 0x01 : 0x00;
        if (Fissa(tipo)) {
            Metti<quint16>(e, 21, static_cast<quint16>(tipo == TipoJet::Booleano ? 0 : posizioneFissa));
            posizioneFissa += Dimensione(tipo);
        } else {
            Metti<quint16>(e, 7, static_cast<quint16>(variabili.size() / 10));
            variabili += Le<quint16>(static_cast<quint16>(i)) + Le<quint32>(usate) + Le<quint32>(libere);
        }
        Metti<quint16>(e, 23, static_cast<quint16>(tipo == TipoJet::Booleano ? 1 : Dimensione(tipo)));
        t += e;
        nomi += Le<quint16>(static_cast<quint16>(colonne.at(i).nome.size() * 2)) + Ucs2(colonne.at(i).nome);
    }
    Metti<quint16>(t, 43, static_cast<quint16>(variabili.size() / 10));
    t += nomi + variabili + QByteArray("\xFF\xFF", 2) + QByteArray(8, '\0');
    Metti<quint32>(t, 8, static_cast<quint32>(t.size() - 8));
    Metti<quint16>(t, 2, static_cast<quint16>(Pagina - t.size()));
    return t + QByteArray(Pagina - t.size(), '\0');
}

// A usage map row for the pages of a table: type 0 when they fit 512 pages, else type 1 over bitmap pages.
QByteArray Mappa(Archivio& archivio, const QList<int>& pagine) {
    constexpr int PerPagina = (Pagina - 4) * 8;
    const int prima = pagine.isEmpty() ? 0 : pagine.first(), ultima = pagine.isEmpty() ? 0 : pagine.last();
    const bool piccola = ultima - prima < 512;
    QByteArray m = piccola
                       ? QByteArray(1, '\0') + Le<quint32>(static_cast<quint32>(prima)) + QByteArray(64, '\0')
                       : QByteArray(1, '\1');
    for (int j = 0; !piccola && j <= ultima / PerPagina; ++j)
        m += Le<quint32>(static_cast<quint32>(archivio.NuovaPagina(5, 0)));
    for (const int p : pagine) {
        const int bit = piccola ? p - prima : p % PerPagina, byte = (piccola ? 5 : 4) + bit / 8;
        QByteArray& b =
            piccola ? m
                    : archivio.m_pagine[qFromLittleEndian<quint32>(m.constData() + 1 + 4 * (p / PerPagina))];
        b[byte] = static_cast<char>(b.at(byte) | (1 << (bit % 8)));
    }
    return m;
}

QByteArray Intestazione(const QString& password, double dataCreazione) {
    QByteArray h(Pagina, '\0');
    h[1] = 1;
    std::memcpy(h.data() + 4, "Standard Jet DB\0", 16);
    h[0x14] = 1;
    h.replace(0x18, 24, QByteArray::fromHex("000100000101000002000000030000000400000005000000"));
    Metti<quint16>(h, 0x3C, 1252);
    Metti<quint16>(h, 0x6A, 0x11A6);
    Metti<quint16>(h, 0x6E, 0x0409);
    Metti<double>(h, 0x72, dataCreazione);
    const QByteArray chiaro = Ucs2(password).leftJustified(40, '\0', true);
    const auto maschera = static_cast<quint32>(static_cast<qint32>(dataCreazione));
    for (int i = 0; i < 40; ++i)
        h[0x42 + i] = static_cast<char>(chiaro.at(i) ^ static_cast<char>(maschera >> (8 * (i % 4))));
    Rc4(QByteArrayView("\xC7\xDA\x39\x6B", 4), h.data() + 0x18, 128);
    h.replace(0x98, 8, QByteArray::fromHex("54060000342e3000"));
    return h;
}

quint32 NumeroRighe(const TabellaProva& tabella) {
    return static_cast<quint32>(tabella.righe.size() + tabella.generate);
}

// The rows of a table on data pages of their own; those pages.
QList<int> Dati(Archivio& archivio, int definizione, const TabellaProva& tabella) {
    QList<int> pagine;
    const auto aggiungi = [&](const QVariantList& valori) {
        const QByteArray riga = Riga(archivio, tabella.colonne, valori);
        if (pagine.isEmpty() || !archivio.Riga(pagine.last(), riga)) {
            pagine << archivio.NuovaPagina(1, static_cast<quint32>(definizione));
            archivio.Riga(pagine.last(), riga);
        }
    };
    for (const QVariantList& valori : tabella.righe)
        aggiungi(valori);
    for (qint32 i = 0; i < tabella.generate; ++i)
        aggiungi(tabella.riga(i));
    return pagine;
}

} // namespace

void ScriviArchivioJet4(const QString& percorso, const QList<TabellaProva>& tabelle, const QString& password,
                        double dataCreazione) {
    Archivio archivio;
    archivio.NuovaPagina(0, 0);
    archivio.NuovaPagina(1, 1);
    archivio.NuovaPagina(2, 0);
    // The catalog first: the columns mdbtools reads, a system table and a row per table.
    QList<TabellaProva> tutte{
        {QStringLiteral("MSysObjects"),
         {{QStringLiteral("Id"), TipoJet::Lungo},
          {QStringLiteral("Name")},
          {QStringLiteral("Type"), TipoJet::Intero},
          {QStringLiteral("Flags"), TipoJet::Lungo},
          {QStringLiteral("LvProp"), Ole}},
         {{2, QStringLiteral("MSysObjects"), 1, static_cast<qint32>(0x80000000u), QVariant()}}}};
    QList<int> definizioni{2};
    QList<QList<int>> pagine{{}};
    for (const TabellaProva& t : tabelle) {
        definizioni << archivio.NuovaPagina(2, 0);
        pagine << Dati(archivio, definizioni.last(), t);
        tutte[0].righe << QVariantList{definizioni.last(), t.nome, 1, 0, QVariant()};
        tutte << t;
    }
    pagine[0] = Dati(archivio, 2, tutte[0]);
    const int mappe = archivio.NuovaPagina(1, 0);
    const quint32 vuota = archivio.Riga(mappe, Mappa(archivio, {}));
    archivio.Riga(1, Mappa(archivio, {}));
    for (int i = 0; i < tutte.size(); ++i) {
        const quint32 usate = archivio.Riga(mappe, Mappa(archivio, pagine.at(i)));
        const quint32 righe = NumeroRighe(tutte.at(i));
        archivio.m_pagine[definizioni.at(i)] = Definizione(tutte.at(i).colonne, i == 0, righe, usate, vuota);
    }
    archivio.m_pagine[0] = Intestazione(password, dataCreazione);
    QFile file(percorso);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw std::runtime_error("cannot write the Jet file");
    for (const QByteArray& p : std::as_const(archivio.m_pagine))
        file.write(p);
}
