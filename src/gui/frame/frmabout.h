#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class QTextEdit;

// The about box: version, description, the maker's addresses and the system information launcher.
class frmAbout final : public QDialog {
    Q_OBJECT

public:
    explicit frmAbout(QWidget* parent = nullptr);

    static QString Descrizione();
    static QString IndirizzoPosta();
    static QString IndirizzoWeb();
    // What a click on a link label opens: a mail with its subject, or the address itself.
    static QString DestinazioneCollegamento(const QString& testo);
    void cmdSysInfo_Click();

    QLabel* lblTitle;
    QLabel* lblVersion;
    QTextEdit* lblDescription;
    QLabel* lblMail;
    QLabel* lblWeb;
    QPushButton* cmdSysInfo;
    QPushButton* cmdOK;

private:
    QLabel* Collegamento(const QString& indirizzo, const char* nome);
    static QString PercorsoInformazioniSistema();
};
