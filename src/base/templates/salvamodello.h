#pragma once

#include <QString>

// Writes the structure of a collection (its row of collezioni and its rows of campi, no record) into
// the template file, over what the file holds. Answers the failure to tell the user, or the empty
// text when the template was written.
QString SalvaModello(qint32 idCollezione, const QString& file);
