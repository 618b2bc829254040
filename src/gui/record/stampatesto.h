#pragma once

#include <QString>
#include <functional>

class QPrinter;

// Prints a text on the printer as it reads, TABs as tab stops, long lines wrapped, as many pages
// as it takes, and ends the job.
void StampaTesto(const QString& testo, QPrinter& stampante);

// The same on the system's default printer. Fails with a message when there is none.
void StampaSuPredefinita(const QString& testo);
// Sets up every printer StampaSuPredefinita prints on from now on, in place of the system's
// default (tests print into a PDF file this way); an empty function restores the default printer.
void ImpostaStampantePredefinita(std::function<void(QPrinter&)> preparazione);
