#pragma once

#include <QAbstractTableModel>
#include <QList>
#include <QString>
#include <QStringList>

class Recordset;

// The hits of a search as the list shows them: value, record number, insert and change dates.
// The rows are kept as plain values read once from the result set and the view asks only for those
// it draws, so a search that matches every record of a large collection fills the list at once.
class RisultatiRicerca final : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit RisultatiRicerca(QObject* parent = nullptr);

    void Svuota();
    // Takes every row of a result set of valore, numerorecord, data_ins, data_mod, in its order.
    void Riempi(Recordset& rs);
    // The first column is headed by the field searched.
    void ImpostaIntestazioneValore(const QString& testo);
    qint32 NumeroRecord(int riga) const { return m_righe.at(riga).record; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& indice, int ruolo = Qt::DisplayRole) const override;
    QVariant headerData(int sezione, Qt::Orientation orientamento,
                        int ruolo = Qt::DisplayRole) const override;

private:
    struct Riga {
        QString valore;
        qint32 record;
        QString inserito;
        QString modificato;
    };

    QList<Riga> m_righe;
    QStringList m_intestazioni;
};
