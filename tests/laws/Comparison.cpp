#include "Comparison.h"

#include <numeric>

#include "StyledLaws.h"

namespace laws {

std::vector<int> ColoursOfRuns(std::string_view text, const std::vector<editor::PassRun>& runs, std::size_t colours) {
  std::vector<rich_text::ColourValue> numbers(colours);
  std::iota(numbers.begin(), numbers.end(), 1);
  std::vector<int> found;
  for (const auto& [character, number] : Characters({std::string(text), numbers, editor::ColouredRuns(runs, numbers)}))
    if (character != '\n') found.push_back(number < 0 ? 0 : static_cast<int>(number));
  return found;
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
  std::string picture = result.StaysOpen ? "stays open" : "";
  std::size_t place = 0;
  for (const auto& [character, none] : Characters({result.StaysOpen ? "" : std::string(text), {}, {}})) {
    const int colour = character == '\n' ? 0 : result.Colours[place++];
    picture += character == '\n' ? '|' : colour == 0 ? '.' : static_cast<char>('0' + colour);
  }
  for (const auto& [word, synonym] : result.Captured) picture += " [" + word + " for " + synonym + "]";
  return picture;
}

}  // namespace laws
