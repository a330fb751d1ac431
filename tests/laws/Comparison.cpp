#include "Comparison.h"

#include "rich_text/Encoding.h"
#include "rich_text/StyledText.h"

namespace laws {
namespace {

/// The bytes of the character or line end at `offset`, and whether it is a line end.
struct Step {
  std::size_t Bytes;
  bool EndsLine;
};
Step StepAt(std::string_view text, std::size_t offset) {
  const std::size_t lineEnd = rich_text::LineEndLength(text, offset);
  return lineEnd ? Step{lineEnd, true} : Step{rich_text::CodePointAt(text, offset).Bytes, false};
}

}  // namespace

std::vector<int> ColoursOfRuns(std::string_view text, const std::vector<editor::PassRun>& runs, std::size_t colours) {
  std::vector<int> numbers;
  auto run = runs.begin();
  for (std::size_t i = 0; i < text.size();) {
    while (run != runs.end() && run->End <= i) ++run;
    const Step step = StepAt(text, i);
    const bool inside = run != runs.end() && run->Start <= i;
    const bool draws = inside && run->Colour >= 1 && static_cast<std::size_t>(run->Colour) <= colours;
    if (!step.EndsLine) numbers.push_back(draws ? run->Colour : 0);
    i += step.Bytes;
  }
  return numbers;
}

LiteralResult FastWhole(const templates::TemplateFields& fields, std::string_view text) {
  const auto runs = editor::ColourPass(fields).Whole(text);
  return {ColoursOfRuns(text, runs, fields.Colours.size()), false, {}};
}

LiteralResult FastLines(const templates::TemplateFields& fields, std::string_view text, bool closeAtLineEnd) {
  return FastLines(editor::ColourPass(fields), fields.Colours.size(), text, closeAtLineEnd);
}

LiteralResult FastLines(const editor::ColourPass& pass, std::size_t colours, std::string_view text,
                        bool closeAtLineEnd) {
  std::vector<templates::Synonym> captured;
  const auto lines = pass.Lines(text, closeAtLineEnd, &captured);
  LiteralResult result;
  result.StaysOpen = lines.StaysOpen;
  if (!lines.StaysOpen) result.Colours = ColoursOfRuns(text, lines.Runs, colours);
  for (const templates::Synonym& synonym : captured) result.Captured.emplace_back(synonym.Word, synonym.Synonym);
  return result;
}

std::string FaultOfRuns(std::string_view text, const std::vector<editor::PassRun>& runs) {
  std::size_t end = 0;
  for (std::size_t i = 0; i < runs.size(); ++i) {
    const std::string name =
        "run " + std::to_string(i) + " [" + std::to_string(runs[i].Start) + ", " + std::to_string(runs[i].End) + ")";
    if (runs[i].Start < end) return name + " begins before its predecessor's end";
    if (runs[i].End < runs[i].Start) return name + " ends before its start";
    if (runs[i].End > text.size()) return name + " reaches behind the text";
    end = runs[i].End;
  }
  return "";
}

std::string Picture(std::string_view text, const LiteralResult& result) {
  std::string picture;
  std::size_t character = 0;
  for (std::size_t i = 0; !result.StaysOpen && i < text.size();) {
    const Step step = StepAt(text, i);
    if (step.EndsLine) {
      picture += '|';
    } else {
      const int colour = result.Colours[character++];
      picture += colour == 0 ? '.' : static_cast<char>('0' + colour);
    }
    i += step.Bytes;
  }
  if (result.StaysOpen) picture += "stays open";
  for (const auto& [word, synonym] : result.Captured) picture += " [" + word + " for " + synonym + "]";
  return picture;
}

}  // namespace laws
