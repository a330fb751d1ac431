#include "templates/EditorReader.h"

#include "platform/Files.h"
#include "rich_text/Encoding.h"
#include "templates/HelpDefinition.h"
#include "templates/RecordReader.h"
#include "templates/Values.h"

namespace templates {
namespace {

class EditorReader : public RecordReader {
 public:
  EditorReader(std::string_view text, const std::string& path, EditorTemplate& target, LoadMessages& messages)
      : RecordReader(text, path, messages), m_target(target) {}

 private:
  void TakeText(char tag, std::string_view value) override;
  void TakeCaseSensitive(bool value) override { m_target.CaseSensitive = value; }
  void TakeFont(const Place& place, std::string_view value) override;
  void TakeColour(rich_text::ColourValue value) override;
  void TakeColourWord(std::shared_ptr<colWord> word) override { m_target.ColourWords.push_back(std::move(word)); }
  void TakeWord(std::shared_ptr<Word> word) override { m_target.Words.push_back(std::move(word)); }
  void TakeSynonym(std::string_view word, std::string_view synonym) override {
    m_target.Synonyms.push_back({std::string(word), std::string(synonym)});
  }
  void TakeInitialText(std::string_view text) override { m_target.InitialText = text; }
  std::string TipText(std::string_view written) override { return std::string(written); }
  bool MayCancel(LoadProblem::Sort) const override { return true; }

  std::string& FieldOf(char tag);

  EditorTemplate& m_target;
};

void EditorReader::TakeText(char tag, std::string_view value) {
  FieldOf(tag) = value;
}

std::string& EditorReader::FieldOf(char tag) {
  switch (tag) {
    case 'H':
      return m_target.HelpFile;
    case 'R':
      return m_target.ExecuteCommand;
    case 'N':
      return m_target.Name;
    case 'X':
      return m_target.Extension;
    case 'D':
      return m_target.Delimeters;
    case 'V':
      return m_target.Version;
    case 'A':
      return m_target.Author;
    case 'E':
      return m_target.Date;
    default:
      return m_target.Comments;
  }
}

void EditorReader::TakeFont(const Place& place, std::string_view value) {
  if (value.size() == 1 && value[0] >= '0' && value[0] <= '2')
    m_target.Font = static_cast<std::int16_t>(value[0] - '0');
  else
    Report(place, LoadProblem::Sort::BadFont, "The font type is not 0, 1 or 2.");
}

/// The line straight after a colour tells its name if it begins with ";"; any other is the next record.
void EditorReader::TakeColour(rich_text::ColourValue value) {
  if (!IsColour(value)) value = 0;
  const LineReader before = Lines();
  const auto line = Lines().RawLine();
  if (line && line->starts_with(';')) {
    m_target.Palette.push_back({value, std::string(line->substr(1))});
    return;
  }
  Lines() = before;
  m_target.Palette.push_back({value, HexColour(value)});
}

}  // namespace

EditorReadResult ReadEditorTemplateText(std::string_view text, const std::string& path, LoadMessages& messages) {
  EditorReadResult result;
  EditorTemplate& target = result.Template;
  target.Name.clear();
  target.Delimeters.clear();
  target.HelpFile.clear();
  result.Closed = !EditorReader(text, path, target, messages).Read();
  if (target.HelpFile.empty()) target.HelpFile = DerivedHelpFile(path);
  return result;
}

EditorReadResult ReadEditorTemplate(const std::string& path, LoadMessages& messages) {
  platform::FileContent file = platform::ReadFile(path);
  EditorReadResult result;
  if (!file.Ok()) {
    result.Error = std::move(file.Error);
    return result;
  }
  const rich_text::DecodedText decoded = rich_text::DecodeText(std::move(file.Bytes));
  result = ReadEditorTemplateText(decoded.Text, path, messages);
  result.Encoding = decoded.Encoding;
  result.HasMark = decoded.HasMark;
  return result;
}

}  // namespace templates
