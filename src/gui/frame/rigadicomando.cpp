#include "rigadicomando.h"

#include "programma.h"

#include <QByteArray>
#include <QString>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <utility>

namespace {

bool Argomento(int argc, char** argv, const char* lungo, const char* breve) {
    for (int i = 1; i < argc; ++i)
        if (qstrcmp(argv[i], lungo) == 0 || qstrcmp(argv[i], breve) == 0)
            return true;
    return false;
}

constexpr const char* OpzioniProgramma[] = {"--help", "-h", "--version", "-v"};

// The options Qt itself reads from the command line, with one dash or two; the first group takes a value.
constexpr const char* OpzioniQtConValore[] = {
    "platform",    "platformpluginpath", "platformtheme", "plugin", "qwindowgeometry",
    "qwindowicon", "qwindowtitle",       "session",       "style",  "stylesheet",
    "display",     "geometry",           "name",          "title"};
constexpr const char* OpzioniQt[] = {"reverse", "widgetcount", "nograb", "dograb", "sync"};

bool Tra(const QByteArray& nome, const auto& elenco) {
    return std::any_of(std::begin(elenco), std::end(elenco), [&](const char* voce) { return nome == voce; });
}

// The first argument neither the program nor Qt knows (the program takes no file or other argument).
std::optional<QString> ArgomentoSconosciuto(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        QByteArray nome(argv[i]);
        if (Tra(nome, OpzioniProgramma))
            continue;
        if (nome.startsWith("--"))
            nome.remove(0, 1);
        if (!nome.startsWith('-') || nome.size() < 2)
            return QString::fromLocal8Bit(argv[i]);
        nome.remove(0, 1);
        if (nome.contains('=') && Tra(nome.left(nome.indexOf('=')), OpzioniQtConValore))
            continue;
        if (Tra(nome, OpzioniQtConValore) && i + 1 < argc)
            ++i;
        else if (!Tra(nome, OpzioniQt))
            return QString::fromLocal8Bit(argv[i]);
    }
    return std::nullopt;
}

void Scrivi(std::FILE* destinazione, const QString& testo) {
    std::fputs(testo.toLocal8Bit().constData(), destinazione);
}

QString Uso() {
    return QStringLiteral("Uso: orvix [--help] [--version]\n"
                          "Cataloga le tue collezioni: dischi, film, libri, monete, minerali...\n"
                          "\n"
                          "  -h, --help     mostra questo aiuto ed esce\n"
                          "  -v, --version  mostra la versione ed esce\n"
                          "\n"
                          "Senza opzioni apre la finestra del programma.\n");
}

QString NessunoSchermo() {
    return Programma::Titolo() +
           QStringLiteral(": nessuno schermo disponibile; avviare il programma da una sessione grafica.\n");
}

bool SchermoIndicato(int argc, char** argv) {
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    return !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") || !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           Argomento(argc, argv, "-platform", "--platform");
#else
    Q_UNUSED(argc);
    Q_UNUSED(argv);
    return true;
#endif
}

// What Qt says while it looks for a display: kept back, since on failure only our line is wanted.
QString& Trattenuti() {
    static QString trattenuti;
    return trattenuti;
}

void GestoreSenzaSchermo(QtMsgType tipo, const QMessageLogContext&, const QString& messaggio) {
    if (tipo != QtFatalMsg) {
        Trattenuti() += messaggio + QLatin1Char('\n');
        return;
    }
    // The platform plugin could not start (a display named but unreachable): say so and leave
    // with a plain failure, not an abort and a core dump.
    Scrivi(stderr, NessunoSchermo());
    std::_Exit(1);
}

} // namespace

std::optional<int> RispostaSenzaFinestre(int argc, char** argv) {
    if (const auto sconosciuto = ArgomentoSconosciuto(argc, argv)) {
        Scrivi(stderr, QStringLiteral("orvix: argomento non riconosciuto: ") + *sconosciuto +
                           QStringLiteral("\n\n") + Uso());
        return 2;
    }
    if (Argomento(argc, argv, "--help", "-h")) {
        Scrivi(stdout, Uso());
        return 0;
    }
    if (Argomento(argc, argv, "--version", "-v")) {
        Scrivi(stdout, Programma::Titolo() + QLatin1Char(' ') + Programma::Versione() + QLatin1Char('\n'));
        return 0;
    }
    if (!SchermoIndicato(argc, argv)) {
        Scrivi(stderr, NessunoSchermo());
        return 1;
    }
    return std::nullopt;
}

void InizioSenzaSchermo() {
    qInstallMessageHandler(GestoreSenzaSchermo);
}

void FineSenzaSchermo() {
    qInstallMessageHandler(nullptr);
    Scrivi(stderr, std::exchange(Trattenuti(), QString()));
}
