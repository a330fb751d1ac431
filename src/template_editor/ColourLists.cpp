#include "template_editor/ColourLists.h"

#include "template_editor/FormatLimits.h"
#include "templates/Values.h"

namespace template_editor {

using templates::colWord, templates::PaletteColour;

void ColourLists::Take(std::vector<PaletteColour> palette, std::vector<WordPointer> words) {
  m_palette.Assign(std::move(palette));
  m_words.Assign(std::move(words));
  ColName.clear();
  ColHex = "#000000";
  colWordName.clear();
  colEndWord.clear();
  EndPoint = colWord::EndOfWord;
  ColWordInclude = false;
}

rich_text::ColourValue ColourLists::HexValue() const {
  if (!ColHex.starts_with('#') || ColHex.find_first_of(" \t") != std::string::npos) return 0;
  return templates::ParseHexColour(std::string_view(ColHex).substr(1)).value_or(0);
}

const PaletteColour* ColourLists::ColourOf(const colWord& word) const {
  if (word.Colour < 1 || static_cast<std::size_t>(word.Colour) > m_palette.Count()) return nullptr;
  return &m_palette.All()[static_cast<std::size_t>(word.Colour) - 1];
}

// The palette.

void ColourLists::SelectColour(std::optional<std::size_t> row) {
  m_palette.Select(row);
  const PaletteColour* colour = m_palette.Current();
  if (!colour) return;
  ColName = colour->Name;
  ColHex = templates::HexColour(colour->Value);
}

void ColourLists::AddColour() {
  m_palette.Add({HexValue(), ColName});
  m_words.Touch();
  m_owner.MarkChanged();
}

void ColourLists::ChangeColour() {
  m_palette.ReplaceSelected({HexValue(), ColName});
  m_words.Touch();
  m_owner.MarkChanged();
}

void ColourLists::RemoveColour() {
  const auto removed = static_cast<std::ptrdiff_t>(*m_palette.Selected()) + 1;
  m_palette.RemoveSelected();
  for (const WordPointer& word : m_words.All()) {
    if (word->Colour == removed)
      word->Colour = NoColour;
    else if (word->Colour > removed)
      --word->Colour;
  }
  m_words.Touch();
  m_owner.MarkChanged();
}

// Colour words.

void ColourLists::SelectWord(std::optional<std::size_t> row) {
  m_words.Select(row);
  if (!m_words.Current()) return;
  const colWord& word = **m_words.Current();
  colWordName = word.StartWord;
  colEndWord = word.EndWord;
  EndPoint = word.EndPoint;
  ColWordInclude = word.IncludeWord;
  const bool coloured = ColourOf(word) != nullptr;
  SelectColour(coloured ? std::optional(static_cast<std::size_t>(word.Colour) - 1) : std::nullopt);
}

ColourLists::WordPointer ColourLists::WordFromFields(std::int16_t colourOtherwise) const {
  auto word = std::make_shared<colWord>();
  word->StartWord = colWordName;
  word->EndPoint = EndPoint;
  if (EndPoint == colWord::UntilWord) word->EndWord = colEndWord;
  word->IncludeWord = ColWordInclude;
  word->Colour = m_palette.Selected() ? static_cast<std::int16_t>(*m_palette.Selected() + 1) : colourOtherwise;
  return word;
}

void ColourLists::AddWord() {
  WordPointer word = WordFromFields(NoColour);
  if (!m_owner.Accepts(WhyNotColourWord(*word))) return;
  m_words.Add(std::move(word));
  m_owner.MarkChanged();
}

void ColourLists::ChangeWord() {
  WordPointer word = WordFromFields((*m_words.Current())->Colour);
  if (!m_owner.Accepts(WhyNotColourWord(*word))) return;
  m_words.ReplaceSelected(std::move(word));
  m_owner.MarkChanged();
}

void ColourLists::RemoveWord() {
  m_words.RemoveSelected();
  m_owner.MarkChanged();
}

}  // namespace template_editor
