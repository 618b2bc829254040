#include "collezionebench.h"

#include "archivio.h"
#include "routinesql.h"

#include <algorithm>
#include <stdexcept>

namespace {

QString Numero(qint64 n) {
    return QString::number(n);
}

QString Titolo(qint32 n) {
    return QStringLiteral("Titolo del libro ") + Numero(n);
}
QString Autore(qint32 n) {
    return QStringLiteral("Maria Grazia Autore ") + Numero(n % 997);
}
QString Editore(qint32 n) {
    return QStringLiteral("Edizioni del Lago ") + Numero(n % 53);
}
// About a hundred characters, as a note a collector writes: with it the store of 100,000 records
// outgrows the page cache, as a real one does.
QString Note(qint32 n) {
    return QStringLiteral("Copia in buono stato, acquistata alla fiera del libro usato; ") +
           QStringLiteral("dedica a pagina %1, scaffale %2.").arg(n % 300).arg(n % 41);
}
QString Prezzo(qint32 n) {
    return Numero(5 + n % 120);
}
QString Calcolato(qint32) {
    return {};
}
QString Posseduto(qint32 n) {
    return Numero(n % 2);
}
QString Genere(qint32 n) {
    return Numero(n % 3);
}
QString Formato(qint32 n) {
    return Numero(n % 4);
}
QString Voto(qint32 n) {
    return Numero(n % 11);
}

void AggiungiCampo(Recordset& rs, qint32 idCollezione, const DefinizioneCampo& campo, int posizione) {
    // Two columns of five controls, the way a user lays out a form.
    const int colonna = posizione / 5;
    const int riga = posizione % 5;
    rs.NuovoRecord();
    rs.Imposta(QStringLiteral("id_collezione"), idCollezione);
    rs.Imposta(QStringLiteral("nome"), campo.nome);
    rs.Imposta(QStringLiteral("etichetta"), campo.nome);
    rs.Imposta(QStringLiteral("tipo"), campo.tipo);
    rs.Imposta(QStringLiteral("left"), 20 + colonna * 280);
    rs.Imposta(QStringLiteral("top"), 30 + riga * 80);
    rs.Imposta(QStringLiteral("width"), 240);
    rs.Imposta(QStringLiteral("height"), campo.tipo == QLatin1String("list") ? 60 : 24);
    rs.Imposta(QStringLiteral("tabindex"), posizione);
    rs.Imposta(QStringLiteral("tooltip"), campo.nome);
    rs.Imposta(QStringLiteral("formula"), campo.formula);
    rs.Imposta(QStringLiteral("default"), QString());
    rs.Imposta(QStringLiteral("required"), QStringLiteral("False"));
    rs.Imposta(QStringLiteral("special"), campo.special);
    rs.Salva();
}

QList<qint32> IdCampi(qint32 idCollezione) {
    const QList<VoceElenco> campi = ElencoCampi(idCollezione);
    QList<qint32> ids;
    for (const DefinizioneCampo& definizione : DefinizioniCampi()) {
        const auto trovato = std::find_if(campi.begin(), campi.end(), [&](const VoceElenco& voce) {
            return voce.nome == definizione.nome;
        });
        if (trovato == campi.end())
            throw std::runtime_error("field row not found after creating it");
        ids << trovato->id;
    }
    return ids;
}

qint32 CreaConCampi(const QString& nome, const QList<DefinizioneCampo>& definizioni) {
    const qint32 id = CreaCollezione(nome, QStringLiteral("Collezione del banco di misura"));
    if (id < 0)
        throw std::runtime_error("the collection already exists in a store meant to be empty");
    Recordset rs = Database().ApriRecordset(QStringLiteral("select * from campi where id_collezione=") +
                                            QString::number(id));
    for (int i = 0; i < definizioni.size(); ++i)
        AggiungiCampo(rs, id, definizioni.at(i), i);
    rs.Chiudi();
    return id;
}

} // namespace

const QList<DefinizioneCampo>& DefinizioniCampi() {
    static const QList<DefinizioneCampo> definizioni{
        {QStringLiteral("Titolo"), QStringLiteral("textbox"), {}, {}, Titolo},
        {QStringLiteral("Autore"), QStringLiteral("textbox"), {}, {}, Autore},
        {QStringLiteral("Editore"), QStringLiteral("textbox"), {}, {}, Editore},
        {QStringLiteral("Note"), QStringLiteral("memo"), {}, {}, Note},
        {QStringLiteral("Prezzo"), QStringLiteral("textbox"), {}, {}, Prezzo},
        {QStringLiteral("Rimborso"), QStringLiteral("textbox"), QStringLiteral("Prezzo * 2"), {}, Calcolato},
        {QStringLiteral("Posseduto"), QStringLiteral("checkbox"), {}, {}, Posseduto},
        {QStringLiteral("Genere"),
         QStringLiteral("combo"),
         {},
         QStringLiteral("Romanzo|Saggio|Poesia"),
         Genere},
        {QStringLiteral("Formato"),
         QStringLiteral("list"),
         {},
         QStringLiteral("Rilegato|Brossura|Tascabile|Digitale"),
         Formato},
        {QStringLiteral("Voto"), QStringLiteral("slider"), {}, QStringLiteral("0|10"), Voto},
    };
    return definizioni;
}

CollezioneBench CreaCollezioneBench() {
    CollezioneBench collezione;
    collezione.id = CreaConCampi(QStringLiteral("Biblioteca"), DefinizioniCampi());
    collezione.idCampi = IdCampi(collezione.id);
    return collezione;
}

CollezioneBench CreaCollezioneDisposizione(int campi) {
    QList<DefinizioneCampo> definizioni;
    for (int i = 1; i <= campi; ++i)
        definizioni.append(
            {QStringLiteral("Campo ") + Numero(i), QStringLiteral("textbox"), {}, {}, nullptr});
    CollezioneBench collezione;
    collezione.id = CreaConCampi(QStringLiteral("Disposizione"), definizioni);
    for (const VoceElenco& campo : ElencoCampi(collezione.id))
        collezione.idCampi << campo.id;
    return collezione;
}
