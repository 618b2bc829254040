#pragma once

#include <QtGlobal>

// "Elenco Record..." opens the list of records, whose library builds on this one: the program
// installs the opener when the frame starts. Until one is installed the command does nothing.
using ApertoreElenco = void (*)(qint32 idCollezione);
void ImpostaApertoreElenco(ApertoreElenco apertore);
void ApriElencoSu(qint32 idCollezione);
