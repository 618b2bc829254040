#include "diagnosi.h"

#include "cronometro.h"
#include "istruzione.h"

#include <QElapsedTimer>
#include <QHash>
#include <QRegularExpression>
#include <algorithm>
#include <sqlcipher/sqlite3.h>

namespace {

// The engine's own profile times have millisecond resolution here, so each statement is timed
// from its first step to its end or reset with our clock.
struct Traccia {
    QElapsedTimer orologio;
    QHash<sqlite3_stmt*, qint64> inizi;
    QList<QPair<QByteArray, qint64>> finiti;
};

int Registra(unsigned tipo, void* contesto, void* p, void*) {
    auto& traccia = *static_cast<Traccia*>(contesto);
    auto* stmt = static_cast<sqlite3_stmt*>(p);
    if (tipo == SQLITE_TRACE_STMT && !traccia.inizi.contains(stmt))
        traccia.inizi.insert(stmt, traccia.orologio.nsecsElapsed());
    else if (tipo == SQLITE_TRACE_PROFILE && traccia.inizi.contains(stmt))
        traccia.finiti.append(
            {QByteArray(sqlite3_sql(stmt)), traccia.orologio.nsecsElapsed() - traccia.inizi.take(stmt)});
    return 0;
}

QList<VoceProfilo> Raggruppa(const QList<QPair<QByteArray, qint64>>& finiti) {
    static const QRegularExpression numeri(QStringLiteral("\\b\\d+\\b"));
    QList<VoceProfilo> voci;
    for (const auto& [sql, ns] : finiti) {
        const QString testo = QString::fromUtf8(sql).simplified().replace(numeri, QStringLiteral("#"));
        auto voce =
            std::find_if(voci.begin(), voci.end(), [&](const VoceProfilo& v) { return v.testo == testo; });
        if (voce == voci.end())
            voce = voci.insert(voci.end(), VoceProfilo{testo, 0, 0});
        ++voce->volte;
        voce->ns += ns;
    }
    std::sort(voci.begin(), voci.end(),
              [](const VoceProfilo& a, const VoceProfilo& b) { return a.ns > b.ns; });
    return voci;
}

// Traces the program's connection for as long as it lives.
class Tracciamento final {
public:
    explicit Tracciamento(Traccia& traccia)
        // The connection's handle, reached through a statement of its own.
        : m_db(Istruzione(QStringLiteral("select 1")).Connessione()) {
        traccia.orologio.start();
        sqlite3_trace_v2(m_db, SQLITE_TRACE_STMT | SQLITE_TRACE_PROFILE, Registra, &traccia);
    }
    ~Tracciamento() { sqlite3_trace_v2(m_db, 0, nullptr, nullptr); }
    Tracciamento(const Tracciamento&) = delete;
    Tracciamento& operator=(const Tracciamento&) = delete;

private:
    sqlite3* m_db;
};

} // namespace

QStringList PianoQuery(const QString& sql, qint32 idCollezione) {
    Istruzione piano(QStringLiteral("explain query plan ") + sql);
    piano.Lega(1, idCollezione);
    QStringList righe;
    while (piano.Riga())
        righe << piano.Testo(3);
    piano.Azzera();
    return righe;
}

int Profilo::Istruzioni() const {
    int totale = 0;
    for (const VoceProfilo& voce : voci)
        totale += voce.volte;
    return totale;
}

qint64 Profilo::SqlNs() const {
    qint64 totale = 0;
    for (const VoceProfilo& voce : voci)
        totale += voce.ns;
    return totale;
}

Profilo Profila(const QString& operazione, qint32 record, const std::function<void()>& azione) {
    Profilo profilo{operazione, record, 0, {}};
    Traccia traccia;
    {
        const Tracciamento attivo(traccia);
        profilo.totaleNs = Cronometra(azione);
    }
    profilo.voci = Raggruppa(traccia.finiti);
    return profilo;
}
