#pragma once
// The palette, the colour words that refer to it by number, and the fields of their page. Changes of the palette leave
// each word its colour; a word whose colour goes has none. All texts are UTF-8; rows are 0-based, colour numbers
// 1-based.

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "template_editor/ListOwner.h"
#include "template_editor/Rows.h"
#include "templates/EditorTemplate.h"

namespace template_editor {

class ColourLists {
 public:
  using WordPointer = std::shared_ptr<templates::colWord>;

  /// The number of a word without a colour.
  static constexpr std::int16_t NoColour = 0;

  /// The owner must outlive the lists.
  explicit ColourLists(ListOwner& owner) : m_owner(owner) {}

  // What the page's fields hold.
  std::string ColName, ColHex = "#000000";
  std::string colWordName, colEndWord;
  std::int16_t EndPoint = templates::colWord::EndOfWord;  ///< the chosen option; another number than its three: none
  bool ColWordInclude = false;

  const Rows<templates::PaletteColour>& Palette() const { return m_palette; }
  const Rows<WordPointer>& Words() const { return m_words; }

  /// The contents of another template; the fields become those of an empty editor.
  void Take(std::vector<templates::PaletteColour> palette, std::vector<WordPointer> words);

  /// The colour of ColHex; black for anything but "#" and hexadecimal digits up to FFFFFF.
  rich_text::ColourValue HexValue() const;
  /// The palette's entry for a word; null when the word has no colour.
  const templates::PaletteColour* ColourOf(const templates::colWord& word) const;

  // The palette. Changing and removing need a selected colour.
  void SelectColour(std::optional<std::size_t> row);
  void AddColour();
  void ChangeColour();
  void RemoveColour();

  // Colour words. Adding needs a selected colour, changing and removing a selected word. A word that a file could not
  // hold is refused. A changed word keeps its colour while no other is selected.
  void SelectWord(std::optional<std::size_t> row);
  void AddWord();
  void ChangeWord();
  void RemoveWord();

 private:
  WordPointer WordFromFields(std::int16_t colourOtherwise) const;

  ListOwner& m_owner;
  Rows<templates::PaletteColour> m_palette;
  Rows<WordPointer> m_words;
};

}  // namespace template_editor
