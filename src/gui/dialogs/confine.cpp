#include "confine.h"

#include "erroredatabase.h"
#include "interazione.h"

#include <QString>
#include <exception>

void EseguiProtetto(const std::function<void()>& azione) {
    try {
        azione();
    } catch (const ErroreDatabase& errore) {
        MsgBox(errore.messaggio(), Pulsanti::Ok, Icona::Critica);
    } catch (const std::exception& errore) {
        MsgBox(QString::fromLocal8Bit(errore.what()), Pulsanti::Ok, Icona::Critica);
    }
}
