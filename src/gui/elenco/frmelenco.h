#pragma once

#include <QTimer>
#include <QWidget>

class ModelloElenco;
class QLabel;
class QLineEdit;
class VistaElenco;

// The list of every record of one collection: sorted by a click on a header, narrowed by the
// filter box, a record opened in the record window by a double click or Enter.
class frmElenco final : public QWidget {
    Q_OBJECT

public:
    explicit frmElenco(qint32 idCollezione, QWidget* parent = nullptr);

    QLineEdit* txtFiltro;
    VistaElenco* lvElenco;
    QLabel* lblStato;

    qint32 IdCollezione() const;
    ModelloElenco& Modello() const { return *m_modello; }
    void lvElenco_Activate(const QModelIndex& indice);
    void Intestazione_Click(int colonna);

private:
    void CreaControlli();
    void AggiornaStato();
    void RipristinaImpostazioni();
    void SalvaLarghezza(int colonna, int larghezza);
    void SalvaOrdine();
    QString Sezione() const;

    ModelloElenco* m_modello;
    QTimer m_attesa; // typing settles before the filter starts
    bool m_ripristino = false;
};
