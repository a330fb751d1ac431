#include "templates/Writer.h"

#include <initializer_list>

#include "rich_text/Encoding.h"
#include "templates/Values.h"

namespace templates {
namespace {

constexpr std::string_view Release = "3.1";

class Writer {
 public:
  std::string Text;

  /// Appends the pieces as one line.
  void Line(std::initializer_list<std::string_view> pieces) {
    for (std::string_view piece : pieces)
      for (char c : piece) Text += c == '\r' || c == '\n' ? ' ' : c;
    Text += "\r\n";
  }

  void Head(const EditorTemplate& source, std::string_view date);
  void Values(const EditorTemplate& source);
  void ColourWord(const colWord& word);
  void ActionWord(const Word& word);
  void Action(const WrdAct& action);
};

std::string_view Flag(bool value) {
  return value ? "True" : "False";
}

void Writer::Head(const EditorTemplate& source, std::string_view date) {
  Line({";Generated using Quillmark ", Release, " on ", date});
  Line({});
  Line({"T: ", std::to_string(rich_text::CharacterCount(source.InitialText))});
  Text += source.InitialText;
  Line({});
  Line({});
}

void Writer::Values(const EditorTemplate& source) {
  std::string_view extension = source.Extension;
  if (extension.starts_with('.')) extension.remove_prefix(1);
  Line({"H: ", source.HelpFile});
  Line({"R: ", source.ExecuteCommand});
  Line({"N: ", source.Name});
  Line({"X: ", extension});
  Line({"D: ", source.Delimeters});
  Line({"S: ", Flag(source.CaseSensitive)});
  Line({"V: ", source.Version});
  Line({"A: ", source.Author});
  Line({"E: ", source.Date});
  Line({"M: ", source.Comments});
  Line({"F: ", std::to_string(source.Font)});
}

void Writer::ColourWord(const colWord& word) {
  Line({"L: ", word.StartWord, " ", std::to_string(word.EndPoint), " ", word.EndWord, " ", std::to_string(word.Colour),
        " ", Flag(word.IncludeWord)});
}

void Writer::ActionWord(const Word& word) {
  Line({"W: \"", word.Name, "\" ", std::to_string(word.Actions.Count())});
  for (const auto& action : word.Actions) Action(*action);
}

void Writer::Action(const WrdAct& action) {
  Line({std::to_string(action.Action), " \"", action.Delimeter, "\" ", std::to_string(action.NumberOfWords())});
  Line({"\"", action.tipText, "\""});
  for (int place = 1; place <= action.NumberOfWords(); ++place)
    Line({action.WordList(place), " ", std::to_string(action.IconList(place))});
}

}  // namespace

std::string WriteTemplate(const EditorTemplate& source, std::string_view date) {
  Writer writer;
  writer.Head(source, date);
  writer.Values(source);
  writer.Line({});
  for (const PaletteColour& colour : source.Palette) {
    writer.Line({"C: ", HexColour(colour.Value)});
    writer.Line({";", colour.Name});
  }
  writer.Line({});
  for (const auto& word : source.ColourWords) writer.ColourWord(*word);
  for (const auto& word : source.Words) writer.ActionWord(*word);
  for (const Synonym& synonym : source.Synonyms) writer.Line({"Y: \"", synonym.Word, "\" \"", synonym.Synonym, "\""});
  return std::move(writer.Text);
}

}  // namespace templates
