#pragma once

#include "colonneelenco.h"
#include "filtroelenco.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QList>
#include <QStringList>
#include <QTimer>
#include <memory>

// Every record of a collection, one row each: the record number, then one column per field in tab
// order. Nothing is loaded up front: rows read their values from the store as they come into view,
// and an unsorted, unfiltered list needs no memory per record (row i is record i + 1). A sorted or
// filtered list holds only the record numbers, in order. It follows the record window's inserts,
// edits and deletes.
class ModelloElenco final : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit ModelloElenco(qint32 idCollezione, QObject* parent = nullptr);

    qint32 IdCollezione() const { return m_idCollezione; }
    qint32 Totale() const { return m_totale; }
    qint32 NumeroRecord(int riga) const;
    // The row showing the record, or -1.
    int RigaDi(qint32 numero) const;
    // The field a column shows; 0 for the record number.
    qint32 IdCampo(int colonna) const;
    int ColonnaDelCampo(qint32 idCampo) const;

    // Formula columns are not sorted: they are computed only for the rows on screen.
    bool Ordinabile(int colonna) const;
    void Ordina(int colonna, Qt::SortOrder direzione);
    int ColonnaOrdine() const { return m_colonnaOrdine; }
    Qt::SortOrder Direzione() const { return m_direzione; }

    // Starts narrowing the list to the records holding the text; it runs in steps from the event
    // loop, and a new text drops the one still running. An empty text shows every record.
    void Filtra(const QString& testo);
    bool FiltroInCorso() const { return m_inCorso != nullptr; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& indice, int ruolo = Qt::DisplayRole) const override;
    QVariant headerData(int sezione, Qt::Orientation orientamento,
                        int ruolo = Qt::DisplayRole) const override;

Q_SIGNALS:
    // The rows shown or the records counted have changed.
    void ConteggioCambiato();
    void FiltroApplicato();

private:
    bool Diretto() const { return m_ordine.isEmpty() && !m_filtro; }
    QList<qint32> Ordine() const;
    void Mostra(QList<qint32> visibili);
    void Riordina();
    void PassoFiltro();
    void AvviaFiltro();
    void SeguiInserimento(qint32 idCollezione, qint32 numero);
    void SeguiModifica(qint32 idCollezione, qint32 numero);
    void SeguiEliminazione(qint32 idCollezione, qint32 numero);
    void Ricalcola();
    QString Cella(int riga, int campo) const;
    void CaricaPagina(int riga) const;

    qint32 m_idCollezione;
    QList<ColonnaElenco> m_colonne;
    QList<qint32> m_campi;
    qint32 m_totale = 0;
    int m_colonnaOrdine = 0;
    Qt::SortOrder m_direzione = Qt::AscendingOrder;
    QList<qint32> m_ordine;   // every record, sorted; empty in record-number order
    QList<qint32> m_visibili; // the rows shown, when the list is sorted or filtered
    QString m_testoFiltro;
    std::unique_ptr<FiltroElenco> m_filtro;  // the last one finished
    std::unique_ptr<FiltroElenco> m_inCorso; // the one running
    QTimer m_passi;
    mutable QHash<qint32, QStringList> m_testi; // the cells of the records read, by number
};
