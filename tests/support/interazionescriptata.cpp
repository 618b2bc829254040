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

InterazioneScriptata& InterazioneScriptata::Rispondi(Risposta risposta) {
    m_script.append({Tipo::MsgBox, risposta, {}, {}, true, {}});
    return *this;
}

InterazioneScriptata& InterazioneScriptata::Digita(const QString& testo, std::function<void()> alMomento) {
    m_script.append({Tipo::InputBox, Risposta::Ok, testo, {}, true, std::move(alMomento)});
    return *this;
}

InterazioneScriptata& InterazioneScriptata::Modale(std::function<void(QDialog&)> azione) {
    m_script.append({Tipo::Modale, Risposta::Ok, {}, std::move(azione), true, {}});
    return *this;
}

InterazioneScriptata& InterazioneScriptata::Shell(bool riuscito) {
    m_script.append({Tipo::Shell, Risposta::Ok, {}, {}, riuscito, {}});
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
    m_richieste.append({Tipo::MsgBox, messaggio, {}, {}});
    Passo passo;
    return Prossimo(Tipo::MsgBox, messaggio.testo, passo) ? passo.risposta : Risposta::Annulla;
}

QString InterazioneScriptata::InputBox(const QString& prompt, const QString& titolo,
                                       const QString& predefinito) {
    m_richieste.append({Tipo::InputBox, {prompt, titolo}, predefinito, {}});
    Passo passo;
    if (!Prossimo(Tipo::InputBox, prompt, passo))
        return {};
    if (passo.alMomento)
        passo.alMomento();
    return passo.testo;
}

int InterazioneScriptata::MostraModale(QDialog& finestra) {
    m_richieste.append({Tipo::Modale, {}, {}, finestra.objectName()});
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
    m_richieste.append({Tipo::Shell, {}, indirizzo, {}});
    Passo passo;
    return Prossimo(Tipo::Shell, indirizzo, passo) && passo.riuscito;
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
