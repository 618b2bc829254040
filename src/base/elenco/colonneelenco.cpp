#include "colonneelenco.h"

#include "letturapreparata.h"

QList<ColonnaElenco> ColonneElenco(qint32 idCollezione) {
    LetturaPreparata campi(QStringLiteral("select id,nome,etichetta,tipo,formula,special from campi where "
                                          "id_collezione=?1 order by tabindex,id"));
    campi.Lega(1, idCollezione);
    QList<ColonnaElenco> colonne;
    while (campi.Riga()) {
        ColonnaElenco colonna;
        colonna.id = static_cast<qint32>(campi.Intero(0));
        colonna.intestazione = campi.Testo(2).isEmpty() ? campi.Testo(1) : campi.Testo(2);
        colonna.tipo = campi.Testo(3).toLower();
        colonna.formula = campi.Testo(4);
        if ((colonna.tipo == QLatin1String("combo") || colonna.tipo == QLatin1String("list")) &&
            !campi.Testo(5).isEmpty())
            colonna.voci = campi.Testo(5).split(QLatin1Char('|'));
        colonne.append(colonna);
    }
    return colonne;
}

QString NomeCollezione(qint32 idCollezione) {
    LetturaPreparata collezione(QStringLiteral("select nome from collezioni where id=?1"));
    collezione.Lega(1, idCollezione);
    return collezione.Riga() ? collezione.Testo(0) : QString();
}
