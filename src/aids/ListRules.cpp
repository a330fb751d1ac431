#include "aids/ListRules.h"

#include <algorithm>
#include <cmath>

#include "aids/TextAround.h"
#include "platform/Twips.h"
#include "rich_text/Encoding.h"

namespace aids {
namespace {

using platform::TwipsX, platform::TwipsY;

constexpr float GreatestHeight = 2250;  // twips
constexpr int IconSize = 16;
constexpr int RoomBesideText = 33;

std::string Folded(std::string_view text, bool caseSensitive) {
  return caseSensitive ? std::string(text) : rich_text::LowerCase(text);
}

/// Halves go to the even neighbour.
int Rounded(float value) {
  return static_cast<int>(std::nearbyint(value));
}

}  // namespace

ListWords::ListWords(const std::vector<std::string>& words, bool caseSensitive) : m_caseSensitive(caseSensitive) {
  m_folded.reserve(words.size());
  for (const std::string& word : words) {
    m_folded.push_back(Folded(word, caseSensitive));
    if (word.size() > m_longest) m_longest = std::max(m_longest, rich_text::CharacterCount(word));
  }
}

int ListWords::FindListMatch(std::string_view prefix) const {
  if (prefix.empty()) return 0;
  const std::string folded = Folded(prefix, m_caseSensitive);
  const auto found =
      std::find_if(m_folded.begin(), m_folded.end(), [&](const std::string& word) { return word.starts_with(folded); });
  return found == m_folded.end() ? 0 : static_cast<int>(found - m_folded.begin()) + 1;
}

bool ListStillValid(const platform::TextControl& control, const templates::TemplateFields& fields,
                    const ListPlace& place) {
  return place.Caret >= place.ContextListTextStart &&
         FirstDelimeter(control, fields, place.ContextListTextStart, place.Caret) == place.Caret;
}

std::string ListPrefix(const platform::TextControl& control, const templates::TemplateFields& fields, std::size_t start,
                       std::size_t longest) {
  std::string prefix;
  std::size_t count = 0;
  bool beginsWithDelimeter = false;
  VisitCharacters(control, start, control.Length(), [&](std::size_t offset, std::string_view character) {
    const bool isDelimeter = fields.IsDelimeter(character);
    if (offset == start) beginsWithDelimeter = isDelimeter;
    if (isDelimeter && !beginsWithDelimeter) return false;
    prefix += character;
    return ++count <= longest;
  });
  return prefix;
}

ReplacedRange RangeToReplace(const platform::TextControl& control, const templates::TemplateFields& fields,
                             const ListPlace& place) {
  return {place.ContextListTextStart, FirstDelimeter(control, fields, place.Caret, control.Length())};
}

int PageDownRow(int selected, int rows, float listHeight, float rowHeight) {
  const float page = listHeight / rowHeight;
  const int target = Rounded(static_cast<float>(selected) + page - 1);
  return std::min(std::max(target, 1), rows);
}

int PageUpRow(int selected, int rows, float listHeight, float rowHeight) {
  const float page = listHeight / rowHeight;
  const int target = Rounded(static_cast<float>(selected) - (page - 1));
  return std::min(std::max(target, 1), rows);
}

ListSize SizeOfList(int number, const ListMetrics& metrics) {
  ListSize size;
  size.RowHeight = std::max(metrics.tmHeight + 4, IconSize);
  size.Height = TwipsY * (static_cast<float>(number) * static_cast<float>(size.RowHeight) +
                          static_cast<float>(metrics.DialogFrame));
  size.Scrolls = size.Height > GreatestHeight;
  if (size.Scrolls) size.Height = GreatestHeight;
  const int room = RoomBesideText + metrics.DialogFrame + (size.Scrolls ? metrics.ScrollBarWidth : 0);
  size.Width = TwipsX * static_cast<float>(room) + metrics.maxW;
  return size;
}

}  // namespace aids
