#include "dialogofile.h"

#include "fileinuso.h"
#include "interazione.h"

#include <QStringList>

namespace {

QList<QPair<QString, QString>> CoppieFiltro(const QString& filtro) {
    const QStringList parti = filtro.split(QChar(u'\0'), Qt::SkipEmptyParts);
    QList<QPair<QString, QString>> coppie;
    for (qsizetype i = 0; i + 1 < parti.size(); i += 2)
        coppie.append({parti.at(i), parti.at(i + 1)});
    return coppie;
}

} // namespace

QString DialogoFile(QWidget* proprietario, int modo, const QString& titolo, const QString& nomeFile,
                    const QString& filtro, const QString& cartellaIniziale, const QString& estensione) {
    RichiestaFile richiesta;
    richiesta.proprietario = proprietario;
    richiesta.apertura = modo == 1;
    richiesta.titolo = titolo;
    richiesta.nomeFile = nomeFile;
    richiesta.filtri = CoppieFiltro(filtro);
    richiesta.cartellaIniziale = cartellaIniziale;
    richiesta.estensione = estensione;
    const QString scelto = interazione().SceltaFile(richiesta);
    const QString percorso = scelto.left(scelto.indexOf(QChar(u'\0')));
    // Whatever command asked, it would read the file through a descriptor of its own. A file to be
    // written is refused by the routine that writes it.
    if (richiesta.apertura) {
        if (const QString rifiuto = RifiutoFileInUso(percorso, UsoFile::Lettura); !rifiuto.isEmpty()) {
            MsgBox(rifiuto, Pulsanti::Ok, Icona::Esclamativa);
            return {};
        }
    }
    return percorso;
}
