#include "StyledLaws.h"

#include "tests/support/Characters.h"

namespace laws {
namespace {

std::string Told(const StyledCharacter& character) {
  return "U+" + std::to_string(static_cast<unsigned>(character.first)) + " (decimal) in colour " +
         std::to_string(character.second);
}

}  // namespace

std::vector<StyledCharacter> Characters(const rich_text::StyledText& styled) {
  std::vector<StyledCharacter> characters;
  auto run = styled.Runs.begin();
  for (std::size_t i = 0; i < styled.Text.size();) {
    while (run != styled.Runs.end() && run->End <= i) ++run;
    const bool inside = run != styled.Runs.end() && run->Start <= i;
    const std::int64_t colour = inside ? static_cast<std::int64_t>(styled.Colours[run->Colour - 1]) : -1;
    const std::size_t lineEnd = rich_text::LineEndLength(styled.Text, i);
    const rich_text::CodePoint point = rich_text::CodePointAt(styled.Text, i);
    characters.emplace_back(lineEnd ? U'\n' : point.Value, colour);
    i += lineEnd ? lineEnd : point.Bytes;
  }
  return characters;
}

std::string FaultOf(const rich_text::StyledText& styled) {
  if (!rich_text::IsValidUtf8(styled.Text)) return "the text is no valid UTF-8";
  std::size_t end = 0;
  for (const rich_text::ColourRun& run : styled.Runs) {
    const std::string name = "run [" + std::to_string(run.Start) + ", " + std::to_string(run.End) + ") ";
    if (run.Start >= run.End) return name + "is empty";
    if (run.Start < end) return name + "begins before its predecessor's end";
    if (run.End > styled.Text.size()) return name + "reaches behind the text";
    if (run.Colour < 1 || run.Colour > styled.Colours.size()) return name + "has no colour";
    if (tests::IsInside(styled.Text, run.Start) || tests::IsInside(styled.Text, run.End))
      return name + "cuts a character or a line end";
    end = run.End;
  }
  return "";
}

std::string Difference(const std::vector<StyledCharacter>& expected, const std::vector<StyledCharacter>& actual) {
  for (std::size_t i = 0; i < expected.size() && i < actual.size(); ++i)
    if (expected[i] != actual[i])
      return "character " + std::to_string(i) + " should be " + Told(expected[i]) + " and is " + Told(actual[i]);
  if (expected.size() == actual.size()) return "";
  return "the text should have " + std::to_string(expected.size()) + " characters and has " +
         std::to_string(actual.size());
}

}  // namespace laws
