#include "comandicampi.h"

#include "archivio.h"
#include "form1.h"
#include "frmproprietacontrollo.h"
#include "frmsceglicampi.h"
#include "grigliaproprieta.h"
#include "interazione.h"
#include "routinesql.h"
#include "transazione.h"

#include <QListWidget>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <memory>

namespace {

QStringList NomiElencati(const QListWidget& lista) {
    QStringList nomi;
    for (int i = 0; i < lista.count(); ++i)
        nomi << lista.item(i)->text();
    return nomi;
}

// Stores the confirmed properties as a new field row of the current collection; returns its name.
QString SalvaCampo(const frmProprietaControllo& proprieta, const QString& tipo, qint32 idCollezione) {
    QString nome;
    Recordset rs = Database().ApriRecordset(QStringLiteral("select * from campi"));
    rs.NuovoRecord();
    for (int i = 0; i < proprieta.LV1->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* riga = proprieta.LV1->topLevelItem(i);
        const QString colonna = riga->text(1).toLower();
        rs.Imposta(colonna, riga->text(0));
        if (colonna == QLatin1String("nome"))
            nome = riga->text(0);
    }
    rs.Imposta(QStringLiteral("tipo"), tipo);
    rs.Imposta(QStringLiteral("id_collezione"), idCollezione);
    rs.Salva();
    return nome;
}

// The new field's id is looked up by name alone, in every collection: the first match wins.
QListWidgetItem* ElencaNuovoCampo(QListWidget& lista, const QString& nome) {
    Recordset rs = Database().ApriRecordset(QStringLiteral("select id,nome from campi where nome='") + nome +
                                            QStringLiteral("'"));
    auto* elemento = new QListWidgetItem(rs.Testo(QStringLiteral("nome")), &lista);
    elemento->setData(Qt::UserRole, static_cast<qint32>(rs.Campo(QStringLiteral("id")).toLongLong()));
    return elemento;
}

// One statement per record, the record number bound rather than spliced: the text is then
// prepared once, not once per record, which on a large collection is most of the time.
void DaiValoreAiRecord(qint32 idCampo, qint32 numeroRecord) {
    const QString valore = Quote(
        InputBox(QStringLiteral("Specifica il Valore del nuovo Campo da assegnare ai record preesistenti:")));
    const QString oggi = DataOggi();
    const QString sql =
        QStringLiteral("insert into valori (valore,id_campo,data_ins,data_mod,numerorecord) ") +
        QStringLiteral("values ('") + valore + QStringLiteral("',") + QString::number(idCampo) +
        QStringLiteral(",'") + oggi + QStringLiteral("','") + oggi + QStringLiteral("',?)");
    for (qint32 r = 1; r <= numeroRecord; ++r)
        Database().Esegui(sql, {r});
}

// The field row and the values of the existing records stand or fall together, the value prompt
// included: a failure or a kill anywhere between them leaves no field row, and a field without
// values would silently never save what is typed into it. Answers whether the collection has
// no records yet.
bool RegistraCampo(Form1& form, const frmProprietaControllo& proprieta, const QString& tipo) {
    Transazione transazione(Database());
    const QString nome = SalvaCampo(proprieta, tipo, form.IdCollezioneCorrente());
    std::unique_ptr<QListWidgetItem> elencato(ElencaNuovoCampo(*form.List2, nome));
    const qint32 numeroRecord = ContaRecord(form.IdCollezioneCorrente());
    if (numeroRecord >= 1)
        DaiValoreAiRecord(elencato->data(Qt::UserRole).toInt(), numeroRecord);
    transazione.Conferma();
    elencato.release(); // the list keeps it
    return numeroRecord < 1;
}

} // namespace

void CreaNuovoCampo(Form1& form) {
    // "Yes" to another field starts over from the top, as many times as the user likes.
    for (;;) {
        if (form.IdCollezioneCorrente() < 0) {
            MsgBox(QStringLiteral("Nessuna Collezione Selezionata!"));
            return;
        }
        RichiediDatabase();
        FrmScegliCampi scegli(&form);
        MostraModale(scegli);
        const QString tipo = scegli.Risultato();
        if (tipo.isEmpty())
            return;
        frmProprietaControllo proprieta(tipo, NomiElencati(*form.List2), &form);
        MostraModale(proprieta);
        if (!proprieta.Confermato || !RegistraCampo(form, proprieta, tipo))
            return;
        if (MsgBox(QStringLiteral("Si desidera inserire un altro Campo alla propria Collezione?"),
                   Pulsanti::SiNo, Icona::Domanda, QStringLiteral("Aggiungere altro campo?")) != Risposta::Si)
            return;
    }
}

void EliminaCampo(Form1& form) {
    const QList<QListWidgetItem*> selezionati = form.List2->selectedItems();
    if (selezionati.isEmpty())
        return;
    RichiediDatabase();
    if (MsgBox(QStringLiteral("Sicuro di voler rimuovere permanentemente il Campo selezionato?"),
               Pulsanti::SiNoAnnulla, Icona::Domanda, {}, 2) != Risposta::Si)
        return;
    QListWidgetItem* elemento = selezionati.constFirst();
    Database().Esegui(QStringLiteral("delete from campi where id=") +
                      QString::number(elemento->data(Qt::UserRole).toInt()));
    {
        // The removal must not select a neighbour and show its properties.
        const QSignalBlocker blocco(form.List2);
        delete elemento;
        form.List2->clearSelection();
    }
    form.Lv1->Svuota();
}
