#pragma once

#include <QByteArrayView>
#include <QString>

enum class VersioneJet { NonJet, Jet3, Jet4, Ace };

// What the header page of a legacy archive says: its version and the database password it keeps,
// empty when none. Only the header is read: the engine's library never checks the password.
struct IntestazioneJet {
    VersioneJet versione = VersioneJet::NonJet;
    QString password;
};

// At least the first 0x98 bytes of the file; fewer, or other bytes, give NonJet.
IntestazioneJet LeggiIntestazioneJet(QByteArrayView pagina);

// Whether the password typed opens the archive: any text when none is stored, else exactly it.
bool PasswordAccettata(const IntestazioneJet& intestazione, const QString& digitata);

// The RC4 stream cipher: the header keeps its fields under it with a fixed key.
void Rc4(QByteArrayView chiave, char* dati, qsizetype lunghezza);
