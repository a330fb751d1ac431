#include "aids/DocumentSynonyms.h"

#include "aids/SynonymFile.h"
#include "aids/WordAtCaret.h"
#include "platform/Files.h"
#include "rich_text/Encoding.h"

namespace aids {

using platform::PromptAnswer;
using platform::PromptIcon;

bool DocumentSynonyms::SaveSynonyms(const std::string& path) {
  std::string target = path;
  if (target.empty()) {
    const std::string suggested = m_state.CurFileName.empty() ? "" : m_state.CurFileName + ".syn";
    target = m_frame.GetSaveFile("Save Synonyms", "Synonym File", "syn", suggested);
    if (target.empty()) return false;
  }
  const std::string error = platform::WriteFile(target, WriteSynonyms(m_state.Template.Synonyms, m_state.CurFileName));
  if (!error.empty()) {
    m_frame.Prompts().Show({.Text = "Could not save " + target + "\n\n" + error, .Icon = PromptIcon::Critical});
    return false;
  }
  m_state.CurSFileName = target;
  m_state.SSaved = true;
  return true;
}

bool DocumentSynonyms::MayDropPresent() {
  if (m_state.SSaved) return true;
  const PromptAnswer answer = m_frame.Prompts().Show({.Text = "Save changes to current set of Synonyms?",
                                                      .Buttons = platform::PromptButtons::YesNoCancel,
                                                      .Icon = PromptIcon::Question,
                                                      .Default = PromptAnswer::Cancel});
  if (answer == PromptAnswer::Yes) return SaveSynonyms(m_state.CurSFileName);
  return answer == PromptAnswer::No;
}

void DocumentSynonyms::LoadSynonyms(const std::string& path) {
  if (!MayDropPresent()) return;
  platform::FileContent content = platform::ReadFile(path);
  if (!content.Ok()) {
    m_frame.Prompts().Show({.Text = "Could not read " + path + "\n\n" + content.Error, .Icon = PromptIcon::Critical});
    return;
  }
  const auto records = ReadSynonyms(rich_text::DecodeText(std::move(content.Bytes)).Text);
  if (!records) {
    m_frame.Prompts().Show({.Text = path + " does is not a valid synonym file.", .Icon = PromptIcon::Critical});
    return;
  }
  m_state.Template.Synonyms.Clear();
  for (const templates::Synonym& record : *records) ReplaceSynonym(m_state.Template.Synonyms, record);
  m_state.CurSFileName = path;
  m_state.SSaved = true;
}

void DocumentSynonyms::AddSynonym(const ActionWordChooser& choose) {
  m_state.SSaved = false;
  if (m_control.SelLength() == 0) {
    const WordRange word = WordAtCaret(m_control, m_state.Template);
    if (word.Empty()) return;
    m_control.SetSelStart(word.Start);
    m_control.SetSelLength(word.End - word.Start);
  }
  const std::string chosen = choose(ActionWords());
  if (!chosen.empty()) ReplaceSynonym(m_state.Template.Synonyms, {m_control.SelText(), chosen});
}

std::vector<std::string> DocumentSynonyms::ActionWords() const {
  std::vector<std::string> names;
  for (const auto& word : m_state.Template.Words) names.push_back(word->Name);
  return names;
}

platform::PairRows DocumentSynonyms::Rows() const {
  std::vector<platform::PairRow> rows;
  for (const auto& synonym : m_state.Template.Synonyms) rows.push_back({synonym->Word, synonym->Synonym});
  return platform::PairRows(std::move(rows));
}

void DocumentSynonyms::Replace(const platform::PairRows& rows) {
  m_state.Template.Synonyms.Clear();
  for (const platform::PairRow& row : rows.All()) ReplaceSynonym(m_state.Template.Synonyms, {row.First, row.Second});
  m_state.SSaved = false;
}

}  // namespace aids
