#pragma once

#include <QString>

// One record as two lines joined by CR LF: the names of its fields, then their values, each
// separated by one TAB, fields in name order. An empty text when the record has no value rows or
// the store fails: the record window's clipboard and print commands then have nothing to use.
QString TestoRecord(qint32 idCollezione, qint32 numeroRecord);

// The record's fields with their values, in name order: nome, etichetta, tipo, valore; with
// `conDimensioni`, as the sheet layout reads them, the control's width and height before the value.
QString SqlCampiRecord(qint32 idCollezione, qint32 numeroRecord, bool conDimensioni = false);
