#pragma once
// Words that mean the same in most languages, so that they look the same in all templates whatever list of the
// definition they stand in: true and null are literals, int and float types.

#include <span>
#include <string>
#include <string_view>

#include "import/Definition.h"

namespace import {

/// The class that a word of a keyword list is drawn as: that of the list, or that of a literal or a basic type.
Role ClassOfWord(Role list, std::string_view word);

/// The class that most words of a list ask for, for a list whose definition does not say what its words are.
Role ClassOfList(std::span<const std::string> words, Role otherwise);

/// The directives of the C preprocessor, with their "#".
std::span<const std::string_view> PreprocessorWords();

/// Whole numbers and other common forms of numbers; a template has no patterns, so it lists them.
std::vector<std::string> NumberWords();

}  // namespace import
