#include "interazione.h"

#include "fileinuso.h"
#include "interazionereale.h"
#include "programma.h"

#include <QPrinter>

namespace {

Interazione*& Servizio() {
    static Interazione* servizio = nullptr;
    return servizio;
}

QString TitoloOProgramma(const QString& titolo) {
    return titolo.isEmpty() ? Programma::Titolo() : titolo;
}

} // namespace

Interazione& interazione() {
    static InterazioneReale reale;
    return Servizio() ? *Servizio() : reale;
}

void ImpostaInterazione(Interazione* servizio) {
    Servizio() = servizio;
}

Risposta MsgBox(const QString& testo, Pulsanti pulsanti, Icona icona, const QString& titolo,
                int predefinito) {
    return interazione().MsgBox({testo, TitoloOProgramma(titolo), pulsanti, icona, predefinito});
}

QString InputBox(const QString& prompt, const QString& titolo, const QString& predefinito) {
    return interazione().InputBox(prompt, TitoloOProgramma(titolo), predefinito);
}

int MostraModale(QDialog& finestra) {
    return interazione().MostraModale(finestra);
}

bool ApriConShell(const QString& indirizzo) {
    return interazione().ApriConShell(indirizzo);
}

std::optional<QColor> SceltaColore(const QColor& iniziale) {
    return interazione().SceltaColore(iniziale);
}

// A PDF named after a file the program holds would be written over it: the choice is undone.
bool ImpostaStampante(QPrinter& stampante) {
    if (!interazione().ImpostaStampante(stampante))
        return false;
    if (stampante.outputFormat() != QPrinter::PdfFormat)
        return true;
    const QString rifiuto = RifiutoFileInUso(stampante.outputFileName(), UsoFile::Scrittura);
    if (rifiuto.isEmpty())
        return true;
    stampante.setOutputFileName({});
    MsgBox(rifiuto, Pulsanti::Ok, Icona::Esclamativa);
    return false;
}
