#include "macchina.h"

#include <QDir>
#include <QFile>
#include <QSysInfo>
#include <QThread>
#include <sqlcipher/sqlite3.h>

namespace {

QString ModelloCpu() {
    QFile info(QStringLiteral("/proc/cpuinfo"));
    if (info.open(QIODevice::ReadOnly | QIODevice::Text)) {
        for (const QByteArray& riga : info.readAll().split('\n')) {
            if (riga.startsWith("model name"))
                return QString::fromUtf8(riga.mid(riga.indexOf(':') + 1)).trimmed();
        }
    }
    return QSysInfo::currentCpuArchitecture();
}

QString Compilatore() {
#if defined(__GNUC__) && !defined(__clang__)
    return QStringLiteral("GCC ") + QString::fromLatin1(__VERSION__);
#else
    return QString::fromLatin1(__VERSION__);
#endif
}

// Other work on the machine shows up in the figures, so the report says how busy it was.
QString Carico() {
    QFile carico(QStringLiteral("/proc/loadavg"));
    if (!carico.open(QIODevice::ReadOnly | QIODevice::Text))
        return QStringLiteral("unknown");
    const QStringList medie = QString::fromLatin1(carico.readAll()).split(QLatin1Char(' '));
    return medie.mid(0, 3).join(QLatin1Char(' ')) + QStringLiteral(" (1, 5, 15 min)");
}

QString TipoBuild() {
    const QString tipo = QStringLiteral(ORVIX_TIPO_BUILD);
    if (tipo == QLatin1String("Release"))
        return tipo;
    return (tipo.isEmpty() ? QStringLiteral("(none)") : tipo) +
           QStringLiteral(" (not the figures to quote: configure with -DCMAKE_BUILD_TYPE=Release)");
}

} // namespace

QStringList FattiMacchina() {
    return {
        QStringLiteral("CPU: ") + ModelloCpu(),
        QStringLiteral("cores: %1 logical").arg(QThread::idealThreadCount()),
        QStringLiteral("system: ") + QSysInfo::prettyProductName() + QStringLiteral(", kernel ") +
            QSysInfo::kernelVersion(),
        QStringLiteral("build type: ") + TipoBuild(),
        QStringLiteral("compiler: ") + Compilatore(),
        QStringLiteral("Qt: ") + QString::fromLatin1(qVersion()),
        QStringLiteral("SQLite under SQLCipher: ") + QString::fromLatin1(sqlite3_libversion()),
        QStringLiteral("load average when the run ended: ") + Carico(),
        QStringLiteral("store folder: ") + QDir::tempPath() + QStringLiteral(" (TMPDIR)"),
    };
}

namespace {

qint64 VoceStato(const QByteArray& voce) {
    QFile stato(QStringLiteral("/proc/self/status"));
    if (!stato.open(QIODevice::ReadOnly | QIODevice::Text))
        return 0;
    for (const QByteArray& riga : stato.readAll().split('\n')) {
        if (riga.startsWith(voce))
            return riga.mid(voce.size()).trimmed().split(' ').value(0).toLongLong();
    }
    return 0;
}

} // namespace

qint64 MemoriaResidenteKiB() {
    return VoceStato("VmRSS:");
}

qint64 AzzeraPiccoResidente() {
    QFile azzera(QStringLiteral("/proc/self/clear_refs"));
    if (azzera.open(QIODevice::WriteOnly))
        azzera.write("5");
    return MemoriaResidenteKiB();
}

qint64 PiccoResidenteKiB() {
    return VoceStato("VmHWM:");
}
