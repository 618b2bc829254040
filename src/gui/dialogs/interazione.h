#pragma once

#include <QColor>
#include <QList>
#include <QPair>
#include <QString>
#include <optional>

class QDialog;
class QPrinter;
class QWidget;

enum class Pulsanti { Ok, OkAnnulla, SiNo, SiNoAnnulla };
enum class Icona { Nessuna, Critica, Domanda, Esclamativa, Informazione };
enum class Risposta { Ok, Annulla, Si, No };

struct Messaggio {
    QString testo;
    QString titolo;
    Pulsanti pulsanti = Pulsanti::Ok;
    Icona icona = Icona::Nessuna;
    int predefinito = 1; // 1-based position of the default button
};

// An open or save file dialog as the program asks for it.
struct RichiestaFile {
    QWidget* proprietario = nullptr;
    bool apertura = true;             // false: a save dialog, which asks before overwriting
    bool chiediSovrascrittura = true; // false when the caller asks itself
    QString titolo;
    QString nomeFile;
    QList<QPair<QString, QString>> filtri; // caption, pattern; the first is preselected
    QString cartellaIniziale;
    QString estensione; // added to a typed name that has none
};

// Every prompt, message and modal window of the program goes through one of these, so that
// tests can answer them from a script.
class Interazione {
public:
    virtual ~Interazione() = default;
    virtual Risposta MsgBox(const Messaggio& messaggio) = 0;
    // The typed text; an empty text when the user cancels.
    virtual QString InputBox(const QString& prompt, const QString& titolo, const QString& predefinito) = 0;
    virtual int MostraModale(QDialog& finestra) = 0;
    virtual bool ApriConShell(const QString& indirizzo) = 0;
    // The chosen path; an empty text when the user cancels.
    virtual QString SceltaFile(const RichiestaFile& richiesta) = 0;
    // The chosen colour; nothing when the user cancels.
    virtual std::optional<QColor> SceltaColore(const QColor& iniziale) = 0;
    // The printer set-up dialog: true when the user confirmed, with the printer set as chosen.
    virtual bool ImpostaStampante(QPrinter& stampante) = 0;
};

Interazione& interazione();
// Installs the service used from now on (not owned); nullptr restores the real one.
void ImpostaInterazione(Interazione* servizio);

// Shorthands that fill in the program's title where none is given.
Risposta MsgBox(const QString& testo, Pulsanti pulsanti = Pulsanti::Ok, Icona icona = Icona::Nessuna,
                const QString& titolo = {}, int predefinito = 1);
QString InputBox(const QString& prompt, const QString& titolo = {}, const QString& predefinito = {});
int MostraModale(QDialog& finestra);
bool ApriConShell(const QString& indirizzo);
std::optional<QColor> SceltaColore(const QColor& iniziale);
bool ImpostaStampante(QPrinter& stampante);
