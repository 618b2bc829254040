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
    , m_inizi{0}
    , m_intestazioni{QStringLiteral("Valore"), QStringLiteral("Record"), QStringLiteral("Inserito"),
                     QStringLiteral("Modificato")} {}

void RisultatiRicerca::Svuota() {
    beginResetModel();
    Azzera();
    endResetModel();
}

void RisultatiRicerca::Azzera() {
    m_testi.clear();
    m_inizi = {0};
    m_record.clear();
}

void RisultatiRicerca::Aggiungi(const QVariant& testo) {
    m_testi.append(testo.toString());
    m_inizi.append(m_testi.size());
}

void RisultatiRicerca::Riempi(Recordset& rs) {
    beginResetModel();
    Azzera();
    for (; !rs.Fine(); rs.Successivo()) {
        Aggiungi(rs.Campo(Valore));
        Aggiungi(rs.Campo(Inserito));
        Aggiungi(rs.Campo(Modificato));
        m_record.append(static_cast<qint32>(rs.Campo(Record).toLongLong()));
    }
    endResetModel();
}

QString RisultatiRicerca::Testo(int riga, int pezzo) const {
    const qsizetype i = qsizetype{riga} * TestiPerRiga + pezzo;
    return m_testi.sliced(m_inizi.at(i), m_inizi.at(i + 1) - m_inizi.at(i));
}

void RisultatiRicerca::ImpostaIntestazioneValore(const QString& testo) {
    m_intestazioni[Valore] = testo;
    Q_EMIT headerDataChanged(Qt::Horizontal, Valore, Valore);
}

int RisultatiRicerca::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_record.size());
}

int RisultatiRicerca::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : NumeroColonne;
}

QVariant RisultatiRicerca::data(const QModelIndex& indice, int ruolo) const {
    if (!indice.isValid())
        return {};
    const int riga = indice.row();
    switch (ruolo) {
    case Qt::DisplayRole:
        switch (indice.column()) {
        case Valore:
            return Testo(riga, 0);
        case Record:
            return m_record.at(riga);
        case Inserito:
            return Data(Testo(riga, 1));
        default:
            return Data(Testo(riga, 2));
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
