#pragma once

#include <QString>
#include <QStringList>

// The template file: section "tabella" with the collection's "nome" and "descrizione", section "campi"
// with the thirteen keys of every field numbered from 1 ("nome1", "tipo12") and "n", the number of fields.
namespace FormatoModello {

inline const QString Tabella = QStringLiteral("tabella");
inline const QString Campi = QStringLiteral("campi");
inline const QString Numero = QStringLiteral("n");

// The keys of one field, in the order they are written; each names its column of campi.
const QStringList& ChiaviCampo();
// The keys read back with the numeric conversion; the others are texts.
bool ChiaveNumerica(const QString& chiave);

} // namespace FormatoModello

// The templates folder beside the program.
QString CartellaModelli();
// Where a template file of that name is copied into the folder: the name itself when it is free, else
// the first free of 1name, 2name ... 1000name (the last is taken, and replaced, when all are used).
QString DestinazioneModello(const QString& nomeFile);
