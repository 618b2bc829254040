#pragma once

#include "avanzamento.h"

#include <QElapsedTimer>
#include <QObject>

// While an import writes: its progress goes to the frame's status line and the windows repaint,
// but no input reaches them, so no other command can start inside the import, and the program
// cannot be closed under it. A stream of record counts is shown a few times a second.
class ImportazioneInCorso final : public QObject, public Avanzamento {
    Q_OBJECT

public:
    ImportazioneInCorso();
    ~ImportazioneInCorso() override;

    void Stato(const QString& testo) override;

    // How often a record count reaches the screen.
    static constexpr qint64 IntervalloMs = 50;

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    void Mostra(const QString& testo);

    QElapsedTimer m_ultimo;
    QString m_inAttesa;
};
