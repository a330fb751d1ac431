#include "templates/Loader.h"

#include <unordered_set>

#include "platform/Files.h"
#include "rich_text/Encoding.h"
#include "templates/HelpDefinition.h"
#include "templates/RecordReader.h"
#include "templates/Values.h"

namespace templates {
namespace {

class Loader : public RecordReader {
 public:
  Loader(std::string_view text, const std::string& path, TemplateFields& fields, const LoadOptions& options,
         LoadMessages& messages)
      : RecordReader(text, path, messages), m_fields(fields), m_options(options) {}

  std::string HelpFile;
  std::string InitialText;

 private:
  void TakeText(char tag, std::string_view value) override;
  void TakeCaseSensitive(bool value) override { m_fields.CaseSensitive = value; }
  void TakeFont(const Place& place, std::string_view value) override;
  void TakeColour(rich_text::ColourValue value) override { m_fields.Colours.push_back(value); }
  void TakeColourWord(std::shared_ptr<colWord> word) override { word->AddTo(m_fields.ColWords); }
  void TakeWord(std::shared_ptr<Word> word) override { word->AddTo(m_fields.Words); }
  void TakeSynonym(std::string_view word, std::string_view synonym) override;
  void TakeInitialText(std::string_view text) override {
    if (!m_options.NoInitialText) InitialText = text;
  }
  std::string TipText(std::string_view written) override;
  bool MayCancel(LoadProblem::Sort kind) const override { return kind == LoadProblem::Sort::BadFont; }

  void TakeDelimeters(std::string_view value);
  std::string& FieldOf(char tag);

  TemplateFields& m_fields;
  const LoadOptions& m_options;
  std::unordered_set<char32_t> m_delimeters;  ///< those in m_fields, to be asked once for each tip
};

void Loader::TakeText(char tag, std::string_view value) {
  if (tag == 'D') return TakeDelimeters(value);
  if (tag == 'X') {
    const auto extensions = ExtensionsOf(value);
    m_fields.DefaultExtension = extensions.empty() ? "" : extensions.front();
    return;
  }
  FieldOf(tag) = value;
  if (tag == 'N' && m_options.NameRead) m_options.NameRead();
}

std::string& Loader::FieldOf(char tag) {
  switch (tag) {
    case 'H':
      return HelpFile;
    case 'R':
      return m_fields.ExecuteCommand;
    case 'N':
      return m_fields.TName;
    case 'V':
      return m_fields.TVer;
    case 'A':
      return m_fields.TAuthor;
    case 'E':
      return m_fields.TDate;
    default:
      return m_fields.TComments;
  }
}

void Loader::TakeDelimeters(std::string_view value) {
  const auto append = [&](std::string_view characters) {
    for (std::size_t i = 0; i < characters.size();) {
      const rich_text::CodePoint point = rich_text::CodePointAt(characters, i);
      m_fields.Delimeters.emplace_back(characters.substr(i, point.Bytes));
      m_delimeters.insert(point.Value);
      i += point.Bytes;
    }
  };
  append(value);
  append(" \r\n");
}

void Loader::TakeFont(const Place& place, std::string_view value) {
  if (m_options.OverrideTemplateFonts) return;
  const auto number = ParseInteger<std::int64_t>(value);
  if (!number) return Invalid(place, "The font type is not a number.");
  if (*number >= -1 && *number <= 2) {
    m_fields.UseFont = static_cast<std::int16_t>(*number + 1);
    return;
  }
  m_fields.UseFont = 0;
  Report(place, LoadProblem::Sort::BadFont, "The font type is not 0, 1 or 2.");
}

void Loader::TakeSynonym(std::string_view word, std::string_view synonym) {
  auto entry = std::make_shared<Synonym>();
  entry->Word = word;
  entry->Synonym = synonym;
  m_fields.Synonyms.AddReplacing(std::move(entry), word);
}

/// A tip ends with a delimiter, so that its last word can be told apart.
std::string Loader::TipText(std::string_view written) {
  std::string tip(written);
  const std::string_view last = rich_text::LastCharacter(tip);
  if (last.empty() || !m_delimeters.contains(rich_text::CodePointAt(last, 0).Value)) tip += ' ';
  return tip;
}

}  // namespace

void EmptyTemplate(TemplateFields& fields) {
  fields.Words.Clear();
  fields.ColWords.Clear();
  fields.Colours.clear();
  fields.Delimeters.clear();
  fields.Synonyms.Clear();
  fields.HelpWords.Clear();
  fields.ExecuteCommand.clear();
  fields.UseFont = 0;
}

LoadResult LoadTemplateText(std::string_view text, const std::string& path, TemplateFields& fields,
                            const LoadOptions& options, LoadMessages& messages, std::string& helpFile) {
  EmptyTemplate(fields);
  Loader loader(text, path, fields, options, messages);
  LoadResult result;
  result.Cancelled = !loader.Read();
  result.InitialText = std::move(loader.InitialText);
  helpFile = std::move(loader.HelpFile);
  return result;
}

LoadResult LoadTemplate(const std::string& path, TemplateFields& fields, const LoadOptions& options,
                        LoadMessages& messages) {
  platform::FileContent file = platform::ReadFile(path);
  if (!file.Ok()) {
    EmptyTemplate(fields);
    return {{}, false, std::move(file.Error)};
  }
  const rich_text::DecodedText decoded = rich_text::DecodeText(std::move(file.Bytes));
  std::string helpFile;
  LoadResult result = LoadTemplateText(decoded.Text, path, fields, options, messages, helpFile);
  if (!result.Cancelled) ReadHelpDefinition(helpFile.empty() ? DerivedHelpFile(path) : helpFile, fields.HelpWords);
  return result;
}

}  // namespace templates
