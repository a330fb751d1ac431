#pragma once
// Reads a language definition of the program highlight (".lang"): a Lua file that gives lists of words and patterns to
// known names. Patterns are taken where they stand for words that can be counted.

#include <string>
#include <string_view>

#include "import/Definition.h"

namespace import {

/// Reads a definition. `file` is the file's name without its folder: its title is the language's short name. The
/// extensions stand in "filetypes.conf", which is asked of `neighbours`; without it the short name is the extension.
ReadDefinition ReadHighlight(std::string_view text, const std::string& file, const NeighbourFiles& neighbours);

}  // namespace import
