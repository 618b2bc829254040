#include "avvio.h"

#include "archivio.h"
#include "cartellaapplicazione.h"
#include "form1.h"
#include "frmmain.h"
#include "iconaprogramma.h"
#include "listecontrolli.h"
#include "localeprogramma.h"
#include "programma.h"
#include "rigadicomando.h"
#include "traduzioneqt.h"

#include <QApplication>
#include <QDir>
#include <QListWidget>
#include <QLockFile>
#include <QStandardPaths>
#include <cstdio>
#include <exception>
#include <memory>

bool PrimaIstanza() {
    QString cartella = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (cartella.isEmpty())
        cartella = QDir::tempPath();
    static std::unique_ptr<QLockFile> blocco;
    blocco = std::make_unique<QLockFile>(cartella + QStringLiteral("/orvix.lock"));
    blocco->setStaleLockTime(0);
    return blocco->tryLock(0);
}

namespace {

// A failure here ends the start routine quietly, as any error in it does; by now the frame and the
// collections window exist, so the program goes on as after a normal start, and the next attempt
// through the menu shows the engine's message.
void PrimaCollezione(Form1& collezioni) {
    try {
        collezioni.mnuNewCollection_Click();
    } catch (const std::exception&) {
    }
}

} // namespace

frmMAIN* EseguiAvvio(const QString& cartellaProgramma) {
    ApriDatabase(cartellaProgramma);
    auto* frame = new frmMAIN;
    frame->setAttribute(Qt::WA_DeleteOnClose);
    if (CaricaCollezioni(*frame))
        PrimaCollezione(*IstanzaForm1());
    frame->show();
    return frame;
}

bool CaricaCollezioni(frmMAIN& frame) {
    Form1& collezioni = CaricaForm1();
    frame.MostraFiglia(&collezioni);
    CaricaCollezioniInLista(*collezioni.List1);
    return collezioni.List1->count() == 0;
}

int Avvio(int argc, char** argv) {
    if (const auto uscita = RispostaSenzaFinestre(argc, argv))
        return *uscita;
    InizioSenzaSchermo();
    QApplication applicazione(argc, argv);
    FineSenzaSchermo();
    QApplication::setApplicationName(Programma::Titolo());
    QApplication::setApplicationVersion(Programma::Versione());
    QApplication::setWindowIcon(IconaProgramma());
    ImpostaLocaleProgramma();
    CaricaTraduzioneQt();
    if (!PrimaIstanza())
        return 0;
    try {
        EseguiAvvio(CartellaApplicazione(QCoreApplication::applicationDirPath()));
    } catch (const std::exception& errore) {
        // No window exists to say it in; a person who started the program from a terminal learns why.
        std::fprintf(stderr, "%s: %s\n", qPrintable(Programma::Titolo()), errore.what());
        return 1;
    }
    return QApplication::exec();
}
