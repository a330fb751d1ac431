#include "rich_text/TextDifference.h"

#include <algorithm>

#include "rich_text/StyledText.h"

namespace rich_text {

TextDifference DifferenceOf(std::string_view oldText, std::string_view newText) {
  const std::size_t shorter = std::min(oldText.size(), newText.size());
  const auto front =
      std::mismatch(oldText.begin(), oldText.begin() + static_cast<std::ptrdiff_t>(shorter), newText.begin());
  auto start = static_cast<std::size_t>(front.first - oldText.begin());
  while (SplitsCharacter(oldText, start) || SplitsCharacter(newText, start)) --start;

  const auto room = static_cast<std::ptrdiff_t>(shorter - start);
  const auto back = std::mismatch(oldText.rbegin(), oldText.rbegin() + room, newText.rbegin());
  auto tail = static_cast<std::size_t>(back.first - oldText.rbegin());
  while (SplitsCharacter(oldText, oldText.size() - tail) || SplitsCharacter(newText, newText.size() - tail)) --tail;
  return {start, oldText.size() - tail, newText.size() - tail};
}

}  // namespace rich_text
