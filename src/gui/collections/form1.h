#pragma once

#include "finestre.h"

#include <QWidget>

class GrigliaProprieta;
class QAction;
class QListWidget;
class QMenu;

// The collections window: the hub from which every command on a collection or a field starts.
class Form1 final : public QWidget, public FinestraConMenu {
    Q_OBJECT

public:
    explicit Form1(QWidget* parent = nullptr);

    qint32 IdCollezioneCorrente() const { return m_idCollezione; }
    void ImpostaIdCollezioneCorrente(qint32 id) { m_idCollezione = id; }
    QString NomeCollezioneCorrente() const { return m_nomeCollezione; }
    qint32 IdCampoCorrente() const { return m_idCampo; }
    void ImpostaIdCampoCorrente(qint32 id) { m_idCampo = id; }

    QList<QMenu*> MenuFinestra() const override;

    void mnuNewCollection_Click();
    void mnuRinominaCollezione_Click();
    void mnuDelCollection_Click();
    void mnuEseguiRicerca_Click();

    QListWidget* List1;
    QListWidget* List2;
    GrigliaProprieta* Lv1;

    QMenu* mnuCollezioni;
    QAction* mnuNewCollection;
    QAction* mnuNuovaColleazioneDaModello;
    QAction* mnuRinominaCollezione;
    QAction* mnuDelCollection;
    QAction* mnuInserisciRecord;
    QMenu* mnuEsporta1;
    QAction* mnuEsporta;
    QAction* mnuEsportaModello;
    QAction* mnuStampa;
    QAction* mnuImportaStrutturaeDati;
    QAction* mnuEseguiRicerca;
    QAction* mnuBackup;
    QAction* mnuRestore;

    QMenu* mnuCampi;
    QAction* mnuNewCampo;
    QAction* mnuElliminaCampo;
    QAction* mnuPermettiModifichePropCampi;
    QAction* mnuAnteprima;

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    void CreaControlli();
    void CreaMenu();
    void CollegaEventi();
    QAction* Voce(QMenu* menu, const char* nome, const QString& testo);
    void List1_Click();
    void List2_Click();
    bool SelezionatoIn(const QListWidget& lista) const;
    void MostraPopup(QMenu* menu, QWidget* sopra, const QPoint& punto);

    qint32 m_idCollezione = -1;
    QString m_nomeCollezione;
    qint32 m_idCampo = -1;
};

// The single collections window while it is loaded, or nullptr.
Form1* IstanzaForm1();
// Loads the window when it is not loaded and returns it.
Form1& CaricaForm1();
