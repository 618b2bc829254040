#include "formule.h"

#include "archivio.h"
#include "erroredatabase.h"
#include "finestracontrolli.h"
#include "matheval.h"
#include "numeri.h"
#include "valorecontrollo.h"

namespace {

QList<VoceFormula>& Tabella() {
    static QList<VoceFormula> tabella;
    return tabella;
}

bool Operatore(const QString& parola) {
    static const QStringList operatori{QStringLiteral("-"), QStringLiteral("*"), QStringLiteral("("),
                                       QStringLiteral(")"), QStringLiteral("+"), QStringLiteral("\\"),
                                       QStringLiteral("/")};
    return operatori.contains(parola);
}

// The id of the named field of the collection, as text; empty when there is none. The name is
// spliced as written: one that breaks the statement (an apostrophe) names no field, and the formula
// shows so instead of keeping the record window from opening.
QString IdCampoPerNome(const QString& nome, qint32 idCollezione) {
    try {
        const Recordset campo =
            Database().ApriRecordset(QStringLiteral("select id from campi where nome='") + nome +
                                     QStringLiteral("' and id_collezione=") + QString::number(idCollezione));
        return campo.Fine() ? QString() : campo.Testo(QStringLiteral("id"));
    } catch (const ErroreDatabase&) {
        return {};
    }
}

} // namespace

const QList<VoceFormula>& TabellaFormule() {
    return Tabella();
}

void SvuotaTabellaFormule() {
    Tabella().clear();
}

void AggiungiFormula(const QString& chiave, const QString& formula, qint32 idCampo) {
    Tabella().append({chiave, formula, QString::number(idCampo)});
}

void CalcolaFormule(FinestraControlli& finestra, qint32 idCollezione, qint32 n) {
    for (const VoceFormula& voce : std::as_const(Tabella()))
        if (QWidget* controllo = finestra.Controllo(voce.chiave))
            ImpostaTestoCasella(*controllo, RisolviFormula(finestra, voce.formula, idCollezione, n));
}

QString RisolviFormula(FinestraControlli&, const QString& formula, qint32 idCollezione, qint32 n) {
    return RisolviFormula(formula, idCollezione, n);
}

QString RisolviFormula(const QString& formula, qint32 idCollezione, qint32 n) {
    QString espressione = formula;
    const QStringList parole = formula.split(QLatin1Char(' '));
    for (const QString& pezzo : parole) {
        const QString parola = pezzo.trimmed();
        if (parola.isEmpty() || Operatore(parola) || IsNumeric(parola))
            continue;
        const QString idCampo = IdCampoPerNome(parola, idCollezione);
        if (idCampo.isEmpty())
            return QStringLiteral("Formula non risolvibile #1");
        const Recordset valore =
            Database().ApriRecordset(QStringLiteral("select valore from valori where id_campo=") + idCampo +
                                     QStringLiteral(" and numerorecord=") + QString::number(n));
        if (valore.Fine())
            return QStringLiteral("Formula non risolvibile #2");
        espressione.replace(parola, valore.Testo(QStringLiteral("valore")));
    }
    double risultato = 0.0;
    if (!MathEval().Valuta(espressione, risultato))
        return QStringLiteral("Formula non risolvibile #3");
    return NumeroInTesto(risultato);
}
