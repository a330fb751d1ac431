#include "templates/RecordReader.h"

#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "templates/Values.h"

namespace templates {
namespace {

constexpr std::string_view Tags = "THRNXDSVAEMFCLWY";

bool LooksLikeRecord(std::string_view line) {
  return line.size() >= 2 && line[1] == ':' && Tags.find(line[0]) != std::string_view::npos;
}

}  // namespace

/// The first line of an action block.
struct RecordReader::ActionHead {
  std::optional<std::int16_t> Action;  ///< nothing when it is no number
  std::string_view Delimeter;
  std::int16_t NumberOfWords = 0;

  /// Nothing when the line does not tell how many list lines follow.
  static std::optional<ActionHead> Parse(std::string_view line) {
    std::array<std::string_view, 3> fields;
    if (!SplitFields(line, fields, true)) return std::nullopt;
    const auto delimeter = StripQuotes(fields[1]);
    const auto count = ParseInteger<std::int16_t>(fields[2]);
    if (!delimeter || !count) return std::nullopt;
    return ActionHead{ParseInteger<std::int16_t>(fields[0]), *delimeter, *count};
  }
};

bool RecordReader::Read() {
  while (!m_cancelled) {
    const auto line = m_lines.NextLine();
    if (!line) break;
    Dispatch({*line, m_lines.LineNumber()});
  }
  return !m_cancelled;
}

void RecordReader::Dispatch(const Place& place) {
  const std::string_view value = FromCharacter(place.Line, 4);
  const char tag = place.Line.front();
  switch (tag) {
    case 'T':
      return ReadTextBlock(place, value);
    case 'S':
      return ReadCaseSensitive(place, value);
    case 'F':
      return TakeFont(place, value);
    case 'C':
      return ReadColour(place);
    case 'L':
      return ReadColourWord(place, value);
    case 'W':
      return ReadWord(place, value);
    case 'Y':
      return ReadSynonym(place, value);
    default:
      if (Tags.find(tag) != std::string_view::npos) return TakeText(tag, value);
      Report(place, LoadProblem::Sort::Unrecognized, "No record begins with this character.");
  }
}

void RecordReader::ReadCaseSensitive(const Place& place, std::string_view value) {
  if (const auto flag = ParseBoolean(value))
    TakeCaseSensitive(*flag);
  else
    Invalid(place, "The value is neither True nor False.");
}

void RecordReader::ReadColour(const Place& place) {
  const auto colour = ParseHexColour(FromCharacter(place.Line, 5));
  if (!colour) Invalid(place, "The colour is not \"#\" and up to six hexadecimal digits.");
  TakeColour(colour.value_or(NoColour));
}

void RecordReader::ReadColourWord(const Place& place, std::string_view value) {
  std::array<std::string_view, 5> fields;
  if (!SplitFields(value, fields, false))
    return Invalid(place, "A colour word has five fields with one space between.");
  const auto endPoint = ParseInteger<std::int16_t>(fields[1]);
  const auto colour = ParseInteger<std::int16_t>(fields[3]);
  const auto include = ParseBoolean(fields[4]);
  if (!endPoint) return Invalid(place, "The end point (second field) is not a number.");
  if (!colour) return Invalid(place, "The colour (fourth field) is not a number.");
  if (!include) return Invalid(place, "The last field is neither True nor False.");
  auto word = std::make_shared<colWord>();
  word->StartWord = fields[0];
  word->EndPoint = *endPoint;
  word->EndWord = fields[2];
  word->Colour = *colour;
  word->IncludeWord = *include;
  TakeColourWord(std::move(word));
}

void RecordReader::ReadWord(const Place& place, std::string_view value) {
  std::array<std::string_view, 2> fields;
  const bool split = SplitFields(value, fields, true);
  const auto count = split ? ParseInteger<std::int16_t>(fields[1]) : std::nullopt;
  if (!count) {
    Invalid(place, "An action word is a word in double quotes and the number of its actions.");
    return SkipToRecord();
  }
  const auto name = StripQuotes(fields[0]);
  if (!name) Invalid(place, "The action word is not in double quotes.");
  auto word = std::make_shared<Word>();
  word->Name = name.value_or("");
  for (int i = 0; i < *count && !m_cancelled; ++i)
    if (ReadAction(place, *word) == Block::Ended) break;
  if (name && !m_cancelled) TakeWord(std::move(word));
}

RecordReader::Block RecordReader::ReadAction(const Place& wordPlace, Word& word) {
  const LineReader before = m_lines;
  const auto line = m_lines.NextLine();
  if (!line) {
    Invalid(wordPlace, "The file ends before the last of the word's actions.");
    return Block::Ended;
  }
  const Place place{*line, m_lines.LineNumber()};
  const auto head = ActionHead::Parse(*line);
  if ((!head || !head->Action) && LooksLikeRecord(*line)) {
    m_lines = before;
    Invalid(wordPlace, "The word has fewer actions than this line tells.");
    return Block::Ended;
  }
  if (!head) {
    Invalid(place, "An action is a number, a delimeter in double quotes and the number of list lines.");
    SkipToRecord();
    return Block::Ended;
  }
  auto action = std::make_shared<WrdAct>();
  action->Delimeter = head->Delimeter;
  action->Action = head->Action.value_or(0);
  if (!head->Action) Invalid(place, "The action (first field) is not a number.");
  const bool complete = !m_cancelled && ReadActionLists(place, head->NumberOfWords, *action);
  if (head->Action && word.Actions.Find(head->Delimeter) != nullptr)
    Invalid(place, "The word has an action for this delimeter already; the first one stays.");
  else if (head->Action)
    action->AddTo(word.Actions);
  return complete ? Block::GoesOn : Block::Ended;
}

/// Reads the tip and the list lines; false at the end of the file, with what there was kept.
bool RecordReader::ReadActionLists(const Place& place, std::int16_t count, WrdAct& action) {
  const auto tip = m_lines.NextLine();
  if (tip) action.tipText = TipText(DropEnds(*tip));
  std::vector<std::pair<std::string, std::int32_t>> entries;
  bool complete = tip.has_value();
  for (int i = 0; i < count && complete && !m_cancelled; ++i) {
    const auto line = m_lines.NextLine();
    complete = line.has_value();
    if (!complete) break;
    auto& [text, icon] = entries.emplace_back();
    ReadListLine({*line, m_lines.LineNumber()}, text, icon);
  }
  action.SetNumberOfWords(count > 0 ? static_cast<std::int16_t>(entries.size()) : count);
  for (std::size_t i = 0; i < entries.size(); ++i) {
    action.SetWordList(static_cast<int>(i) + 1, std::move(entries[i].first));
    action.SetIconList(static_cast<int>(i) + 1, entries[i].second);
  }
  if (!complete) Invalid(place, "The file ends before the tip and the list lines of this action.");
  return complete;
}

void RecordReader::ReadListLine(const Place& place, std::string& text, std::int32_t& icon) {
  const std::size_t space = place.Line.rfind(' ');
  const auto number =
      space == std::string_view::npos ? std::nullopt : ParseInteger<std::int32_t>(place.Line.substr(space + 1));
  text = place.Line.substr(0, space);
  icon = number.value_or(0);
  if (!number) Invalid(place, "A list line ends with a space and an icon number; the entry has no icon.");
}

void RecordReader::ReadTextBlock(const Place& place, std::string_view value) {
  const auto count = ParseInteger<std::int32_t>(value);
  if (!count || *count < 0) return Invalid(place, "The number of characters of the initial text is not a number.");
  const auto wanted = static_cast<std::size_t>(*count);
  const LineReader::Stretch block = m_lines.TakeCharacters(wanted);
  TakeInitialText(block.Text);
  if (block.Characters < wanted)
    Invalid(place, "The file has only " + std::to_string(block.Characters) + " characters after this line.");
}

void RecordReader::ReadSynonym(const Place& place, std::string_view value) {
  std::array<std::string_view, 2> fields;
  const bool split = SplitFields(value, fields, true);
  const auto word = split ? StripQuotes(fields[0]) : std::nullopt;
  const auto synonym = split ? StripQuotes(fields[1]) : std::nullopt;
  if (!word || !synonym) return Invalid(place, "A synonym is two words, each in double quotes.");
  TakeSynonym(*word, *synonym);
}

void RecordReader::SkipToRecord() {
  while (true) {
    const LineReader before = m_lines;
    const auto line = m_lines.NextLine();
    if (!line) return;
    if (!LooksLikeRecord(*line)) continue;
    m_lines = before;
    return;
  }
}

void RecordReader::Report(const Place& place, LoadProblem::Sort kind, std::string reason) {
  LoadProblem problem{kind, m_file, place.Number, std::string(place.Line), std::move(reason), MayCancel(kind)};
  if (!m_messages.Report(problem) && problem.MayCancel) m_cancelled = true;
}

}  // namespace templates
