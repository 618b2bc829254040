#pragma once

#include "routinesql.h"

#include <optional>

// Creates a collection, and its fields, from a template file: its name made unique among the
// collections by a number after it (Libri, Libri1, Libri2 ...). Answers the new collection, or
// nothing when the store refused to create it. Everything is stored together or not at all.
std::optional<VoceElenco> CaricaModello(const QString& file);
