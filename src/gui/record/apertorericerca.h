#pragma once

#include <QtGlobal>

// "Trova..." opens the search window, whose library builds on this one: the program installs the
// opener when the frame starts. Until one is installed the command does nothing.
using ApertoreRicerca = void (*)(qint32 idCollezione);
void ImpostaApertoreRicerca(ApertoreRicerca apertore);
void ApriRicercaSu(qint32 idCollezione);
