#include "erroredatabase.h"

ErroreDatabase::ErroreDatabase(const QString& messaggio)
    : std::runtime_error(messaggio.toStdString())
    , m_messaggio(messaggio) {}
