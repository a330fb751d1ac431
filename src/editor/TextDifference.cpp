#include "editor/TextDifference.h"

#include <algorithm>

namespace editor {
namespace {

/// Whether a control may cut the text at `at`.
bool IsCut(std::string_view text, std::size_t at) {
  if (at == 0 || at >= text.size()) return true;
  const bool isInCharacter = (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
  return !isInCharacter && !(text[at] == '\n' && text[at - 1] == '\r');
}

}  // namespace

TextDifference DifferenceOf(std::string_view oldText, std::string_view newText) {
  const std::size_t shorter = std::min(oldText.size(), newText.size());
  const auto front =
      std::mismatch(oldText.begin(), oldText.begin() + static_cast<std::ptrdiff_t>(shorter), newText.begin());
  auto start = static_cast<std::size_t>(front.first - oldText.begin());
  while (!IsCut(oldText, start) || !IsCut(newText, start)) --start;

  const auto room = static_cast<std::ptrdiff_t>(shorter - start);
  const auto back = std::mismatch(oldText.rbegin(), oldText.rbegin() + room, newText.rbegin());
  auto tail = static_cast<std::size_t>(back.first - oldText.rbegin());
  while (!IsCut(oldText, oldText.size() - tail) || !IsCut(newText, newText.size() - tail)) --tail;
  return {start, oldText.size() - tail, newText.size() - tail};
}

}  // namespace editor
