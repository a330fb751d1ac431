#pragma once
// Reads a language out of a property file of SciTE. A file may hold several languages; each has the files of one list
// of patterns ("lexer.$(file.patterns.py)=python"). What begins a comment or a string is the lexer's own matter:
// SciteLexers knows it.

#include <string>
#include <string_view>

#include "import/Definition.h"

namespace import {

/// Reads a definition. `file` is the file's name without its folder. `language` is the name of a list of patterns
/// ("py") or an extension of it; "" for the language that is called like the file, or else the file's first. The losses
/// tell which others there are. "SciTEGlobal.properties" is asked of `neighbours` for what all files use.
ReadDefinition ReadScite(std::string_view text, const std::string& file, const std::string& language,
                         const NeighbourFiles& neighbours);

}  // namespace import
