#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

// "explain query plan" of a statement, one line per plan row; ?1 is bound to the collection id.
QStringList PianoQuery(const QString& sql, qint32 idCollezione);

// The statements one call ran on the store, grouped by their text with numbers blanked,
// with the engine's own time for each group.
struct VoceProfilo {
    QString testo;
    int volte = 0;
    qint64 ns = 0;
};

struct Profilo {
    QString operazione;
    qint32 record = 0;
    qint64 totaleNs = 0;
    QList<VoceProfilo> voci;

    int Istruzioni() const;
    qint64 SqlNs() const;
};

Profilo Profila(const QString& operazione, qint32 record, const std::function<void()>& azione);
