#pragma once
// Reads one of KDE's syntax definitions (".xml"): lists of words, and contexts whose rules lead from one to the other.
// A context that is drawn as a comment or a string is a stretch between the mark that leads into it and the one that
// leads out.

#include <string>
#include <string_view>

#include "import/Definition.h"

namespace import {

/// Reads a definition. `file` is the file's name without its folder; `neighbours` is asked for the definitions whose
/// rules it includes, under the names that KDE gives their files.
ReadDefinition ReadKde(std::string_view text, const std::string& file, const NeighbourFiles& neighbours);

}  // namespace import
