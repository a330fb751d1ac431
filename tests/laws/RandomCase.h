#pragma once
// Random templates and texts for the colouring laws: small alphabets, so that words collide, overlap and end each other
// often. A case that breaks a law is made small before it is shown.

#include <functional>
#include <string>
#include <vector>

#include "Dice.h"
#include "templates/Model.h"
#include "tests/support/Characters.h"

namespace laws {

using tests::FromUtf8, tests::ToUtf8;

/// A template and a text, kept apart into characters so that single ones can be left out.
struct RandomCase {
  struct ColourWord {
    std::u32string Start, End = {};
    int EndPoint = 0, Colour = 1;
    bool Include = true;
  };
  struct ActionWord {
    std::u32string Name;
    bool Captures = false;
  };

  bool CaseSensitive = false;
  std::u32string Delimeters;
  int Colours = 3;
  std::vector<ColourWord> ColourWords;
  std::vector<ActionWord> ActionWords;
  std::u32string Text;
  bool CloseAtLineEnd = false;  ///< for the line pass

  templates::TemplateFields Fields() const;
  std::string TextUtf8() const;
  /// The template, a line an entry, and the text with its line ends made visible.
  std::string Describe() const;
};

RandomCase MakeRandomCase(Dice& dice);

/// Leaves out words, delimiters and characters as long as `breaks` still says true.
RandomCase Shrink(RandomCase broken, const std::function<bool(const RandomCase&)>& breaks);

/// The text on one line: control characters as their pictures.
std::string Visible(std::string_view text);

}  // namespace laws
