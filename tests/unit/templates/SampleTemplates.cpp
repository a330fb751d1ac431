#include "tests/unit/templates/SampleTemplates.h"

#include <sstream>

namespace tests {
namespace {

using laws::Dice;
using templates::colWord, templates::EditorTemplate, templates::Word, templates::WrdAct;

std::string OneWord(Dice& dice) {
  return dice.Text({"a", "B", "b", "ü", "Ü", ";", "€", "\xF0\x9F\x8E\x88", "'"}, 4);
}
std::string OneName(Dice& dice) {
  return dice.Text({"a", "B", "ü", " ", ";", "x", ":", "W", "#", "C: "}, 4);
}
std::string OneLine(Dice& dice) {
  return dice.Text({"a", " ", "\"", ";", "ß", ",", "(", "T: 3", "€"}, 6);
}

std::shared_ptr<colWord> RandomColourWord(Dice& dice) {
  auto word = std::make_shared<colWord>();
  word->StartWord = OneWord(dice);
  word->EndPoint = static_cast<std::int16_t>(dice.Between(-1, 3));
  word->EndWord = OneWord(dice);
  word->Colour = static_cast<std::int16_t>(dice.Between(-2, 6));
  word->IncludeWord = dice.Chance(50);
  return word;
}

std::shared_ptr<Word> RandomWord(Dice& dice) {
  auto word = std::make_shared<Word>();
  word->Name = OneName(dice);
  for (const char* delimeter : {" ", ".", "(", "é", ";"}) {
    if (dice.Chance(67)) continue;
    auto action = std::make_shared<WrdAct>();
    action->Action = static_cast<std::int16_t>(dice.Between(1, 3));
    action->Delimeter = delimeter;
    action->tipText = OneLine(dice);
    action->SetNumberOfWords(static_cast<std::int16_t>(dice.Below(4)));
    for (int place = 1; place <= action->NumberOfWords(); ++place) {
      action->SetWordList(place, "e" + OneLine(dice));
      action->SetIconList(place, dice.Between(-1, 7));
    }
    action->AddTo(word->Actions);
  }
  return word;
}

}  // namespace

EditorTemplate RandomTemplate(Dice& dice) {
  EditorTemplate made;
  for (std::string* line : {&made.Name, &made.Extension, &made.Delimeters, &made.ExecuteCommand, &made.Version,
                            &made.Author, &made.Date, &made.Comments})
    *line = OneLine(dice);
  made.HelpFile = "h" + OneLine(dice);
  made.CaseSensitive = dice.Chance(50);
  made.Font = static_cast<std::int16_t>(dice.Between(0, 2));
  made.InitialText = dice.Text({"a", " ", "\r\n", "\n", "\r", ";", "\"", "ü", "N: no\r\n"}, 8);
  for (std::size_t i = dice.Below(5); i > 0; --i)
    made.Palette.push_back({static_cast<rich_text::ColourValue>(dice.Next() & 0xFFFFFF), OneLine(dice)});
  for (std::size_t i = dice.Below(9); i > 0; --i) made.ColourWords.push_back(RandomColourWord(dice));
  for (std::size_t i = dice.Below(5); i > 0; --i) made.Words.push_back(RandomWord(dice));
  for (std::size_t i = dice.Below(9); i > 0; --i) made.Synonyms.push_back({OneName(dice), OneName(dice)});
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
