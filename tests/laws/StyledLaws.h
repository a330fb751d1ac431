#pragma once
// What must hold for every styled text, whoever made it, and a form of it that can be compared across line-end kinds.

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "rich_text/StyledText.h"

namespace laws {

/// A character, or '\n' for a line end of any kind, with its colour value; -1 for none.
using StyledCharacter = std::pair<char32_t, std::int64_t>;

/// The text, character by character.
std::vector<StyledCharacter> Characters(const rich_text::StyledText& styled);

/// The first thing that is wrong with the text or its runs; "" if nothing is.
std::string FaultOf(const rich_text::StyledText& styled);

/// Where two texts part, in words; "" if they do not.
std::string Difference(const std::vector<StyledCharacter>& expected, const std::vector<StyledCharacter>& actual);

}  // namespace laws
