#pragma once

#include "avanzamento.h"

#include <QElapsedTimer>
#include <QObject>

// While an import writes: its progress goes to the frame's status line and the windows repaint,
// but no input reaches them, so no other command can start inside the import, and the program
// cannot be closed under it; only Esc is heard, and stops the import after the record being
// written. A stream of record counts is shown a few times a second.
class ImportazioneInCorso final : public QObject, public Avanzamento {
    Q_OBJECT

public:
    ImportazioneInCorso();
    ~ImportazioneInCorso() override;

    void Stato(const QString& testo) override;
    bool Interrotta() const override { return m_interrotta; }

    // How often a record count reaches the screen.
    static constexpr qint64 IntervalloMs = 50;

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    void Mostra(const QString& testo);

    QElapsedTimer m_ultimo;
    QString m_inAttesa;
    bool m_interrotta = false;
};
