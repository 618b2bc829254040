#include "banco.h"
#include "opzioni.h"
#include "rapporto.h"
#include "rispostasi.h"

#include <QApplication>
#include <QTextStream>
#include <exception>

int main(int argc, char** argv) {
    // The record window needs a GUI application, not a screen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication applicazione(argc, argv);
    QTextStream out(stdout);
    QTextStream err(stderr);
    try {
        const Opzioni opzioni = LeggiOpzioni(QApplication::arguments());
        if (opzioni.aiuto) {
            out << Uso();
            return 0;
        }
        RispostaSi risposta;
        QList<MisureDimensione> misure;
        for (const qint32 record : opzioni.dimensioni)
            misure << MisuraDimensione(record, opzioni);
        StampaRapporto(out, misure);
    } catch (const std::exception& errore) {
        err << "orvix_bench: " << errore.what() << Qt::endl << Uso();
        return 1;
    }
    return 0;
}
