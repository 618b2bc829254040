#include "avanzamento.h"

QString TestoInterruzione(qint32 record) {
    return QStringLiteral("Importazione interrotta: ") + QString::number(record) +
           QStringLiteral(" record inseriti.");
}
