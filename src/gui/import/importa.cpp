#include "importa.h"

#include "archiviojet.h"
#include "dialogofile.h"
#include "frmimportaext1.h"
#include "frmsceglitabellatarvino.h"
#include "frmtipofiledaimportare.h"
#include "importaarchivio.h"
#include "importatesto.h"
#include "importazioneincorso.h"
#include "interazione.h"

#include <QListWidget>

namespace {

class ElencoCollezioni final : public Importatore {
public:
    explicit ElencoCollezioni(QListWidget& lista)
        : m_lista(lista) {}

    void CollezioneCreata(qint32 id, const QString& nome) override {
        auto* elemento = new QListWidgetItem(nome, &m_lista);
        elemento->setData(Qt::UserRole, id);
    }

private:
    QListWidget& m_lista;
};

// The dialog shown modally over the collections window; its result.
template <typename Dialogo, typename... Argomenti>
QString Scelta(QListWidget& collezioni, const Argomenti&... argomenti) {
    Dialogo dialogo(argomenti..., collezioni.window());
    MostraModale(dialogo);
    return dialogo.Risultato();
}

QString Filtro(const QString& estensione) {
    const QChar nul(u'\0');
    return QStringLiteral("File Database") + nul + QStringLiteral("*.") + estensione + nul +
           QStringLiteral("Tutti i files") + nul + QStringLiteral("*.*");
}

} // namespace

void ImportaStrutturaeDati(QListWidget& collezioni) {
    const QString tipo = Scelta<frmTipoFileDaImportare>(collezioni);
    if (tipo.isEmpty())
        return;
    const QString file = DialogoFile(collezioni.window(), 1, QStringLiteral("Scegli il file..."), QString(),
                                     Filtro(tipo), QString(), QString());
    if (file.isEmpty())
        return;
    if (tipo == QLatin1String("dat"))
        ImportaArchivioTarvino(file, collezioni);
    else
        ImportaTesto(file, collezioni);
}

void ImportaTesto(const QString& file, QListWidget& collezioni) {
    const QString separatore = Scelta<frmImportaExt1>(collezioni);
    if (separatore.isEmpty())
        return;
    const QString nome = InputBox(QStringLiteral("Digita il nome della Collezione che intendi Importare?"),
                                  QStringLiteral("Nome collezione?"));
    if (nome.isEmpty())
        return;
    const QString descrizione = InputBox(
        QStringLiteral("Se desideri puoi anche accompagnare alla tua collezione una breve descrizione?"),
        QStringLiteral("Descrivi la tua collezione"));
    ElencoCollezioni elenco(collezioni);
    EsitoImportazione esito = EsitoImportazione::Completata;
    {
        ImportazioneInCorso inCorso;
        esito = ImportaFileTesto(file, separatore, nome, descrizione, inCorso, elenco);
    }
    if (esito == EsitoImportazione::FormatoNonValido)
        MsgBox(QStringLiteral("Formato File non valido!"));
}

void ImportaArchivioTarvino(const QString& file, QListWidget& collezioni) {
    const QString password = InputBox(QStringLiteral("Inserire la password di protezione (se necessaria):"));
    ArchivioJet archivio(file, password);
    const QStringList tabelle = archivio.Tabelle();
    const QString scelta = Scelta<frmScegliTabellaTarvino>(collezioni, tabelle);
    if (scelta.isEmpty())
        return;
    ElencoCollezioni elenco(collezioni);
    ImportazioneInCorso inCorso;
    for (const QString& tabella : scelta == QLatin1String("tutte") ? tabelle : QStringList{scelta}) {
        if (inCorso.Interrotta())
            break;
        ImportaTabellaJet(archivio, tabella, inCorso, elenco);
    }
}
