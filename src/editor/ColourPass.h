#pragma once
// The colouring rules: which stretches of a text a template's colour words colour. Pure functions of text and template;
// they know no control, no RTF and no window.
//
// Positions are counted in units: a character is one, a line end of any kind is the seven of CR, LF and "\par ". A word
// matches characters alone. The prefix of the text and the end of a coloured run leave a space before what follows
// them, and where the rules ask for the character before a word, that space counts.

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "rich_text/StyledText.h"
#include "templates/Model.h"

namespace editor {

/// How a run's end stands in the text.
enum class RunClose {
  InText,           ///< at End
  BeforeParagraph,  ///< inside the line end at End, before its "\par "
  Open,             ///< nowhere: the run has the rest of the text
};

/// One run as the rules find it. A run that ends inside the "\par " of a line end has the whole line end.
struct PassRun {
  std::size_t Start = 0;    ///< byte offset
  std::size_t End = 0;      ///< byte offset; the text's size when the run stays open
  std::int16_t Colour = 0;  ///< the colour word's own number, which may have no colour
  RunClose Close = RunClose::InText;
  bool operator==(const PassRun&) const = default;
};

/// Case-folds as the template says: lower case unless it is case-sensitive.
std::string CaseFold(const templates::TemplateFields& fields, std::string_view text);

/// The 1-based place, in characters, of the leftmost delimiter in the text; 0 when there is none.
std::size_t DelimeterIn(const templates::TemplateFields& fields, std::string_view text);

/// A template's colour words and delimiters, prepared for fast passes. Made once a template; holds no reference to it.
class ColourPass {
 public:
  explicit ColourPass(const templates::TemplateFields& fields);
  ~ColourPass();
  ColourPass(ColourPass&&) noexcept;
  ColourPass& operator=(ColourPass&&) noexcept;

  /// Called now and then with the bytes done so far; false stops the pass, and what was found so far counts.
  using Progress = std::function<bool(std::size_t done)>;

  /// The whole-document pass. A long text is passed over in parts at the same time, by default as many as pay; what
  /// is found is the same. The progress is called in this thread.
  std::vector<PassRun> Whole(std::string_view text, const Progress& progress = {}, std::size_t parts = 0) const;

  /// What the line pass gave.
  struct LineResult {
    std::vector<PassRun> Runs;
    bool StaysOpen = false;  ///< a run finds no end, and `closeAtLineEnd` was false: colour the whole document instead
  };

  /// The line pass over whole lines (their text, the last one's line end may be missing: the pass supplies it). With
  /// `closeAtLineEnd` a run that finds no end ends with its line. New synonyms are appended to `captured`, if given.
  LineResult Lines(std::string_view text, bool closeAtLineEnd, std::vector<templates::Synonym>* captured = nullptr,
                   const Progress& progress = {}) const;

 private:
  struct Tables;
  std::unique_ptr<Tables> m_tables;
};

/// Whether a colour number draws a colour: it is a place in `colours`, and a colour stands there.
bool DrawsColour(int number, const std::vector<rich_text::ColourValue>& colours);

/// The runs that draw a colour, empty ones left out.
std::vector<rich_text::ColourRun> ColouredRuns(const std::vector<PassRun>& runs,
                                               const std::vector<rich_text::ColourValue>& colours);

}  // namespace editor
