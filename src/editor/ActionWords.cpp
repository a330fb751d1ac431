#include "editor/ActionWords.h"

#include <algorithm>

#include "editor/ColourPass.h"
#include "rich_text/Encoding.h"

namespace editor {
void ActionWords::Names::Clear() {
  *this = Names();
}

void ActionWords::Names::Add(std::string folded) {
  m_longest = std::max(m_longest, rich_text::CharacterCount(folded));
  if (std::find(m_lengths.begin(), m_lengths.end(), folded.size()) == m_lengths.end())
    m_lengths.push_back(folded.size());
  m_places.emplace(std::move(folded), m_added++);
}

std::size_t ActionWords::Names::PlaceOf(std::string_view folded) const {
  const auto found = m_places.find(folded);
  return found == m_places.end() ? NoPlace : found->second;
}

std::size_t ActionWords::Names::FirstAtEnd(std::string_view folded, const templates::TemplateFields& fields) const {
  std::size_t first = NoPlace;
  for (const std::size_t length : m_lengths) {
    if (length > folded.size()) continue;
    const std::string_view before = folded.substr(0, folded.size() - length);
    if (before.empty() || fields.IsDelimeter(rich_text::LastCharacter(before)))
      first = std::min(first, PlaceOf(folded.substr(before.size())));
  }
  return first;
}

void ActionWords::Arrange() {
  const bool isCurrent = m_arranged && m_caseSensitive == m_fields.CaseSensitive &&
                         m_wordsVersion == m_fields.Words.Version() && m_synonymsVersion == m_fields.Synonyms.Version();
  if (isCurrent) return;
  m_words.Clear();
  m_synonyms.Clear();
  for (const auto& word : m_fields.Words) m_words.Add(CaseFold(m_fields, word->Name));
  for (const auto& synonym : m_fields.Synonyms) m_synonyms.Add(CaseFold(m_fields, synonym->Word));
  m_wordsVersion = m_fields.Words.Version();
  m_synonymsVersion = m_fields.Synonyms.Version();
  m_caseSensitive = m_fields.CaseSensitive;
  m_arranged = true;
}

std::size_t ActionWords::Reach() {
  Arrange();
  return rich_text::LongestCharacter * (std::max(m_words.LongestCharacters(), m_synonyms.LongestCharacters()) + 1);
}

std::shared_ptr<const templates::Word> ActionWords::FindActionWord(std::string_view text) {
  Arrange();
  const std::string folded = CaseFold(m_fields, text);
  std::size_t place = m_words.FirstAtEnd(folded, m_fields);
  if (place == Names::NoPlace) {
    const std::size_t synonym = m_synonyms.FirstAtEnd(folded, m_fields);
    if (synonym == Names::NoPlace) return nullptr;
    place = m_words.PlaceOf(CaseFold(m_fields, m_fields.Synonyms.Item(synonym + 1)->Synonym));
  }
  return place == Names::NoPlace ? nullptr : m_fields.Words.Item(place + 1);
}

}  // namespace editor
