#pragma once

#include "interazione.h"

#include <QList>
#include <QStringList>
#include <functional>

// Answers prompts from a script and records what was asked. An unexpected prompt, or a prompt of
// another kind than the next answer, is noted as an error; so is an answer left unused.
class InterazioneScriptata final : public Interazione {
public:
    enum class Tipo { MsgBox, InputBox, Modale, Shell };

    struct Richiesta {
        Tipo tipo;
        Messaggio messaggio; // for an input box: testo = prompt, titolo = title
        QString predefinito; // input box default, or the shell address
        QString finestra;    // object name of a modal window
    };

    InterazioneScriptata();
    ~InterazioneScriptata() override;

    InterazioneScriptata& Rispondi(Risposta risposta);
    // `alMomento` runs when the input box is asked, to look at the program while it waits.
    InterazioneScriptata& Digita(const QString& testo, std::function<void()> alMomento = {});
    // Acts on the modal window while it is shown (e.g. clicks its buttons); the window's result is returned.
    InterazioneScriptata& Modale(std::function<void(QDialog&)> azione);
    InterazioneScriptata& Shell(bool riuscito = true);

    Risposta MsgBox(const Messaggio& messaggio) override;
    QString InputBox(const QString& prompt, const QString& titolo, const QString& predefinito) override;
    int MostraModale(QDialog& finestra) override;
    bool ApriConShell(const QString& indirizzo) override;

    const QList<Richiesta>& Richieste() const { return m_richieste; }
    QStringList TestiMessaggi() const;
    // Errors so far, plus every answer not yet used.
    QStringList Errori() const;

private:
    struct Passo {
        Tipo tipo;
        Risposta risposta = Risposta::Ok;
        QString testo;
        std::function<void(QDialog&)> azione;
        bool riuscito = true;
        std::function<void()> alMomento;
    };

    bool Prossimo(Tipo tipo, const QString& descrizione, Passo& passo);

    QList<Passo> m_script;
    QList<Richiesta> m_richieste;
    QStringList m_errori;
};

// A message in one line: "text | title | BID", the buttons, icon and default button as digits,
// so that a test compares everything the user sees at once.
QString Descrivi(const Messaggio& messaggio);

#define VERIFICA_SCRIPT(script)                                                                              \
    do {                                                                                                     \
        const QStringList errori_ = (script).Errori();                                                       \
        QVERIFY2(errori_.isEmpty(), qPrintable(errori_.join(QLatin1Char('\n'))));                            \
    } while (false)
