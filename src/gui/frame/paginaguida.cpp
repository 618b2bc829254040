#include "paginaguida.h"

#include "cartellaapplicazione.h"

#include <QCoreApplication>
#include <QHash>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QWidget>

namespace {

const QHash<QString, QString>& PaginePerFinestra() {
    static const QHash<QString, QString> pagine{
        {QStringLiteral("Form1"), QStringLiteral("index.html")},
        {QStringLiteral("frmAbout"), QStringLiteral("index.html")},
        {QStringLiteral("FrmScegliCampi"), QStringLiteral("campi.html")},
        {QStringLiteral("frmProprietaControllo"), QStringLiteral("campi.html")},
        {QStringLiteral("frmRecord"), QStringLiteral("record.html")},
        {QStringLiteral("ContenitoreAnteprima"), QStringLiteral("disegno.html")},
        {QStringLiteral("frmFind"), QStringLiteral("ricerca.html")},
        {QStringLiteral("frmElenco"), QStringLiteral("elenco.html")},
        {QStringLiteral("frmPreview"), QStringLiteral("ricerca.html")},
        {QStringLiteral("frmModelli"), QStringLiteral("modelli.html")},
        {QStringLiteral("frmTipoFileDaImportare"), QStringLiteral("modelli.html")},
        {QStringLiteral("frmImportaExt1"), QStringLiteral("modelli.html")},
        {QStringLiteral("frmScegliTabellaTarvino"), QStringLiteral("modelli.html")},
    };
    return pagine;
}

// File dialogs have no name of their own; the backup's is known by its title.
const QHash<QString, QString>& PaginePerTitolo() {
    static const QHash<QString, QString> pagine{
        {QStringLiteral("File di Backup..."), QStringLiteral("backup.html")}};
    return pagine;
}

QString PaginaDi(const QWidget& finestra) {
    if (const auto pagina = PaginePerFinestra().constFind(finestra.objectName());
        pagina != PaginePerFinestra().cend())
        return *pagina;
    if (finestra.isWindow())
        return PaginePerTitolo().value(finestra.windowTitle());
    return {};
}

// In the frame itself (its empty area, its status bar, a message box it owns) the active child counts.
QString PaginaDelFrame(const QWidget& frame) {
    const auto* area = frame.findChild<QMdiArea*>();
    const QMdiSubWindow* attiva = area ? area->currentSubWindow() : nullptr;
    return attiva && attiva->widget() ? PaginaDi(*attiva->widget()) : QString();
}

} // namespace

QString PercorsoGuida(const QString& pagina) {
    return CartellaFornita(QCoreApplication::applicationDirPath()) + QStringLiteral("/guidaorvix/") + pagina;
}

QString PaginaGuida(const QWidget* dove) {
    for (; dove; dove = dove->parentWidget()) {
        QString pagina =
            dove->objectName() == QLatin1String("frmMAIN") ? PaginaDelFrame(*dove) : PaginaDi(*dove);
        if (!pagina.isEmpty())
            return pagina;
    }
    return QStringLiteral("index.html");
}
