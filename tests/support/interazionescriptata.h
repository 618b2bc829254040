#pragma once

#include "interazione.h"

#include <QList>
#include <QStringList>
#include <functional>
#include <optional>

// Answers prompts from a script and records what was asked. An unexpected prompt, or a prompt of
// another kind than the next answer, is noted as an error; so is an answer left unused.
class InterazioneScriptata final : public Interazione {
public:
    enum class Tipo { MsgBox, InputBox, Modale, Shell, File, Colore, Stampante };

    struct Richiesta {
        Richiesta() = default;
        explicit Richiesta(Tipo tipoRichiesta)
            : tipo(tipoRichiesta) {}
        Tipo tipo = Tipo::MsgBox;
        Messaggio messaggio; // for an input box: testo = prompt, titolo = title
        QString predefinito; // input box default, or the shell address
        QString finestra;    // object name of a modal window
        RichiestaFile file;  // a file dialog's request
        QColor colore;       // the colour a colour chooser was opened on
    };

    InterazioneScriptata();
    ~InterazioneScriptata() override;

    // `alMomento` runs when the message box is shown, to look at the program while it waits.
    InterazioneScriptata& Rispondi(Risposta risposta, std::function<void()> alMomento = {});
    // `alMomento` runs when the input box is asked, to look at the program while it waits.
    InterazioneScriptata& Digita(const QString& testo, std::function<void()> alMomento = {});
    // Acts on the modal window while it is shown (e.g. clicks its buttons); the window's result is returned.
    InterazioneScriptata& Modale(std::function<void(QDialog&)> azione);
    InterazioneScriptata& Shell(bool riuscito = true);
    // The path a file dialog answers; an empty text cancels it.
    InterazioneScriptata& File(const QString& percorso);
    // The colour a colour chooser answers; nothing cancels it.
    InterazioneScriptata& Colore(std::optional<QColor> colore);
    // The printer set-up: `azione` may set the printer as a user would; `confermato` false cancels.
    InterazioneScriptata& Stampante(bool confermato, std::function<void(QPrinter&)> azione = {});

    Risposta MsgBox(const Messaggio& messaggio) override;
    QString InputBox(const QString& prompt, const QString& titolo, const QString& predefinito) override;
    int MostraModale(QDialog& finestra) override;
    bool ApriConShell(const QString& indirizzo) override;
    QString SceltaFile(const RichiestaFile& richiesta) override;
    std::optional<QColor> SceltaColore(const QColor& iniziale) override;
    bool ImpostaStampante(QPrinter& stampante) override;

    const QList<Richiesta>& Richieste() const { return m_richieste; }
    QStringList TestiMessaggi() const;
    // Errors so far, plus every answer not yet used.
    QStringList Errori() const;

private:
    struct Passo {
        Passo() = default;
        explicit Passo(Tipo tipoPasso)
            : tipo(tipoPasso) {}
        Tipo tipo = Tipo::MsgBox;
        Risposta risposta = Risposta::Ok;
        QString testo;
        std::function<void(QDialog&)> azione;
        bool riuscito = true;
        std::function<void()> alMomento;
        std::optional<QColor> colore;
        std::function<void(QPrinter&)> suStampante;
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
