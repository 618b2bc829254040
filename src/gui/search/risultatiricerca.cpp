#include "risultatiricerca.h"

#include "recordset.h"

#include <QDate>
#include <QLocale>

namespace {

enum Colonna { Valore, Record, Inserito, Modificato, NumeroColonne };

// A stored date in the user's short form; anything that is not a date shows as stored.
QString Data(const QString& memorizzata) {
    const QDate data = QDate::fromString(memorizzata, Qt::ISODate);
    return data.isValid() ? QLocale().toString(data, QLocale::ShortFormat) : memorizzata;
}

} // namespace

RisultatiRicerca::RisultatiRicerca(QObject* parent)
    : QAbstractTableModel(parent)
    , m_intestazioni{QStringLiteral("Valore"), QStringLiteral("Record"), QStringLiteral("Inserito"),
                     QStringLiteral("Modificato")} {}

void RisultatiRicerca::Svuota() {
    beginResetModel();
    m_righe.clear();
    endResetModel();
}

void RisultatiRicerca::Riempi(Recordset& rs) {
    beginResetModel();
    m_righe.clear();
    for (; !rs.Fine(); rs.Successivo())
        m_righe.append({rs.Campo(Valore).toString(), static_cast<qint32>(rs.Campo(Record).toLongLong()),
                        rs.Campo(Inserito).toString(), rs.Campo(Modificato).toString()});
    endResetModel();
}

void RisultatiRicerca::ImpostaIntestazioneValore(const QString& testo) {
    m_intestazioni[Valore] = testo;
    Q_EMIT headerDataChanged(Qt::Horizontal, Valore, Valore);
}

int RisultatiRicerca::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_righe.size());
}

int RisultatiRicerca::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : NumeroColonne;
}

QVariant RisultatiRicerca::data(const QModelIndex& indice, int ruolo) const {
    if (!indice.isValid())
        return {};
    const Riga& riga = m_righe.at(indice.row());
    switch (ruolo) {
    case Qt::DisplayRole:
        switch (indice.column()) {
        case Valore:
            return riga.valore;
        case Record:
            return riga.record;
        case Inserito:
            return Data(riga.inserito);
        default:
            return Data(riga.modificato);
        }
    case Qt::TextAlignmentRole:
        return indice.column() == Record ? QVariant(Qt::AlignCenter) : QVariant();
    default:
        return {};
    }
}

QVariant RisultatiRicerca::headerData(int sezione, Qt::Orientation orientamento, int ruolo) const {
    if (orientamento != Qt::Horizontal || sezione < 0 || sezione >= NumeroColonne)
        return {};
    if (ruolo == Qt::DisplayRole)
        return m_intestazioni.at(sezione);
    if (ruolo == Qt::TextAlignmentRole && sezione == Record)
        return QVariant(Qt::AlignCenter);
    return {};
}
