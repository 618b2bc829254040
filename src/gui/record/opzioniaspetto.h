#pragma once

#include <QColor>
#include <QString>
#include <optional>

// A collection's record window options, kept in the per-user settings in the section "opzioni"
// followed by the collection's id: the background picture and four colours.
namespace OpzioniAspetto {
inline const QString ImmagineSfondo = QStringLiteral("immaginesfondo");
inline const QString ColoreSfondo = QStringLiteral("coloresfondo");
inline const QString ColoreSfondoEtichette = QStringLiteral("coloresfondoetichette");
inline const QString ColoreTestoControlli = QStringLiteral("coloretestocontrolli");
inline const QString ColoreTestoEtichette = QStringLiteral("coloretestoetichette");
} // namespace OpzioniAspetto

QString SezioneOpzioni(qint32 idCollezione);

// A colour as the settings keep it, the system's colour number: red + 256 × green + 65536 × blue.
qint32 NumeroColore(const QColor& colore);
// The colour under the key; nothing when it is not set: missing, "-1", or no colour number at all.
std::optional<QColor> LeggiColore(qint32 idCollezione, const QString& chiave);
void ScriviColore(qint32 idCollezione, const QString& chiave, const QColor& colore);

// The background picture's path; an empty text for none.
QString LeggiImmagineSfondo(qint32 idCollezione);
void ScriviImmagineSfondo(qint32 idCollezione, const QString& percorso);
