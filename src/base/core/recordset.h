#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>

class Connessione;
struct Colonne;
struct sqlite3_stmt;

// A forward cursor over the rows of a SELECT. Over a single table it is also updatable:
// rows can be added, and the current row edited or deleted, always with bound values.
class Recordset final {
public:
    Recordset(Connessione& connessione, sqlite3_stmt* stmt, const QString& tabella);
    ~Recordset();
    Recordset(Recordset&& altro) noexcept;
    Recordset& operator=(Recordset&&) = delete;
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    bool Fine() const { return m_fine; }
    void Successivo();

    int NumeroColonne() const;
    QString NomeColonna(int indice) const;
    QVariant Campo(int indice) const { return m_riga.at(indice); }
    QVariant Campo(const QString& nome) const;
    // The value as text; NULL reads as an empty text.
    QString Testo(const QString& nome) const { return Campo(nome).toString(); }

    void NuovoRecord();
    void Modifica();
    void Imposta(const QString& nome, const QVariant& valore);
    void Salva();
    void Elimina();
    void Chiudi();

private:
    enum class Stato { Lettura, Aggiunta, Modifica };

    int Indice(const QString& nome) const;
    void LeggiRiga();
    void SalvaAggiunta();
    void SalvaModifica();
    void RichiediTabella() const;

    Connessione* m_connessione;
    sqlite3_stmt* m_stmt;
    QString m_tabella;
    bool m_conRowid;
    bool m_fine = true;
    qint64 m_rowid = 0;
    std::shared_ptr<const Colonne> m_colonne;
    QList<QVariant> m_riga;
    Stato m_stato = Stato::Lettura;
    QList<QPair<QString, QVariant>> m_modifiche;
};
