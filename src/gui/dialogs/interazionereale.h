#pragma once

#include "interazione.h"

// The prompts as the user sees them: Qt dialogs with Italian buttons.
class InterazioneReale final : public Interazione {
public:
    Risposta MsgBox(const Messaggio& messaggio) override;
    QString InputBox(const QString& prompt, const QString& titolo, const QString& predefinito) override;
    int MostraModale(QDialog& finestra) override;
    bool ApriConShell(const QString& indirizzo) override;
    QString SceltaFile(const RichiestaFile& richiesta) override;
    std::optional<QColor> SceltaColore(const QColor& iniziale) override;
    bool ImpostaStampante(QPrinter& stampante) override;
};
