#pragma once

#include <QObject>

// Tells whoever shows a collection's records that the record window has changed one, so lists
// follow without the windows knowing each other.
class AvvisiRecord final : public QObject {
    Q_OBJECT

public:
    static AvvisiRecord& Istanza();

Q_SIGNALS:
    void Inserito(qint32 idCollezione, qint32 numero);
    void Modificato(qint32 idCollezione, qint32 numero);
    // The later records have already been renumbered down by one.
    void Eliminato(qint32 idCollezione, qint32 numero);

private:
    AvvisiRecord() = default;
};
