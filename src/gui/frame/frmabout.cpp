#include "frmabout.h"

#include "confine.h"
#include "iconaprogramma.h"
#include "interazione.h"
#include "programma.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QSettings>
#include <QTextEdit>

frmAbout::frmAbout(QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(QStringLiteral("Informazioni su ") + Programma::Titolo());

    auto* logo = new QLabel;
    logo->setPixmap(IconaProgramma().pixmap(64, 64));
    lblTitle = new QLabel(Programma::Titolo().toUpper());
    lblTitle->setObjectName(QStringLiteral("lblTitle"));
    QFont grande = lblTitle->font();
    grande.setPointSizeF(grande.pointSizeF() * 1.8);
    grande.setBold(true);
    lblTitle->setFont(grande);
    lblVersion = new QLabel(QStringLiteral("Versione ") + Programma::Versione());
    lblVersion->setObjectName(QStringLiteral("lblVersion"));
    lblDescription = new QTextEdit;
    lblDescription->setObjectName(QStringLiteral("lblDescription"));
    lblDescription->setReadOnly(true);
    lblDescription->setPlainText(Descrizione());
    lblMail = Collegamento(IndirizzoPosta(), "lblMail");
    lblWeb = Collegamento(IndirizzoWeb(), "lblWeb");
    cmdSysInfo = new QPushButton(QStringLiteral("&System Info..."));
    cmdSysInfo->setObjectName(QStringLiteral("cmdSysInfo"));
    cmdOK = new QPushButton(QStringLiteral("OK"));
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setDefault(true);

    auto* griglia = new QGridLayout(this);
    griglia->addWidget(logo, 0, 0, 2, 1, Qt::AlignTop);
    griglia->addWidget(lblTitle, 0, 1);
    griglia->addWidget(lblVersion, 1, 1);
    griglia->addWidget(lblDescription, 2, 0, 1, 3);
    griglia->addWidget(lblMail, 3, 0, 1, 2);
    griglia->addWidget(cmdOK, 3, 2);
    griglia->addWidget(lblWeb, 4, 0, 1, 2);
    griglia->addWidget(cmdSysInfo, 4, 2);
    griglia->setColumnStretch(1, 1);

    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdSysInfo, &QPushButton::clicked, this, Protetto([this] { cmdSysInfo_Click(); }));
    resize(520, 400);
}

QString frmAbout::Descrizione() {
    const QString fine = QStringLiteral("\r\n");
    return QStringLiteral("Orvix per Tarvino") + fine + fine +
           QStringLiteral(
               "Questo prodotto ti consente di creare collezioni personalizzate per mezzo delle quali ti "
               "sarà possibile catalogare in maniere semplice ed intuitiva praticamente qualsiasi cosa.") +
           fine +
           QStringLiteral(
               "Ad es. ti sarà possibile archiviare Musica, Film, Sottobicchieri, Figurine, Farfalle, "
               "Minerali, ecc.") +
           fine + fine +
           QStringLiteral(
               "Per prima cosa dovrai scegliere i campi della tua Collezione (es. Titolo CD, Attori del "
               "Film...), fatto ciò potrai incominciare ad inserire i singoli record (es. film) da "
               "catalogare.") +
           fine;
}

QString frmAbout::IndirizzoPosta() {
    return QStringLiteral("orvix@example.org");
}
QString frmAbout::IndirizzoWeb() {
    return QStringLiteral("https://www.example.org/orvix");
}

QString frmAbout::DestinazioneCollegamento(const QString& testo) {
    if (testo.contains(QLatin1Char('@')))
        return QStringLiteral("mailto:") + testo + QStringLiteral("?subject=Orvix_Tarvino");
    return testo;
}

QLabel* frmAbout::Collegamento(const QString& indirizzo, const char* nome) {
    auto* etichetta = new QLabel(QStringLiteral("<a href=\"#\">%1</a>").arg(indirizzo.toHtmlEscaped()));
    etichetta->setObjectName(QLatin1String(nome));
    etichetta->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    etichetta->setCursor(Qt::PointingHandCursor);
    connect(etichetta, &QLabel::linkActivated, this,
            Protetto([indirizzo] { ApriConShell(DestinazioneCollegamento(indirizzo)); }));
    return etichetta;
}

QString frmAbout::PercorsoInformazioniSistema() {
#ifdef Q_OS_WIN
    const QSettings msinfo(QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"),
                           QSettings::NativeFormat);
    QString percorso = msinfo.value(QStringLiteral("PATH")).toString();
    if (percorso.isEmpty()) {
        const QSettings posizione(
            QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Shared Tools Location"),
            QSettings::NativeFormat);
        const QString cartella = posizione.value(QStringLiteral("MSINFO")).toString();
        if (!cartella.isEmpty())
            percorso = cartella + QStringLiteral("\\MSINFO32.EXE");
    }
    return percorso;
#else
    return {};
#endif
}

void frmAbout::cmdSysInfo_Click() {
    const QString percorso = PercorsoInformazioniSistema();
    if (percorso.isEmpty() || !QProcess::startDetached(percorso, {})) {
        MsgBox(QStringLiteral("Le informazioni sul sistema non sono attualmente disponibili."), Pulsanti::Ok,
               Icona::Nessuna, windowTitle());
    }
}
