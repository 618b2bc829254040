#include "rispostasi.h"

#include "frmproprietacontrollo.h"
#include "frmsceglicampi.h"

#include <QDialog>
#include <QPushButton>
#include <QRadioButton>
#include <stdexcept>

namespace {

[[noreturn]] void Inatteso(const QString& cosa) {
    throw std::runtime_error("unexpected prompt during the bench: " + cosa.toStdString());
}

} // namespace

RispostaSi::RispostaSi() {
    ImpostaInterazione(this);
}

RispostaSi::~RispostaSi() {
    ImpostaInterazione(nullptr);
}

Risposta RispostaSi::MsgBox(const Messaggio& messaggio) {
    if (messaggio.testo != QStringLiteral("Sicuro di voler eliminare il record corrente?"))
        Inatteso(messaggio.testo);
    return Risposta::Si;
}

QString RispostaSi::InputBox(const QString& prompt, const QString&, const QString&) {
    if (prompt != QStringLiteral("Specifica il Valore del nuovo Campo da assegnare ai record preesistenti:"))
        Inatteso(prompt);
    return ValoreCampoAggiunto();
}

// The print preview is shown until its first screen is painted, then closed; the field dialogs
// are answered as a user in a hurry answers them.
int RispostaSi::MostraModale(QDialog& finestra) {
    if (auto* tipo = qobject_cast<FrmScegliCampi*>(&finestra)) {
        tipo->Option1->setChecked(true);
        tipo->cmdSCEGLI->click();
        return QDialog::Accepted;
    }
    if (auto* proprieta = qobject_cast<frmProprietaControllo*>(&finestra)) {
        proprieta->cmdSCEGLI->click();
        return proprieta->Confermato ? QDialog::Accepted : QDialog::Rejected;
    }
    if (finestra.objectName() != QStringLiteral("frmPreview"))
        Inatteso(finestra.objectName());
    finestra.show();
    finestra.repaint();
    return QDialog::Rejected;
}

bool RispostaSi::ApriConShell(const QString& indirizzo) {
    Inatteso(indirizzo);
}

QString RispostaSi::SceltaFile(const RichiestaFile& richiesta) {
    Inatteso(richiesta.titolo);
}

std::optional<QColor> RispostaSi::SceltaColore(const QColor& iniziale) {
    Inatteso(iniziale.name());
}

bool RispostaSi::ImpostaStampante(QPrinter&) {
    Inatteso(QStringLiteral("printer set-up"));
}
