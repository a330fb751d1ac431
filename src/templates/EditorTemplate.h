#pragma once
// A template as the template editor holds it: what its pages show, in the order of its lists, repeats included. All
// texts are UTF-8, those of one line without line ends. A new one has the values of an empty editor.

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "templates/Model.h"

namespace templates {

/// One colour of the palette.
struct PaletteColour {
  rich_text::ColourValue Value = 0;
  std::string Name;
};

struct EditorTemplate {
  static constexpr std::int16_t ProportionalFont = 0, FixedWidthFont = 1, MsDosFont = 2;

  // General
  std::string Name = "New Template";
  std::string Extension;                           ///< without "."; may list several, separated by ";"
  std::string Delimeters = ",./*+-=()[]{}#!%?;:";  ///< one character each; space and line ends are delimiters anyway
  bool CaseSensitive = false;
  std::string HelpFile = ".hdf";
  std::string ExecuteCommand;
  std::int16_t Font = FixedWidthFont;

  // Lists; entries are never null and may repeat
  std::vector<PaletteColour> Palette;  ///< colWord::Colour is a 1-based place in it
  std::vector<std::shared_ptr<colWord>> ColourWords;
  std::vector<std::shared_ptr<Word>> Words;
  std::vector<Synonym> Synonyms;

  std::string InitialText;  ///< with its own line ends

  // About
  std::string Version, Author, Date, Comments;
};

}  // namespace templates
