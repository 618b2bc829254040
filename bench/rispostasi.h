#pragma once

#include "interazione.h"

// Answers Yes to the record window's delete question so "del" runs unattended, shows the print
// preview just long enough to paint it, and adds a text box with its proposed properties and a value
// for the existing records; any other prompt means the bench is not measuring what it claims, so it
// stops the run.
// The value given to the existing records when the bench adds a field.
inline QString ValoreCampoAggiunto() {
    return QStringLiteral("valore del campo aggiunto");
}

class RispostaSi final : public Interazione {
public:
    RispostaSi();
    ~RispostaSi() override;
    RispostaSi(const RispostaSi&) = delete;
    RispostaSi& operator=(const RispostaSi&) = delete;

    Risposta MsgBox(const Messaggio& messaggio) override;
    QString InputBox(const QString& prompt, const QString& titolo, const QString& predefinito) override;
    int MostraModale(QDialog& finestra) override;
    bool ApriConShell(const QString& indirizzo) override;
    QString SceltaFile(const RichiestaFile& richiesta) override;
    std::optional<QColor> SceltaColore(const QColor& iniziale) override;
    bool ImpostaStampante(QPrinter& stampante) override;
};
