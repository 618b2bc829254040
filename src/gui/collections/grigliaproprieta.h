#pragma once

#include <QTreeWidget>

class Form1;

// The property grid of the collections window: the stored properties of one field, editable
// in place while the user allows it.
class GrigliaProprieta final : public QTreeWidget {
    Q_OBJECT

public:
    explicit GrigliaProprieta(Form1& form);

    void Riempi(qint32 idCampo, qint32 idCollezione);
    void Svuota();
    void ImpostaModificaConsentita(bool consentita);
    bool ModificaConsentita() const { return m_modificaConsentita; }

    // End of an in-place edit of a row's value; the delegate commits through here. The value is
    // checked, written to the current field's row and shown, or refused and the old one kept.
    void FineModifica(QTreeWidgetItem* riga, const QString& nuovoTesto);

protected:
    void mouseReleaseEvent(QMouseEvent* evento) override;
    void contextMenuEvent(QContextMenuEvent* evento) override;

private:
    void Riga_Click();
    void MostraMenuCampi(const QPoint& puntoGlobale);
    bool Accettabile(const QTreeWidgetItem* riga, QString& valore);
    bool NomeGiaElencato(const QString& valore) const;
    bool TipoAccettabile(QString& valore);
    bool Scrivi(const QString& proprieta, const QString& valore);

    Form1& m_form;
    bool m_modificaConsentita = false;
};
