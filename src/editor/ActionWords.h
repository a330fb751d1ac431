#pragma once
// Finds the action word that ends at the caret, by its own name or by a synonym.
//
// Names are kept by what they fold to, so that a look-up costs the same with one word and with thousands; they are
// arranged anew when the template's words or synonyms have changed. The template fields outlive it.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "templates/Model.h"

namespace editor {

class ActionWords {
 public:
  explicit ActionWords(const templates::TemplateFields& fields) : m_fields(fields) {}

  /// The first word of the template whose name ends `text`, the text before the caret, with a delimiter or nothing
  /// before it; else the word that the first such synonym stands for; else null. Letter case as the template says.
  std::shared_ptr<const templates::Word> FindActionWord(std::string_view text);

  /// How many bytes of the text before the caret FindActionWord can need: with these alone it gives the same result.
  std::size_t Reach();

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
  };
  /// Texts, each with its place in order; of equal ones the first.
  class Names {
   public:
    void Clear();
    void Add(std::string folded);
    /// The place (0-based) of the first text that ends `folded` behind a delimiter or nothing, or NoPlace.
    std::size_t FirstAtEnd(std::string_view folded, const templates::TemplateFields& fields) const;
    std::size_t PlaceOf(std::string_view folded) const;
    std::size_t LongestCharacters() const { return m_longest; }

    static constexpr std::size_t NoPlace = static_cast<std::size_t>(-1);

   private:
    std::unordered_map<std::string, std::size_t, Hash, std::equal_to<>> m_places;
    std::vector<std::size_t> m_lengths;  ///< in bytes, each once
    std::size_t m_added = 0, m_longest = 0;
  };

  void Arrange();

  const templates::TemplateFields& m_fields;
  Names m_words, m_synonyms;
  std::uint64_t m_wordsVersion = 0, m_synonymsVersion = 0;
  bool m_caseSensitive = false, m_arranged = false;
};

}  // namespace editor
