#pragma once

#include <QAbstractTableModel>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

class Recordset;

// The hits of a search as the list shows them: value, record number, insert and change dates.
// The hits are kept in a few flat arrays, with no object per row, and the view asks only for the
// rows it draws, so a search that matches every record of a large collection fills the list at once.
class RisultatiRicerca final : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit RisultatiRicerca(QObject* parent = nullptr);

    void Svuota();
    // Takes every row of a result set of valore, numerorecord, data_ins, data_mod, in its order.
    void Riempi(Recordset& rs);
    // The first column is headed by the field searched.
    void ImpostaIntestazioneValore(const QString& testo);
    qint32 NumeroRecord(int riga) const { return m_record.at(riga); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& indice, int ruolo = Qt::DisplayRole) const override;
    QVariant headerData(int sezione, Qt::Orientation orientamento,
                        int ruolo = Qt::DisplayRole) const override;

private:
    static constexpr int TestiPerRiga = 3; // value, insert date, change date

    void Azzera();
    void Aggiungi(const QVariant& testo);
    QString Testo(int riga, int pezzo) const;

    // The texts of every hit one after the other, where each starts, and the record numbers.
    QString m_testi;
    QList<qsizetype> m_inizi;
    QList<qint32> m_record;
    QStringList m_intestazioni;
};
