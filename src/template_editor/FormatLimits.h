#pragma once
// What a template file cannot hold, so that nothing the user enters is lost between saving and reading. Each function
// gives the reason as a sentence for the user, or "" when the text can be kept. Texts are UTF-8.

#include <cstddef>
#include <string>
#include <string_view>

#include "templates/Model.h"

namespace template_editor {

/// The most entries of a completion list, and the highest number that a colour can have.
inline constexpr std::size_t MostNumbered = 32767;

std::string WhyNotColourWord(const templates::colWord& word);
std::string WhyNotActionWord(std::string_view name);
std::string WhyNotDelimeter(std::string_view delimeter);
std::string WhyNotListEntry(std::string_view entry);

}  // namespace template_editor
