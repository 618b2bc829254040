#include "archiviojetprova.h"

#include "intestazionejet.h"

#include <QDateTime>
#include <QFile>
#include <QtEndian>
#include <cstring>
#include <stdexcept>

namespace {

constexpr int Pagina = 4096;
constexpr int InizioRighe = 14;
constexpr int MemoInLinea = 1024;
constexpr int PezzoLval = 4000;
constexpr quint32 Sconosciuto = 0x0659;

template <typename T> void Metti(QByteArray& b, qsizetype pos, T v) {
    qToLittleEndian(v, b.data() + pos);
}
template <typename T> void Aggiungi(QByteArray& b, T v) {
    constexpr auto n = static_cast<qsizetype>(sizeof(T));
    b.append(n, '\0');
    Metti(b, b.size() - n, v);
}
QByteArray Ucs2(const QString& testo) {
    QByteArray b;
    for (const QChar c : testo)
        Aggiungi<quint16>(b, c.unicode());
    return b;
}

// Text is stored compressed (one byte a character) when every character allows it.
QByteArray TestoJet(const QString& testo) {
    bool comprimibile = true;
    for (const QChar c : testo)
        comprimibile = comprimibile && c.unicode() >= 1 && c.unicode() <= 0xFF;
    if (!comprimibile)
        return Ucs2(testo);
    QByteArray b("\xFF\xFE", 2);
    for (const QChar c : testo)
        b.append(static_cast<char>(c.unicode()));
    return b;
}

bool Fissa(TipoJet tipo) {
    return tipo != TipoJet::Testo && tipo != TipoJet::Memo && tipo != TipoJet::Binario &&
           tipo != TipoJet::Ole;
}

int Dimensione(TipoJet tipo) {
    return tipo == TipoJet::Booleano || tipo == TipoJet::Memo ? 0
           : tipo == TipoJet::Intero                          ? 2
           : tipo == TipoJet::Lungo                           ? 4
           : tipo == TipoJet::Testo                           ? 510
                                                              : 8;
}

double DataJet(const QVariant& valore) {
    if (valore.typeId() == QMetaType::Double)
        return valore.toDouble();
    const QDateTime momento = valore.toDateTime();
    const double giorni = static_cast<double>(QDate(1899, 12, 30).daysTo(momento.date()));
    const double frazione = momento.time().msecsSinceStartOfDay() / 86400000.0;
    return giorni >= 0 ? giorni + frazione : giorni - frazione;
}

// The whole file as pages, and where rows go.
class Archivio {
public:
    int NuovaPagina(quint8 tipo, quint32 proprietario) {
        QByteArray p(Pagina, '\0');
        p[0] = static_cast<char>(tipo);
        p[1] = 1;
        if (tipo == 1) {
            Metti<quint16>(p, 2, Pagina - InizioRighe);
            Metti<quint32>(p, 4, proprietario);
        }
        m_pagine << p;
        return static_cast<int>(m_pagine.size() - 1);
    }
    QByteArray& At(int pagina) { return m_pagine[pagina]; }
    int Pagine() const { return static_cast<int>(m_pagine.size()); }

    // Adds a row to a data page when it fits; the row's pg_row, or 0.
    quint32 Riga(int pagina, const QByteArray& riga) {
        QByteArray& p = m_pagine[pagina];
        const int righe = qFromLittleEndian<quint16>(p.constData() + 12);
        const int libero = qFromLittleEndian<quint16>(p.constData() + 2);
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

    // A row on the current page of a table, or on a new one; answers its pg_row.
    quint32 RigaDiTabella(int& corrente, quint32 proprietario, QList<int>& pagine, const QByteArray& riga) {
        if (corrente >= 0)
            if (const quint32 posto = Riga(corrente, riga))
                return posto;
        corrente = NuovaPagina(1, proprietario);
        pagine << corrente;
        const quint32 posto = Riga(corrente, riga);
        if (!posto)
            throw std::runtime_error("a row does not fit a page");
        return posto;
    }

    // A long value on long-value pages: one row for a short one, else a chain, one piece a page.
    quint32 Lval(const QByteArray& dati, bool& catena) {
        catena = dati.size() > PezzoLval;
        if (!catena)
            return Riga(PaginaLval(), dati);
        quint32 successivo = 0;
        for (qsizetype fine = dati.size(); fine > 0;) {
            const qsizetype inizio = ((fine - 1) / PezzoLval) * PezzoLval;
            QByteArray pezzo;
            Aggiungi<quint32>(pezzo, successivo);
            pezzo += dati.mid(inizio, fine - inizio);
            successivo = Riga(PaginaLval(), pezzo);
            fine = inizio;
        }
        return successivo;
    }

    void Scrivi(const QString& percorso) const {
        QFile file(percorso);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
            throw std::runtime_error("cannot write the Jet file");
        for (const QByteArray& p : m_pagine)
            file.write(p);
    }

private:
    int PaginaLval() {
        const int pagina = NuovaPagina(1, 0);
        std::memcpy(m_pagine[pagina].data() + 4, "LVAL", 4);
        return pagina;
    }

    QList<QByteArray> m_pagine;
};

QByteArray Memo(Archivio& archivio, const QByteArray& dati) {
    QByteArray campo;
    if (dati.size() <= MemoInLinea) {
        Aggiungi<quint32>(campo, static_cast<quint32>(dati.size()) | 0x80000000u);
        Aggiungi<quint32>(campo, 0);
        Aggiungi<quint32>(campo, 0);
        return campo + dati;
    }
    bool catena = false;
    const quint32 posto = archivio.Lval(dati, catena);
    Aggiungi<quint32>(campo, static_cast<quint32>(dati.size()) | (catena ? 0u : 0x40000000u));
    Aggiungi<quint32>(campo, posto);
    Aggiungi<quint32>(campo, 0);
    return campo;
}

// The bytes of one column value in a row; empty for NULL, a Boolean and an empty text.
QByteArray Valore(Archivio& archivio, TipoJet tipo, const QVariant& valore) {
    QByteArray b;
    switch (tipo) {
    case TipoJet::Intero:
        Aggiungi<quint16>(b, static_cast<quint16>(valore.toInt()));
        break;
    case TipoJet::Lungo:
        Aggiungi<quint32>(b, static_cast<quint32>(valore.toInt()));
        break;
    case TipoJet::Doppio:
        Aggiungi<double>(b, valore.toDouble());
        break;
    case TipoJet::DataOra:
        Aggiungi<double>(b, DataJet(valore));
        break;
    case TipoJet::Testo:
        b = valore.toString().isEmpty() ? QByteArray() : TestoJet(valore.toString());
        break;
    case TipoJet::Memo:
        b = valore.toString().isEmpty() ? QByteArray() : Memo(archivio, TestoJet(valore.toString()));
        break;
    case TipoJet::Ole:
        b = Memo(archivio, valore.toByteArray());
        break;
    default:
        break;
    }
    return b;
}

QByteArray Riga(Archivio& archivio, const QList<ColonnaProva>& colonne, const QVariantList& valori) {
    const int n = static_cast<int>(colonne.size());
    QByteArray fisse;
    QList<QByteArray> variabili;
    QByteArray nulli((n + 7) / 8, '\0');
    for (int i = 0; i < n; ++i) {
        const TipoJet tipo = colonne.at(i).tipo;
        const QVariant valore = valori.value(i);
        const bool presente = tipo == TipoJet::Booleano ? valore.toBool() : !valore.isNull();
        if (presente)
            nulli[i / 8] = static_cast<char>(nulli.at(i / 8) | (1 << (i % 8)));
        const QByteArray dati = valore.isNull() ? QByteArray() : Valore(archivio, tipo, valore);
        if (!Fissa(tipo))
            variabili << dati;
        else if (tipo != TipoJet::Booleano)
            fisse += dati.isEmpty() ? QByteArray(Dimensione(tipo), '\0') : dati;
    }
    QByteArray riga;
    Aggiungi<quint16>(riga, static_cast<quint16>(n));
    riga += fisse;
    QList<quint16> inizi;
    for (const QByteArray& dati : variabili) {
        inizi << static_cast<quint16>(riga.size());
        riga += dati;
    }
    if (!variabili.isEmpty()) {
        Aggiungi<quint16>(riga, static_cast<quint16>(riga.size()));
        for (qsizetype i = inizi.size() - 1; i >= 0; --i)
            Aggiungi<quint16>(riga, inizi.at(i));
        Aggiungi<quint16>(riga, static_cast<quint16>(variabili.size()));
    }
    return riga + nulli;
}

QByteArray Definizione(const QList<ColonnaProva>& colonne, bool sistema, quint32 righe, quint32 usate,
                       quint32 libere) {
    QByteArray t(63, '\0');
    t[0] = 2;
    t[1] = 1;
    Metti<quint32>(t, 12, Sconosciuto);
    Metti<quint32>(t, 16, righe);
    t[24] = 1;
    t[40] = sistema ? 0x53 : 0x4E;
    int variabili = 0;
    for (const ColonnaProva& c : colonne)
        variabili += Fissa(c.tipo) ? 0 : 1;
    Metti<quint16>(t, 41, static_cast<quint16>(colonne.size()));
    Metti<quint16>(t, 43, static_cast<quint16>(variabili));
    Metti<quint16>(t, 45, static_cast<quint16>(colonne.size()));
    Metti<quint32>(t, 55, usate);
    Metti<quint32>(t, 59, libere);
    int indiceVariabile = 0;
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
        if (Fissa(tipo)) {
            e[15] = 0x03;
            Metti<quint16>(e, 21, static_cast<quint16>(tipo == TipoJet::Booleano ? 0 : posizioneFissa));
            posizioneFissa += Dimensione(tipo);
        } else {
            e[15] = 0x02;
            Metti<quint16>(e, 7, static_cast<quint16>(indiceVariabile++));
        }
        if (tipo == TipoJet::Testo)
            e[16] = 0x01;
        Metti<quint16>(e, 23, static_cast<quint16>(tipo == TipoJet::Booleano ? 1 : Dimensione(tipo)));
        t += e;
    }
    for (const ColonnaProva& c : colonne) {
        const QByteArray nome = Ucs2(c.nome);
        Aggiungi<quint16>(t, static_cast<quint16>(nome.size()));
        t += nome;
    }
    for (int i = 0; i < colonne.size(); ++i) {
        if (Fissa(colonne.at(i).tipo))
            continue;
        Aggiungi<quint16>(t, static_cast<quint16>(i));
        Aggiungi<quint32>(t, usate);
        Aggiungi<quint32>(t, libere);
    }
    t += QByteArray("\xFF\xFF", 2) + QByteArray(8, '\0');
    if (t.size() > Pagina)
        throw std::runtime_error("a table definition longer than a page");
    Metti<quint32>(t, 8, static_cast<quint32>(t.size() - 8));
    Metti<quint16>(t, 2, static_cast<quint16>(Pagina - t.size()));
    return t + QByteArray(Pagina - t.size(), '\0');
}

// The columns' Required property, read by mdbtools from the catalog row's LvProp.
QByteArray Proprieta(const QList<ColonnaProva>& colonne) {
    QByteArray b("MR2\0", 4);
    const QByteArray nome = Ucs2(QStringLiteral("Required"));
    QByteArray nomi;
    Aggiungi<quint16>(nomi, static_cast<quint16>(nome.size()));
    nomi += nome;
    Aggiungi<quint32>(b, static_cast<quint32>(6 + nomi.size()));
    Aggiungi<quint16>(b, 0x80);
    b += nomi;
    for (const ColonnaProva& c : colonne) {
        const QByteArray colonna = Ucs2(c.nome);
        QByteArray blocco;
        Aggiungi<quint32>(blocco, static_cast<quint32>(6 + colonna.size()));
        Aggiungi<quint16>(blocco, static_cast<quint16>(colonna.size()));
        blocco += colonna;
        Aggiungi<quint16>(blocco, 9);
        blocco += QByteArray("\x01\x01", 2);
        Aggiungi<quint16>(blocco, 0);
        Aggiungi<quint16>(blocco, 1);
        blocco += c.required ? '\x01' : '\x00';
        Aggiungi<quint32>(b, static_cast<quint32>(6 + blocco.size()));
        Aggiungi<quint16>(b, 0x01);
        b += blocco;
    }
    return b;
}

// Only the catalog columns mdbtools reads.
QList<ColonnaProva> ColonneCatalogo() {
    return {{QStringLiteral("Id"), TipoJet::Lungo},
            {QStringLiteral("Name"), TipoJet::Testo},
            {QStringLiteral("Type"), TipoJet::Intero},
            {QStringLiteral("Flags"), TipoJet::Lungo},
            {QStringLiteral("LvProp"), TipoJet::Ole}};
}

// A usage map row for the pages of a table: type 0 when they fit 512 pages, else type 1 over bitmap pages.
QByteArray Mappa(Archivio& archivio, const QList<int>& pagine) {
    QByteArray m;
    const int prima = pagine.isEmpty() ? 0 : pagine.first();
    const int ultima = pagine.isEmpty() ? 0 : pagine.last();
    if (ultima - prima < 512) {
        m.append('\0');
        Aggiungi<quint32>(m, static_cast<quint32>(prima));
        QByteArray bit(64, '\0');
        for (const int p : pagine)
            bit[(p - prima) / 8] = static_cast<char>(bit.at((p - prima) / 8) | (1 << ((p - prima) % 8)));
        return m + bit;
    }
    constexpr int PerPagina = (Pagina - 4) * 8;
    m.append('\1');
    for (int j = 0; j <= ultima / PerPagina; ++j) {
        const int bitmap = archivio.NuovaPagina(5, 0);
        QByteArray& b = archivio.At(bitmap);
        b[2] = b[3] = 0;
        for (const int p : pagine)
            if (p / PerPagina == j)
                b[4 + (p % PerPagina) / 8] =
                    static_cast<char>(b.at(4 + (p % PerPagina) / 8) | (1 << (p % 8)));
        Aggiungi<quint32>(m, static_cast<quint32>(bitmap));
    }
    return m;
}

QByteArray Intestazione(const QString& password, double dataCreazione) {
    QByteArray h(Pagina, '\0');
    h[1] = 1;
    std::memcpy(h.data() + 4, "Standard Jet DB\0", 16);
    h[0x14] = 1;
    const char piane[] =
        "\x00\x01\x00\x00\x01\x01\x00\x00\x02\x00\x00\x00\x03\x00\x00\x00\x04\x00\x00\x00\x05\x00\x00\x00";
    std::memcpy(h.data() + 0x18, piane, 24);
    Metti<quint16>(h, 0x3C, 1252);
    Metti<quint16>(h, 0x6A, 0x11A6);
    Metti<quint16>(h, 0x6E, 0x0409);
    qToLittleEndian(dataCreazione, h.data() + 0x72);
    const QByteArray chiaro = Ucs2(password).leftJustified(40, '\0', true);
    const auto maschera = static_cast<quint32>(static_cast<qint32>(dataCreazione));
    for (int i = 0; i < 40; ++i)
        h[0x42 + i] = static_cast<char>(chiaro.at(i) ^ static_cast<char>(maschera >> (8 * (i % 4))));
    Rc4(QByteArrayView("\xC7\xDA\x39\x6B", 4), h.data() + 0x18, 128);
    std::memcpy(h.data() + 0x98,
                "\x54\x06\x00\x00"
                "4.0\0",
                8);
    return h;
}

struct Piano {
    int definizione = 0;
    QList<int> pagine;
    quint32 righe = 0;
};

Piano Dati(Archivio& archivio, int definizione, const QList<ColonnaProva>& colonne,
           const QList<QVariantList>& righe) {
    Piano piano;
    piano.definizione = definizione;
    int corrente = -1;
    for (const QVariantList& valori : righe) {
        const QByteArray riga = Riga(archivio, colonne, valori);
        archivio.RigaDiTabella(corrente, static_cast<quint32>(definizione), piano.pagine, riga);
        ++piano.righe;
    }
    return piano;
}

QVariantList RigaCatalogo(const QString& nome, qint32 id, qint32 bandiere, const QVariant& proprieta = {}) {
    return {id, nome, 1, bandiere, proprieta};
}

} // namespace

void ScriviArchivioJet4(const QString& percorso, const QList<TabellaProva>& tabelle, const QString& password,
                        double dataCreazione) {
    Archivio archivio;
    archivio.NuovaPagina(0, 0);
    archivio.NuovaPagina(1, 1);
    archivio.NuovaPagina(2, 0);
    QList<Piano> piani;
    for (const TabellaProva& t : tabelle) {
        const int definizione = archivio.NuovaPagina(2, 0);
        piani << Dati(archivio, definizione, t.colonne, t.righe);
    }
    QList<QVariantList> catalogo{
        RigaCatalogo(QStringLiteral("MSysObjects"), 2, static_cast<qint32>(0x80000000u))}; // a system table
    for (int i = 0; i < tabelle.size(); ++i)
        catalogo << RigaCatalogo(tabelle.at(i).nome, piani.at(i).definizione, 0,
                                 Proprieta(tabelle.at(i).colonne));
    const QList<ColonnaProva> colonneCatalogo = ColonneCatalogo();
    const Piano piano = Dati(archivio, 2, colonneCatalogo, catalogo);
    const int mappe = archivio.NuovaPagina(1, 0);
    const quint32 vuota = archivio.Riga(mappe, Mappa(archivio, {}));
    archivio.Riga(1, Mappa(archivio, {}));
    const quint32 usateCatalogo = archivio.Riga(mappe, Mappa(archivio, piano.pagine));
    archivio.At(2) = Definizione(colonneCatalogo, true, piano.righe, usateCatalogo, vuota);
    for (int i = 0; i < tabelle.size(); ++i) {
        const quint32 usate = archivio.Riga(mappe, Mappa(archivio, piani.at(i).pagine));
        if (!usate)
            throw std::runtime_error("too many usage maps for one page");
        archivio.At(piani.at(i).definizione) =
            Definizione(tabelle.at(i).colonne, false, piani.at(i).righe, usate, vuota);
    }
    archivio.At(0) = Intestazione(password, dataCreazione);
    archivio.Scrivi(percorso);
}
