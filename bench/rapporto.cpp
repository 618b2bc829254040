#include "rapporto.h"

#include "connessione.h"
#include "macchina.h"
#include "pavimento.h"

#include <algorithm>

namespace {

QString Etichetta(qint32 record) {
    return record % 1000 == 0 ? QString::number(record / 1000) + QLatin1Char('k') : QString::number(record);
}

double Rapporto(qint64 a, qint64 b) {
    return b > 0 ? static_cast<double>(a) / static_cast<double>(b) : 0.0;
}

QString FormatoRapporto(double r) {
    return QString::number(r, 'f', 2) + QStringLiteral("×");
}

QString Riga(const QStringList& celle) {
    return QStringLiteral("| ") + celle.join(QStringLiteral(" | ")) + QStringLiteral(" |\n");
}

// One letter per column: 'l' for text, 'r' for figures.
QString Separatore(const QString& allineamenti) {
    QStringList celle;
    for (const QChar a : allineamenti)
        celle << (a == QLatin1Char('r') ? QStringLiteral("---:") : QStringLiteral("---"));
    return Riga(celle);
}

void StampaMacchina(QTextStream& out) {
    out << "## Machine\n\n";
    for (const QString& fatto : FattiMacchina())
        out << "- " << fatto << '\n';
    out << '\n';
}

void StampaCostruzione(QTextStream& out, const QList<MisureDimensione>& misure) {
    out << "## Stores\n\n"
           "Each store is a copy of the shipped empty store in a temporary folder: one collection and "
           "its 10 field rows (5 text boxes, a formula text box `Prezzo * 2`, a checkbox, a combo, a "
           "list, a slider) made with CreaCollezione and a Recordset, then the records; and a second "
           "collection of 30 text boxes and no records, whose layout the designer saves. The bulk build "
           "runs in one explicit transaction (`begin`/`commit` through Esegui): it is setup, not a "
           "measured figure. Every measured operation commits as the program does: a record's rows, a "
           "delete with its renumbering, and a saved layout, in one transaction each. The connection's page "
           "cache holds up to "
        << Connessione::CacheKiB / 1024 << " MiB of decrypted pages.\n\n";
    for (const MisureDimensione& m : misure) {
        out << "- " << m.record << " records: 1 to " << m.record
            << " through SalvaNuovoRecord on the built frmRecord; built in " << FormatoTempo(m.costruzioneNs)
            << "; resident memory after its measurements " << m.residenteKiB / 1024 << " MiB.\n";
    }
    out << '\n';
}

QStringList Intestazione(const QList<MisureDimensione>& misure) {
    QStringList celle{QStringLiteral("operation")};
    for (const MisureDimensione& m : misure)
        celle << Etichetta(m.record) + QStringLiteral(" median");
    for (const MisureDimensione& m : misure)
        celle << QStringLiteral("floor ") + Etichetta(m.record);
    celle << QStringLiteral("figure/floor at ") + Etichetta(misure.last().record);
    if (misure.size() > 1)
        celle << Etichetta(misure.last().record) + QLatin1Char('/') + Etichetta(misure.first().record);
    celle << QStringLiteral("peak RSS added at ") + Etichetta(misure.last().record);
    return celle;
}

QStringList RigaOperazione(const QList<MisureDimensione>& misure, qsizetype i) {
    const Risultato& piccolo = misure.first().risultati.at(i);
    const Risultato& grande = misure.last().risultati.at(i);
    QStringList celle{grande.nome};
    for (const MisureDimensione& m : misure)
        celle << FormatoTempo(m.risultati.at(i).figuraNs);
    for (const MisureDimensione& m : misure)
        celle << FormatoTempo(m.risultati.at(i).pavimentoNs);
    celle << FormatoRapporto(Rapporto(grande.figuraNs, grande.pavimentoNs));
    if (misure.size() > 1)
        celle << FormatoRapporto(Rapporto(grande.figuraNs, piccolo.figuraNs));
    celle << QString::number(static_cast<double>(grande.piccoKiB) / 1024.0, 'f', 1) + QStringLiteral(" MiB");
    return celle;
}

QString Ripetizioni(const MisureDimensione& m) {
    const auto [meno, piu] = std::minmax_element(
        m.risultati.begin(), m.risultati.end(),
        [](const Risultato& a, const Risultato& b) { return a.ripetizioni < b.ripetizioni; });
    return meno->ripetizioni == piu->ripetizioni
               ? QString::number(meno->ripetizioni)
               : QStringLiteral("%1–%2").arg(meno->ripetizioni).arg(piu->ripetizioni);
}

void StampaTabella(QTextStream& out, const QList<MisureDimensione>& misure) {
    out << "## Figures\n\n"
           "Medians of repeated runs (QElapsedTimer); figure and floor alternate in the same run on the "
           "same file and connection, after one untimed warm-up each. The last column is the most resident "
           "memory one timed call of the figure added to what the process held before it (VmHWM after "
           "/proc/self/clear_refs). Repetitions per operation:";
    for (const MisureDimensione& m : misure)
        out << ' ' << Etichetta(m.record) << ' ' << Ripetizioni(m) << ';';
    out << " fewer where an operation is slow.\n\n";
    const QStringList intestazione = Intestazione(misure);
    out << Riga(intestazione)
        << Separatore(QStringLiteral("l").leftJustified(intestazione.size(), QLatin1Char('r')));
    for (qsizetype i = 0; i < misure.first().risultati.size(); ++i)
        out << Riga(RigaOperazione(misure, i));
    out << '\n';
}

QString Esito(bool riuscito) {
    return riuscito ? QStringLiteral("met") : QStringLiteral("**missed**");
}

void StampaObiettiviScala(QTextStream& out, const MisureDimensione& piccolo, const MisureDimensione& grande) {
    for (qsizetype i = 0; i < grande.risultati.size(); ++i) {
        const Risultato& risultato = grande.risultati.at(i);
        if (risultato.scala <= 0)
            continue;
        double r = Rapporto(risultato.figuraNs, piccolo.risultati.at(i).figuraNs);
        if (risultato.perRecord)
            r *= Rapporto(piccolo.record, grande.record);
        out << Riga(
            {QStringLiteral("%1%2 ≤ %3 × %4")
                 .arg(risultato.perRecord ? QStringLiteral("per record, ") : QString(),
                      Etichetta(grande.record), QString::number(risultato.scala), Etichetta(piccolo.record)),
             risultato.nome, FormatoRapporto(r), Esito(r <= risultato.scala)});
    }
}

void StampaObiettiviPavimento(QTextStream& out, const MisureDimensione& m) {
    for (const Risultato& risultato : m.risultati) {
        if (risultato.obiettivo <= 0)
            continue;
        const double r = Rapporto(risultato.figuraNs, risultato.pavimentoNs);
        out << Riga({QStringLiteral("≤ %1 × floor at %2")
                         .arg(QString::number(risultato.obiettivo), Etichetta(m.record)),
                     risultato.nome, FormatoRapporto(r), Esito(r <= risultato.obiettivo)});
    }
}

void StampaObiettivi(QTextStream& out, const QList<MisureDimensione>& misure) {
    out << "## Targets\n\n"
        << Riga({QStringLiteral("target"), QStringLiteral("operation"), QStringLiteral("ratio"),
                 QStringLiteral("result")})
        << Separatore(QStringLiteral("llrl"));
    if (misure.size() > 1)
        StampaObiettiviScala(out, misure.first(), misure.last());
    for (const MisureDimensione& m : misure)
        StampaObiettiviPavimento(out, m);
    out << '\n';
}

void StampaProfili(QTextStream& out, const QList<MisureDimensione>& misure) {
    out << "## Where the time goes\n\n"
           "One traced call of each operation (sqlite3_trace_v2): the statements it ran, each timed "
           "from its first step to its end or reset (a result set left open while the program works "
           "counts that work too), and the costliest statement, numbers blanked as #.\n\n"
        << Riga({QStringLiteral("operation"), QStringLiteral("records"), QStringLiteral("traced call"),
                 QStringLiteral("in statements"), QStringLiteral("statements"),
                 QStringLiteral("costliest statement"), QStringLiteral("runs"), QStringLiteral("its time")})
        << Separatore(QStringLiteral("lrrrrlrr"));
    for (const MisureDimensione& m : misure) {
        for (const Profilo& p : m.profili) {
            const VoceProfilo prima = p.voci.isEmpty() ? VoceProfilo{} : p.voci.first();
            out << Riga({p.operazione, Etichetta(p.record), FormatoTempo(p.totaleNs), FormatoTempo(p.SqlNs()),
                         QString::number(p.Istruzioni()), QLatin1Char('`') + prima.testo + QLatin1Char('`'),
                         QString::number(prima.volte), FormatoTempo(prima.ns)});
        }
    }
    out << '\n';
}

void StampaPiani(QTextStream& out, const MisureDimensione& m) {
    out << "## Record-count query plans (" << Etichetta(m.record)
        << ")\n\nThe program's `SqlMassimoRecord`:\n\n```\n"
        << m.pianoMassimo.join(QLatin1Char('\n')) << "\n```\n\nThe floor's `" << SqlMassimoPavimento()
        << "`:\n\n```\n"
        << m.pianoMassimoPavimento.join(QLatin1Char('\n')) << "\n```\n";
}

} // namespace

QString FormatoTempo(qint64 ns) {
    const double v = static_cast<double>(ns);
    if (ns < 1'000)
        return QString::number(ns) + QStringLiteral(" ns");
    if (ns < 1'000'000)
        return QString::number(v / 1e3, 'g', 3) + QStringLiteral(" µs");
    if (ns < 1'000'000'000)
        return QString::number(v / 1e6, 'g', 3) + QStringLiteral(" ms");
    return QString::number(v / 1e9, 'g', 3) + QStringLiteral(" s");
}

void StampaRapporto(QTextStream& out, const QList<MisureDimensione>& misure) {
    StampaMacchina(out);
    StampaCostruzione(out, misure);
    StampaTabella(out, misure);
    StampaObiettivi(out, misure);
    StampaProfili(out, misure);
    StampaPiani(out, misure.last());
}
