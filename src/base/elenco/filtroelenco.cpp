#include "filtroelenco.h"

#include "confrontotesto.h"
#include "letturapreparata.h"
#include "testocella.h"

namespace {

constexpr char32_t Escape = U'\\';

QString Modello(const QString& testo) {
    QString modello = QStringLiteral("%");
    for (const QChar c : testo) {
        if (c == QLatin1Char('%') || c == QLatin1Char('_') || c == QLatin1Char('\\'))
            modello.append(QLatin1Char('\\'));
        modello.append(c);
    }
    return modello + QLatin1Char('%');
}

bool Testuale(const QString& tipo) {
    return tipo == QLatin1String("textbox") || tipo == QLatin1String("memo") ||
           tipo == QLatin1String("slider");
}

} // namespace

FiltroElenco::FiltroElenco(const QList<ColonnaElenco>& colonne, const QString& testo, qint32 totale)
    : m_modello(Modello(testo))
    , m_totale(totale)
    , m_trovati(static_cast<std::size_t>(qMax(totale, 0)) + 1, false) {
    QStringList testi;
    for (const ColonnaElenco& colonna : colonne) {
        if (!colonna.formula.isEmpty())
            continue;
        if (Testuale(colonna.tipo)) {
            testi.append(QString::number(colonna.id));
        } else if (colonna.tipo == QLatin1String("image")) {
            m_immagini.append(colonna.id);
        } else if (!colonna.voci.isEmpty()) {
            QList<int> posizioni;
            for (int i = 0; i < colonna.voci.size(); ++i)
                if (SomigliaA(colonna.voci.at(i), m_modello, Escape))
                    posizioni.append(i);
            if (!posizioni.isEmpty())
                m_voci.append({colonna.id, posizioni});
        }
    }
    m_campiTesto = testi.join(QLatin1Char(','));
}

bool FiltroElenco::Passo() {
    if (Finito())
        return true;
    const qint32 ultimo = qMin(m_totale, m_prossimo + Blocco - 1);
    CercaTesti(m_prossimo, ultimo);
    CercaNomiFile(m_prossimo, ultimo);
    for (const auto& [idCampo, posizioni] : std::as_const(m_voci))
        CercaVoci(idCampo, posizioni, m_prossimo, ultimo);
    m_prossimo = ultimo + 1;
    return Finito();
}

// Field ids are the store's own numbers, not user text; the pattern is bound.
void FiltroElenco::CercaTesti(qint32 primo, qint32 ultimo) {
    if (m_campiTesto.isEmpty())
        return;
    LetturaPreparata valori(
        QStringLiteral("select numerorecord from valori where id_campo in (") + m_campiTesto +
        QStringLiteral(") and numerorecord between ?1 and ?2 and valore like ?3 escape '\\'"));
    valori.Lega(1, primo).Lega(2, ultimo).Lega(3, m_modello);
    while (valori.Riga()) {
        const qint64 numero = valori.Intero(0);
        if (numero >= 1 && numero <= m_totale)
            m_trovati[static_cast<std::size_t>(numero)] = true;
    }
}

// The store holds the whole path; the list shows, and so searches, only the file's name.
void FiltroElenco::CercaNomiFile(qint32 primo, qint32 ultimo) {
    for (const qint32 idCampo : std::as_const(m_immagini)) {
        LetturaPreparata valori(
            QStringLiteral("select numerorecord,valore from valori where id_campo=?1 and "
                           "numerorecord between ?2 and ?3 and valore like ?4 escape '\\'"));
        valori.Lega(1, idCampo).Lega(2, primo).Lega(3, ultimo).Lega(4, m_modello);
        const ColonnaElenco immagine{idCampo, {}, QStringLiteral("image"), {}, {}};
        while (valori.Riga()) {
            const qint64 numero = valori.Intero(0);
            if (numero >= 1 && numero <= m_totale &&
                SomigliaA(TestoCella(immagine, valori.Testo(1)), m_modello, Escape))
                m_trovati[static_cast<std::size_t>(numero)] = true;
        }
    }
}

void FiltroElenco::CercaVoci(qint32 idCampo, const QList<int>& posizioni, qint32 primo, qint32 ultimo) {
    LetturaPreparata valori(QStringLiteral(
        "select numerorecord,valore from valori where id_campo=?1 and numerorecord between ?2 and ?3"));
    valori.Lega(1, idCampo).Lega(2, primo).Lega(3, ultimo);
    while (valori.Riga()) {
        const qint64 numero = valori.Intero(0);
        if (numero >= 1 && numero <= m_totale && posizioni.contains(PosizioneMemorizzata(valori.Testo(1))))
            m_trovati[static_cast<std::size_t>(numero)] = true;
    }
}

QList<qint32> FiltroElenco::Scegli(const QList<qint32>& ordine) const {
    QList<qint32> scelti;
    for (const qint32 numero : ordine)
        if (numero >= 1 && numero <= m_totale && Trovato(numero))
            scelti.append(numero);
    return scelti;
}

void FiltroElenco::TogliRecord(qint32 numero) {
    if (numero < 1 || numero > m_totale)
        return;
    m_trovati.erase(m_trovati.begin() + numero);
    --m_totale;
    if (m_prossimo > numero)
        --m_prossimo;
}
