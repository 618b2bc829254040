#pragma once

#include "colonneelenco.h"

#include <QList>
#include <QString>
#include <vector>

// Which records of a collection hold the text inside any of their shown values, compared as the
// search's contained search compares (case folded; "%", "_" and every other character match only
// themselves). It runs a block of records per step, so that the caller can give way to the user
// between steps and drop a filter that new typing has made stale. Check boxes and formula fields
// show no stored text and are not searched; record numbers are not either.
class FiltroElenco final {
public:
    FiltroElenco(const QList<ColonnaElenco>& colonne, const QString& testo, qint32 totale);

    // Filters the next block; true once every record has been looked at.
    bool Passo();
    bool Finito() const { return m_prossimo > m_totale; }
    bool Trovato(qint32 numero) const { return m_trovati[static_cast<std::size_t>(numero)]; }
    // The records found, in the order given, once finished.
    QList<qint32> Scegli(const QList<qint32>& ordine) const;
    // Record n was deleted and the later ones renumbered down by one.
    void TogliRecord(qint32 numero);

    static constexpr qint32 Blocco = 8192;

private:
    void CercaTesti(qint32 primo, qint32 ultimo);
    void CercaNomiFile(qint32 primo, qint32 ultimo);
    void CercaVoci(qint32 idCampo, const QList<int>& posizioni, qint32 primo, qint32 ultimo);

    QString m_modello; // the LIKE pattern, the text's own wildcards escaped
    QString m_campiTesto;
    QList<qint32> m_immagini;
    QList<QPair<qint32, QList<int>>> m_voci; // a combo or list field, the positions whose item holds the text
    qint32 m_totale;
    qint32 m_prossimo = 1;
    std::vector<bool> m_trovati;
};
