#include "interazionescriptata.h"

#include <QDialog>

namespace {

QString NomeTipo(InterazioneScriptata::Tipo tipo) {
    switch (tipo) {
    case InterazioneScriptata::Tipo::MsgBox:
        return QStringLiteral("message box");
    case InterazioneScriptata::Tipo::InputBox:
        return QStringLiteral("input box");
    case InterazioneScriptata::Tipo::Modale:
        return QStringLiteral("modal window");
    case InterazioneScriptata::Tipo::File:
        return QStringLiteral("file dialog");
    case InterazioneScriptata::Tipo::Colore:
        return QStringLiteral("colour chooser");
    case InterazioneScriptata::Tipo::Stampante:
        return QStringLiteral("printer set-up");
    case InterazioneScriptata::Tipo::Shell:
        break;
    }
    return QStringLiteral("shell open");
}

} // namespace

InterazioneScriptata::InterazioneScriptata() {
    ImpostaInterazione(this);
}

InterazioneScriptata::~InterazioneScriptata() {
    ImpostaInterazione(nullptr);
}

InterazioneScriptata& InterazioneScriptata::Rispondi(Risposta risposta, std::function<void()> alMomento) {
    Passo passo{Tipo::MsgBox};
    passo.risposta = risposta;
    passo.alMomento = std::move(alMomento);
    m_script.append(passo);
    return *this;
}

InterazioneScriptata& InterazioneScriptata::Digita(const QString& testo, std::function<void()> alMomento) {
    Passo passo{Tipo::InputBox};
    passo.testo = testo;
    passo.alMomento = std::move(alMomento);
    m_script.append(passo);
    return *this;
}

InterazioneScriptata& InterazioneScriptata::Modale(std::function<void(QDialog&)> azione) {
    Passo passo{Tipo::Modale};
    passo.azione = std::move(azione);
    m_script.append(passo);
    return *this;
}

InterazioneScriptata& InterazioneScriptata::Shell(bool riuscito) {
    Passo passo{Tipo::Shell};
    passo.riuscito = riuscito;
    m_script.append(passo);
    return *this;
}

InterazioneScriptata& InterazioneScriptata::File(const QString& percorso) {
    Passo passo{Tipo::File};
    passo.testo = percorso;
    m_script.append(passo);
    return *this;
}

InterazioneScriptata& InterazioneScriptata::Colore(std::optional<QColor> colore) {
    Passo passo{Tipo::Colore};
    passo.colore = colore;
    m_script.append(passo);
    return *this;
}

InterazioneScriptata& InterazioneScriptata::Stampante(bool confermato,
                                                      std::function<void(QPrinter&)> azione) {
    Passo passo{Tipo::Stampante};
    passo.riuscito = confermato;
    passo.suStampante = std::move(azione);
    m_script.append(passo);
    return *this;
}

bool InterazioneScriptata::Prossimo(Tipo tipo, const QString& descrizione, Passo& passo) {
    if (m_script.isEmpty()) {
        m_errori << QStringLiteral("unexpected %1: %2").arg(NomeTipo(tipo), descrizione);
        return false;
    }
    passo = m_script.takeFirst();
    if (passo.tipo != tipo) {
        m_errori << QStringLiteral("expected a %1, got a %2: %3")
                        .arg(NomeTipo(passo.tipo), NomeTipo(tipo), descrizione);
        return false;
    }
    return true;
}

Risposta InterazioneScriptata::MsgBox(const Messaggio& messaggio) {
    Richiesta fatta{Tipo::MsgBox};
    fatta.messaggio = messaggio;
    m_richieste.append(fatta);
    Passo passo;
    if (!Prossimo(Tipo::MsgBox, messaggio.testo, passo))
        return Risposta::Annulla;
    if (passo.alMomento)
        passo.alMomento();
    return passo.risposta;
}

QString InterazioneScriptata::InputBox(const QString& prompt, const QString& titolo,
                                       const QString& predefinito) {
    Richiesta fatta{Tipo::InputBox};
    fatta.messaggio = {prompt, titolo};
    fatta.predefinito = predefinito;
    m_richieste.append(fatta);
    Passo passo;
    if (!Prossimo(Tipo::InputBox, prompt, passo))
        return {};
    if (passo.alMomento)
        passo.alMomento();
    return passo.testo;
}

int InterazioneScriptata::MostraModale(QDialog& finestra) {
    Richiesta fatta{Tipo::Modale};
    fatta.finestra = finestra.objectName();
    m_richieste.append(fatta);
    Passo passo;
    if (!Prossimo(Tipo::Modale, finestra.objectName(), passo))
        return QDialog::Rejected;
    finestra.setModal(true);
    finestra.show();
    if (passo.azione)
        passo.azione(finestra);
    finestra.hide();
    return finestra.result();
}

bool InterazioneScriptata::ApriConShell(const QString& indirizzo) {
    Richiesta fatta{Tipo::Shell};
    fatta.predefinito = indirizzo;
    m_richieste.append(fatta);
    Passo passo;
    return Prossimo(Tipo::Shell, indirizzo, passo) && passo.riuscito;
}

QString InterazioneScriptata::SceltaFile(const RichiestaFile& richiesta) {
    Richiesta fatta{Tipo::File};
    fatta.messaggio.testo = richiesta.titolo;
    fatta.file = richiesta;
    m_richieste.append(fatta);
    Passo passo;
    return Prossimo(Tipo::File, richiesta.titolo, passo) ? passo.testo : QString();
}

std::optional<QColor> InterazioneScriptata::SceltaColore(const QColor& iniziale) {
    Richiesta fatta{Tipo::Colore};
    fatta.colore = iniziale;
    m_richieste.append(fatta);
    Passo passo;
    return Prossimo(Tipo::Colore, iniziale.name(), passo) ? passo.colore : std::nullopt;
}

bool InterazioneScriptata::ImpostaStampante(QPrinter& stampante) {
    m_richieste.append(Richiesta{Tipo::Stampante});
    Passo passo;
    if (!Prossimo(Tipo::Stampante, QStringLiteral("printer"), passo))
        return false;
    if (passo.suStampante)
        passo.suStampante(stampante);
    return passo.riuscito;
}

QStringList InterazioneScriptata::TestiMessaggi() const {
    QStringList testi;
    for (const Richiesta& richiesta : m_richieste)
        if (richiesta.tipo == Tipo::MsgBox)
            testi << richiesta.messaggio.testo;
    return testi;
}

QStringList InterazioneScriptata::Errori() const {
    QStringList errori = m_errori;
    for (const Passo& passo : m_script)
        errori << QStringLiteral("unused scripted %1").arg(NomeTipo(passo.tipo));
    return errori;
}

QString Descrivi(const Messaggio& messaggio) {
    const int forma = static_cast<int>(messaggio.pulsanti) * 100 + static_cast<int>(messaggio.icona) * 10 +
                      messaggio.predefinito;
    return messaggio.testo + QStringLiteral(" | ") + messaggio.titolo + QStringLiteral(" | ") +
           QString::number(forma);
}
