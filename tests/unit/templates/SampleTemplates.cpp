#include "tests/unit/templates/SampleTemplates.h"

#include <array>
#include <sstream>
#include <string_view>

namespace tests {
namespace {

using templates::colWord, templates::EditorTemplate, templates::Word, templates::WrdAct;

/// Draws a number below `limit`.
int Draw(std::mt19937& random, int limit) {
  return static_cast<int>(random() % static_cast<unsigned>(limit));
}

/// A text of up to `longest` pieces out of `pieces`.
template <std::size_t Count>
std::string Text(std::mt19937& random, const std::array<std::string_view, Count>& pieces, int longest) {
  std::string text;
  for (int left = Draw(random, longest + 1); left > 0; --left)
    text += pieces[static_cast<std::size_t>(Draw(random, Count))];
  return text;
}

constexpr std::array<std::string_view, 9> WordPieces = {"a", "B", "b", "ü", "Ü", ";", "€", "\xF0\x9F\x8E\x88", "'"};
constexpr std::array<std::string_view, 10> NamePieces = {"a", "B", "ü", " ", ";", "x", ":", "W", "#", "C: "};
constexpr std::array<std::string_view, 9> LinePieces = {"a", " ", "\"", ";", "ß", ",", "(", "T: 3", "€"};
constexpr std::array<std::string_view, 9> BlockPieces = {"a", " ", "\r\n", "\n", "\r", ";", "\"", "ü", "N: no\r\n"};

std::string OneWord(std::mt19937& random) {
  return Text(random, WordPieces, 4);
}
std::string OneName(std::mt19937& random) {
  return Text(random, NamePieces, 4);
}
std::string OneLine(std::mt19937& random) {
  return Text(random, LinePieces, 6);
}

std::shared_ptr<colWord> RandomColourWord(std::mt19937& random) {
  auto word = std::make_shared<colWord>();
  word->StartWord = OneWord(random);
  word->EndPoint = static_cast<std::int16_t>(Draw(random, 5) - 1);
  word->EndWord = OneWord(random);
  word->Colour = static_cast<std::int16_t>(Draw(random, 9) - 2);
  word->IncludeWord = Draw(random, 2) == 1;
  return word;
}

std::shared_ptr<Word> RandomWord(std::mt19937& random) {
  auto word = std::make_shared<Word>();
  word->Name = OneName(random);
  constexpr std::array<std::string_view, 5> Delimeters = {" ", ".", "(", "é", ";"};
  for (std::string_view delimeter : Delimeters) {
    if (Draw(random, 3) > 0) continue;
    std::vector<std::pair<std::string, int>> entries(static_cast<std::size_t>(Draw(random, 4)));
    for (auto& [text, icon] : entries) text = "e" + OneLine(random), icon = Draw(random, 9) - 1;
    MakeAction(static_cast<std::int16_t>(1 + Draw(random, 3)), std::string(delimeter), OneLine(random), entries)
        ->AddTo(word->Actions);
  }
  return word;
}

}  // namespace

std::shared_ptr<WrdAct> MakeAction(std::int16_t action, std::string delimeter, std::string tip,
                                   const std::vector<std::pair<std::string, int>>& entries) {
  auto made = std::make_shared<WrdAct>();
  made->Action = action;
  made->Delimeter = std::move(delimeter);
  made->tipText = std::move(tip);
  made->SetNumberOfWords(static_cast<std::int16_t>(entries.size()));
  int place = 0;
  for (const auto& [text, icon] : entries) {
    made->SetWordList(++place, text);
    made->SetIconList(place, icon);
  }
  return made;
}

EditorTemplate FullTemplate() {
  EditorTemplate full;
  full.Name = "Java Script";
  full.Extension = ".js;mjs";
  full.Delimeters = ",.(ü";
  full.CaseSensitive = true;
  full.HelpFile = "help/js.hdf";
  full.ExecuteCommand = "\"node\" \"%s\"";
  full.Font = EditorTemplate::MsDosFont;
  full.Version = "2.1";
  full.Author = "Ann Ö";
  full.Date = "today";
  full.Comments = "none; really";
  full.InitialText = "// ü\r\nN: x\r\n";
  full.Palette = {{0x0000FF, "Red"}, {0x00A0B0, ""}};
  full.ColourWords = {std::make_shared<colWord>(), std::make_shared<colWord>()};
  colWord& rem = *full.ColourWords[0];
  rem.StartWord = "rem", rem.EndPoint = colWord::EndOfLine, rem.Colour = 2, rem.IncludeWord = true;
  colWord& comment = *full.ColourWords[1];
  comment.StartWord = "/*", comment.EndPoint = colWord::UntilWord, comment.EndWord = "*/", comment.Colour = 1;
  auto word = std::make_shared<Word>();
  word->Name = "for each";
  MakeAction(WrdAct::List, ".", "", {{"get it", 5}, {"x", 1}})->AddTo(word->Actions);
  MakeAction(WrdAct::Tooltip, "(", "(a, b)", {})->AddTo(word->Actions);
  full.Words = {word};
  full.Synonyms = {{"new", "for each"}, {"new", "x"}};
  return full;
}

EditorTemplate RandomTemplate(std::mt19937& random) {
  EditorTemplate made;
  for (std::string* line : {&made.Name, &made.Extension, &made.Delimeters, &made.ExecuteCommand, &made.Version,
                            &made.Author, &made.Date, &made.Comments})
    *line = OneLine(random);
  made.HelpFile = "h" + OneLine(random);
  made.CaseSensitive = Draw(random, 2) == 1;
  made.Font = static_cast<std::int16_t>(Draw(random, 3));
  made.InitialText = Text(random, BlockPieces, 8);
  for (int i = Draw(random, 5); i > 0; --i)
    made.Palette.push_back({static_cast<rich_text::ColourValue>(random() & 0xFFFFFF), OneLine(random)});
  for (int i = Draw(random, 9); i > 0; --i) made.ColourWords.push_back(RandomColourWord(random));
  for (int i = Draw(random, 5); i > 0; --i) made.Words.push_back(RandomWord(random));
  for (int i = Draw(random, 9); i > 0; --i) made.Synonyms.push_back({OneName(random), OneName(random)});
  return made;
}

std::string Describe(const colWord& word) {
  std::ostringstream text;
  text << '[' << word.StartWord << "] " << word.EndPoint << " [" << word.EndWord << "] colour " << word.Colour
       << (word.IncludeWord ? " included" : "") << '\n';
  return text.str();
}

std::string Describe(const Word& word) {
  std::ostringstream text;
  text << '[' << word.Name << "]\n";
  for (const auto& action : word.Actions) {
    text << "  " << action->Action << " after [" << action->Delimeter << "] tip [" << action->tipText << "] words "
         << action->NumberOfWords() << '\n';
    for (int place = 1; place <= action->NumberOfWords(); ++place)
      text << "    [" << action->WordList(place) << "] icon " << action->IconList(place) << '\n';
  }
  return text.str();
}

std::string Describe(const EditorTemplate& source) {
  std::ostringstream text;
  text << "name [" << source.Name << "] extension [" << source.Extension << "] delimeters [" << source.Delimeters
       << "] sensitive " << source.CaseSensitive << " help [" << source.HelpFile << "] run [" << source.ExecuteCommand
       << "] font " << source.Font << " version [" << source.Version << "] author [" << source.Author << "] date ["
       << source.Date << "] comments [" << source.Comments << "]\ninitial [" << source.InitialText << "]\n";
  for (const auto& colour : source.Palette) text << colour.Value << " [" << colour.Name << "]\n";
  for (const auto& word : source.ColourWords) text << Describe(*word);
  for (const auto& word : source.Words) text << Describe(*word);
  for (const auto& synonym : source.Synonyms) text << '[' << synonym.Word << "] = [" << synonym.Synonym << "]\n";
  return text.str();
}

}  // namespace tests
