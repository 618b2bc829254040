#pragma once

#include <QList>
#include <QString>

class FinestraControlli;

// One formula field of the record shown: its control, its formula and its field id.
struct VoceFormula {
    QString chiave;
    QString formula;
    QString idCampo;
};

// The formula fields met by the last record load, in the order of the window's controls.
const QList<VoceFormula>& TabellaFormule();
void SvuotaTabellaFormule();
void AggiungiFormula(const QString& chiave, const QString& formula, qint32 idCampo);

// Shows each formula field's result, computed from the values stored for record n.
void CalcolaFormule(FinestraControlli& finestra, qint32 idCollezione, qint32 n);
// The formula with the field names replaced by their values of record n, computed; or the
// text that says why it could not be.
QString RisolviFormula(FinestraControlli& finestra, const QString& formula, qint32 idCollezione, qint32 n);
// The same, for a record that no window shows (the list of records).
QString RisolviFormula(const QString& formula, qint32 idCollezione, qint32 n);
