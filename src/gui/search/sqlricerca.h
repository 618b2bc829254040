#pragma once

#include <QString>
#include <QtGlobal>

// The two statements of a search, built as text: the chosen field's id, then its matching values.
QString SqlIdCampo(qint32 idCollezione, const QString& nome);
QString SqlRicerca(qint32 idCampo, const QString& testo, bool esatta);
