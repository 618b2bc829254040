#include "grigliaproprieta.h"

#include "archivio.h"
#include "confine.h"
#include "confrontotesto.h"
#include "elencoproprieta.h"
#include "erroredatabase.h"
#include "form1.h"
#include "interazione.h"
#include "numeri.h"

#include <QContextMenuEvent>
#include <QListWidget>
#include <QMenu>
#include <QMouseEvent>

GrigliaProprieta::GrigliaProprieta(Form1& form)
    : m_form(form) {
    setObjectName(QStringLiteral("Lv1"));
    PreparaElencoProprieta(
        *this, [this](int riga, const QString& testo) { FineModifica(topLevelItem(riga), testo); });
    setEditTriggers(NoEditTriggers);
    connect(this, &QTreeWidget::itemClicked, this, Protetto([this] { Riga_Click(); }));
}

void GrigliaProprieta::Riempi(qint32 idCampo, qint32 idCollezione) {
    clear();
    Recordset rs =
        Database().ApriRecordset(QStringLiteral("select * from campi where id=") + QString::number(idCampo) +
                                 QStringLiteral(" and id_collezione=") + QString::number(idCollezione));
    if (rs.Fine())
        return;
    // The id and the owning collection are the first two columns and are never shown.
    for (int i = 2; i < rs.NumeroColonne(); ++i)
        AggiungiProprieta(*this, rs.Campo(i).toString(), rs.NomeColonna(i));
}

void GrigliaProprieta::Svuota() {
    clear();
}

void GrigliaProprieta::ImpostaModificaConsentita(bool consentita) {
    m_modificaConsentita = consentita;
    setEditTriggers(consentita ? EditTriggers(SelectedClicked | EditKeyPressed)
                               : EditTriggers(NoEditTriggers));
}

void GrigliaProprieta::Riga_Click() {
    if (m_modificaConsentita && topLevelItemCount() > 0 && currentItem())
        editItem(currentItem(), 0);
}

void GrigliaProprieta::mouseReleaseEvent(QMouseEvent* evento) {
    QTreeWidget::mouseReleaseEvent(evento);
    if (evento->button() == Qt::RightButton)
        MostraMenuCampi(evento->globalPosition().toPoint());
}

void GrigliaProprieta::contextMenuEvent(QContextMenuEvent* evento) {
    // The mouse opens the menu on release; the keyboard's menu key opens it here.
    if (evento->reason() == QContextMenuEvent::Keyboard && currentItem())
        MostraMenuCampi(viewport()->mapToGlobal(visualItemRect(currentItem()).bottomLeft()));
    evento->accept();
}

void GrigliaProprieta::MostraMenuCampi(const QPoint& puntoGlobale) {
    if (topLevelItemCount() > 0)
        m_form.mnuCampi->popup(puntoGlobale);
}

void GrigliaProprieta::FineModifica(QTreeWidgetItem* riga, const QString& nuovoTesto) {
    QString valore = nuovoTesto;
    if (!Accettabile(riga, valore) || !Scrivi(riga->text(1), valore)) {
        setCurrentItem(riga);
        return;
    }
    riga->setText(0, valore);
}

bool GrigliaProprieta::Accettabile(const QTreeWidgetItem* riga, QString& valore) {
    const QString proprieta = riga->text(1).toLower();
    // The numeric test looks at the value shown before this edit, not at the new one.
    if (ProprietaNumerica(proprieta) && !IsNumeric(riga->text(0))) {
        MsgBox(QStringLiteral("Proprietà ") + proprieta.toUpper() + QStringLiteral(" non valida!"));
        return false;
    }
    if (proprieta == QLatin1String("nome") && NomeGiaElencato(valore)) {
        MsgBox(QStringLiteral(
            "Attenzione, hai specificato un valore come proprietà Nome già assegnato ad un altro "
            "controllo!"));
        return false;
    }
    if (proprieta == QLatin1String("tipo"))
        return TipoAccettabile(valore);
    return true;
}

bool GrigliaProprieta::NomeGiaElencato(const QString& valore) const {
    // The list may still show a name changed here earlier: it is refilled only when the collection is.
    const QListWidget& lista = *m_form.List2;
    for (int i = 0; i < lista.count(); ++i)
        if (TestiUguali(lista.item(i)->text(), valore))
            return true;
    return false;
}

bool GrigliaProprieta::TipoAccettabile(QString& valore) {
    valore = valore.trimmed().toLower();
    if (!ControlTypes().contains(valore)) {
        MsgBox(QStringLiteral("Tipo di controllo non Valido!"));
        return false;
    }
    return MsgBox(
               QStringLiteral("Modificare il tipo di campo può rendere la propria Collezione inservibile.\r"
                              "Procedere ugualmente alla modifica?"),
               Pulsanti::SiNo, Icona::Domanda, {}, 2) == Risposta::Si;
}

bool GrigliaProprieta::Scrivi(const QString& proprieta, const QString& valore) {
    Recordset rs = Database().ApriRecordset(QStringLiteral("select * from campi where id=") +
                                            QString::number(m_form.IdCampoCorrente()));
    if (rs.Fine())
        return true;
    rs.Modifica();
    rs.Imposta(proprieta, valore);
    try {
        rs.Salva();
    } catch (const ErroreDatabase& errore) {
        MsgBox(QStringLiteral("Il valore «") + valore +
                   QStringLiteral("» non può essere salvato nella "
                                  "proprietà ") +
                   proprieta.toUpper() + QStringLiteral(".\n\n") + errore.messaggio(),
               Pulsanti::Ok, Icona::Esclamativa);
        return false;
    }
    return true;
}
