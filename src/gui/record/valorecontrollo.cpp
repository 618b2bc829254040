#include "valorecontrollo.h"

#include "casellatesto.h"
#include "cursore.h"
#include "immagine.h"
#include "numeri.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTextDocument>
#include <limits>

namespace {

// The stored text as a position or state; a number too large for one counts as the largest.
int Numero(const QString& testo) {
    constexpr double minimo = std::numeric_limits<int>::min();
    constexpr double massimo = std::numeric_limits<int>::max();
    return CLng(qBound(minimo, Val(testo), massimo));
}

int RigaScelta(const QListWidget& lista) {
    const QList<QListWidgetItem*> scelte = lista.selectedItems();
    return scelte.isEmpty() ? -1 : lista.row(scelte.first());
}

// Records are shown many times over while browsing; a control already showing the value is left
// alone, which spares the widget a relayout.
void ScegliRiga(QListWidget& lista, int riga) {
    const QList<QListWidgetItem*> scelte = lista.selectedItems();
    const bool giaScelta =
        riga < 0 ? scelte.isEmpty() && lista.currentRow() < 0
                 : scelte.size() == 1 && lista.row(scelte.first()) == riga && lista.currentRow() == riga;
    if (giaScelta)
        return;
    if (riga < 0 || riga >= lista.count()) {
        lista.clearSelection();
        lista.setCurrentRow(-1);
        return;
    }
    lista.setCurrentRow(riga, QItemSelectionModel::ClearAndSelect);
}

void MostraFigura(Immagine& immagine, const QString& percorso) {
    immagine.setProperty("Tag", percorso);
    const QFileInfo file(percorso);
    immagine.setPixmap(!percorso.isEmpty() && file.isFile() ? QPixmap(percorso) : QPixmap());
}

} // namespace

QString ValoreControllo(const QWidget& controllo) {
    if (CasellaDiTesto(controllo))
        return TestoCasella(controllo);
    if (const auto* casella = qobject_cast<const QCheckBox*>(&controllo))
        return casella->isChecked() ? QStringLiteral("1") : QStringLiteral("0");
    if (const auto* cursore = qobject_cast<const Cursore*>(&controllo))
        return QString::number(cursore->value());
    if (const auto* lista = qobject_cast<const QListWidget*>(&controllo))
        return QString::number(RigaScelta(*lista));
    if (const auto* combo = qobject_cast<const QComboBox*>(&controllo))
        return QString::number(combo->currentIndex());
    return controllo.property("Tag").toString();
}

void ImpostaValoreControllo(QWidget& controllo, const QString& testo) {
    if (CasellaDiTesto(controllo))
        ImpostaTestoCasella(controllo, testo);
    else if (auto* casella = qobject_cast<QCheckBox*>(&controllo))
        casella->setChecked(Numero(testo) != 0);
    else if (auto* cursore = qobject_cast<Cursore*>(&controllo))
        cursore->setValue(Numero(testo));
    else if (auto* lista = qobject_cast<QListWidget*>(&controllo))
        ScegliRiga(*lista, Numero(testo));
    else if (auto* immagine = qobject_cast<Immagine*>(&controllo))
        MostraFigura(*immagine, testo);
}

void SvuotaControllo(QWidget& controllo) {
    if (CasellaDiTesto(controllo))
        ImpostaTestoCasella(controllo, QString());
    else if (auto* casella = qobject_cast<QCheckBox*>(&controllo))
        casella->setChecked(false);
    else if (auto* cursore = qobject_cast<Cursore*>(&controllo))
        cursore->setValue(0);
    else if (auto* lista = qobject_cast<QListWidget*>(&controllo))
        ScegliRiga(*lista, -1);
    else if (auto* combo = qobject_cast<QComboBox*>(&controllo))
        combo->setCurrentIndex(-1);
    else if (auto* immagine = qobject_cast<Immagine*>(&controllo))
        immagine->setPixmap(QPixmap());
}

void AbilitaControllo(QWidget& controllo, bool modificabile) {
    if (auto* riga = qobject_cast<QLineEdit*>(&controllo))
        riga->setReadOnly(!modificabile);
    else if (auto* memo = qobject_cast<QPlainTextEdit*>(&controllo))
        memo->setReadOnly(!modificabile);
    else
        controllo.setEnabled(modificabile);
}

bool CasellaDiTesto(const QWidget& controllo) {
    return qobject_cast<const QLineEdit*>(&controllo) || qobject_cast<const QPlainTextEdit*>(&controllo);
}

namespace {

// A line break typed in a memo is stored as CR LF, the form every file the program writes uses.
QString TestoVisibile(const QWidget& casella) {
    if (const auto* memo = qobject_cast<const QPlainTextEdit*>(&casella)) {
        QString testo = memo->document()->toRawText();
        testo.replace(QChar::ParagraphSeparator, QLatin1String("\r\n"));
        return testo.replace(QChar::LineSeparator, QLatin1String("\r\n"));
    }
    return static_cast<const QLineEdit&>(casella).text();
}

} // namespace

QString TestoCasella(const QWidget& casella) {
    const QString visibile = TestoVisibile(casella);
    // A memo shows any line break as its own; a value the user left alone is saved exactly as it
    // was loaded, whatever its line breaks were.
    const MemoriaCasella* memoria = MemoriaDi(casella);
    if (memoria && visibile == memoria->testoMostrato)
        return memoria->valoreMostrato;
    return visibile;
}

void ImpostaTestoCasella(QWidget& casella, const QString& testo) {
    const QString visibile = TestoVisibile(casella);
    MemoriaCasella* memoria = MemoriaDi(casella);
    if (memoria && visibile == memoria->testoMostrato && memoria->valoreMostrato == testo)
        return; // records are shown many times over while browsing: a box already showing it is left alone
    if (visibile != testo) {
        if (auto* memo = qobject_cast<QPlainTextEdit*>(&casella))
            memo->setPlainText(testo);
        else
            static_cast<QLineEdit&>(casella).setText(testo);
    }
    if (auto* riga = qobject_cast<QLineEdit*>(&casella))
        riga->setCursorPosition(0); // a long value is read from its start
    if (memoria) {
        memoria->valoreMostrato = testo;
        memoria->testoMostrato = TestoVisibile(casella);
    }
}
