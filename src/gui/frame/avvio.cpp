#include "avvio.h"

#include "archivio.h"
#include "cartellaapplicazione.h"
#include "form1.h"
#include "frmmain.h"
#include "iconaprogramma.h"
#include "istanzaunica.h"
#include "listecontrolli.h"
#include "localeprogramma.h"
#include "programma.h"
#include "rigadicomando.h"
#include "traduzioneqt.h"

#include <QApplication>
#include <QListWidget>
#include <cstdio>
#include <exception>

namespace {

void Davanti(QWidget& finestra) {
    finestra.setWindowState(finestra.windowState() & ~Qt::WindowMinimized);
    finestra.raise();
    finestra.activateWindow();
}

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

void PortaDavanti() {
    const auto finestre = QApplication::topLevelWidgets();
    for (QWidget* finestra : finestre)
        if (finestra->objectName() == QLatin1String("frmMAIN") && finestra->isVisible())
            Davanti(*finestra);
    if (QWidget* modale = QApplication::activeModalWidget())
        Davanti(*modale);
}

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
    if (!PrimaIstanza(PortaDavanti))
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
