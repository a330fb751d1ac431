// The editor's file, window and lists.

#include "template_editor/TemplateEditor.h"

#include <array>

#include "platform/FileParsing.h"
#include "platform/Files.h"
#include "templates/EditorReader.h"
#include "templates/Writer.h"

namespace template_editor {
namespace {

using platform::PromptAnswer, platform::PromptButtons, platform::PromptIcon;

constexpr std::string_view TypeName = "Template Definition File", TypeExtension = "def";

/// A template's name as the name of its file.
std::string FileNameFor(const std::string& name) {
  std::string file;
  for (const char c : name) file += c == '/' || c == '\\' || static_cast<unsigned char>(c) < 0x20 ? '_' : c;
  return file;
}

}  // namespace

std::string_view LeaveCaption(Level level) {
  return level == Level::Word ? "Action Word Changed" : "Delimeter Action Changed";
}

TemplateEditor::TemplateEditor(platform::TextControl& initialText, EditorFrame& frame, EditorWindow& window)
    : m_initialText(initialText), m_frame(frame), m_window(window) {
  m_initialText.SetWordWrap(false);
  m_initialText.SetFont({.Name = "Courier New", .Fixed = true});
  m_window.SetCaption(Caption());
}

std::string TemplateEditor::Caption() const {
  return (m_curFileName.empty() ? "Untitled" : platform::FileNameOf(m_curFileName)) + " (Template)";
}

// Saved or not.

void TemplateEditor::SetSaved(bool saved) {
  m_saved = saved;
  if (m_window.IsActive()) m_frame.EnableTool("save", !saved);
  m_frame.UpdateWindowTabs();
}

void TemplateEditor::MarkChanged() {
  if (m_saved && !m_loading) SetSaved(false);
}

void TemplateEditor::Activated() {
  m_frame.EnableTool("save", true);
  m_frame.EnableTool("saveas", true);
  m_frame.UpdateWindowTabs();
}

bool TemplateEditor::Accepts(const std::string& reason) {
  if (!reason.empty()) m_frame.Prompts().Show({.Text = reason, .Icon = PromptIcon::Exclamation});
  return reason.empty();
}

// The file.

void TemplateEditor::OpenedEmpty() {
  SetSaved(true);
}

bool TemplateEditor::OpenFile(const std::string& path) {
  const std::string file =
      path.empty() ? m_frame.GetOpenFile("Open Template", TypeName, TypeExtension, m_frame.TemplateFolder()) : path;
  if (file.empty()) return false;
  templates::PromptMessages messages(m_frame.Prompts());
  templates::EditorReadResult read = templates::ReadEditorTemplate(file, messages);
  if (!read.Error.empty()) {
    m_frame.Prompts().Show({.Text = "Could not read " + file + "\n\n" + read.Error,
                            .Title = "Error Loading Template",
                            .Icon = PromptIcon::Exclamation});
    return false;
  }
  if (read.Closed) {
    m_window.CloseWindow();
    return false;
  }
  Take(std::move(read.Template));
  m_encoding = read.Encoding;
  m_hasMark = read.HasMark;
  m_curFileName = file;
  m_window.SetCaption(Caption());
  SetSaved(true);
  return true;
}

void TemplateEditor::Take(templates::EditorTemplate contents) {
  m_loading = true;
  m_initialText.SetText(contents.InitialText);
  m_colours.Take(std::move(contents.Palette), std::move(contents.ColourWords));
  m_actions.Take(std::move(contents.Words));
  m_synonyms.Assign(std::move(contents.Synonyms));
  contents.InitialText.clear();
  contents.Palette.clear();
  contents.ColourWords.clear();
  contents.Words.clear();
  contents.Synonyms.clear();
  m_general = std::move(contents);
  m_defaultButton.reset();
  m_warnsOfDelimeters = false;
  m_loading = false;
}

templates::EditorTemplate TemplateEditor::Contents() const {
  templates::EditorTemplate contents = m_general;
  contents.InitialText = m_initialText.Text();
  contents.Palette = m_colours.Palette().All();
  contents.ColourWords = m_colours.Words().All();
  contents.Words = m_actions.Words().All();
  contents.Synonyms = m_synonyms.All();
  return contents;
}

bool TemplateEditor::AskForName(std::string& path) {
  const std::string suggested = m_curFileName.empty() ? m_frame.TemplateFolder() + '/' + FileNameFor(m_general.Name) +
                                                            '.' + std::string(TypeExtension)
                                                      : m_curFileName;
  path = m_frame.GetSaveFile("Save Template", TypeName, TypeExtension, suggested);
  return !path.empty();
}

/// An extension is written without its "."; a field may list several.
void TemplateEditor::StripDots() {
  std::string stripped;
  bool begins = true;
  for (const char c : m_general.Extension) {
    if (!begins || c != '.') stripped += c;
    begins = c == ';' || (begins && c == ' ');
  }
  m_general.Extension = std::move(stripped);
}

/// In the encoding that the file came with, unless the text has a character now that only UTF-8 can hold.
std::string TemplateEditor::Encoded(const std::string& text) const {
  return rich_text::EncodeText({text, m_encoding, m_hasMark}).value_or(text);
}

bool TemplateEditor::SaveFile(const std::string& path) {
  StripDots();
  if (!m_actions.Leave()) return false;
  std::string target = path;
  if (path.empty() && !AskForName(target)) return false;
  const std::string error = platform::WriteFile(target, Encoded(templates::WriteTemplate(Contents(), m_frame.Today())));
  if (!error.empty()) {
    m_frame.Prompts().Show({.Text = "Could not save " + target + "\n\n" + error, .Icon = PromptIcon::Critical});
    return false;
  }
  if (target != m_curFileName) {
    m_curFileName = target;
    m_window.SetCaption(Caption());
    m_frame.PopulateTemplates();
  }
  SetSaved(true);
  return true;
}

bool TemplateEditor::MayClose() {
  if (m_saved) return true;
  m_window.BringToFront();
  const PromptAnswer answer = m_frame.Prompts().Show({.Text = "Save changes to " + m_general.Name + " before closing?",
                                                      .Buttons = PromptButtons::YesNoCancel,
                                                      .Icon = PromptIcon::Question,
                                                      .Default = PromptAnswer::Cancel});
  return answer == PromptAnswer::Yes ? SaveFile(m_curFileName) : answer == PromptAnswer::No;
}

// Lists.

namespace {

/// Calls `action` with the rows of a list.
template <typename Action>
auto WithRows(List list, const ColourLists& colours, const ActionLists& actions,
              const Rows<templates::Synonym>& synonyms, Action action) {
  switch (list) {
    case List::ColourList:
      return action(colours.Palette());
    case List::ColWordList:
      return action(colours.Words());
    case List::ActWordList:
      return action(actions.Words());
    case List::DelimetersList:
      return action(actions.Delimeters());
    case List::WordList:
      return action(actions.Entries());
    default:
      return action(synonyms);
  }
}

}  // namespace

std::size_t TemplateEditor::Count(List list) const {
  return WithRows(list, m_colours, m_actions, m_synonyms, [](const auto& rows) { return rows.Count(); });
}

std::optional<std::size_t> TemplateEditor::Selected(List list) const {
  return WithRows(list, m_colours, m_actions, m_synonyms, [](const auto& rows) { return rows.Selected(); });
}

std::uint64_t TemplateEditor::Revision(List list) const {
  return WithRows(list, m_colours, m_actions, m_synonyms, [](const auto& rows) { return rows.Revision(); });
}

void TemplateEditor::Select(List list, std::optional<std::size_t> row) {
  switch (list) {
    case List::ColourList:
      return m_colours.SelectColour(row);
    case List::ColWordList:
      return m_colours.SelectWord(row);
    case List::ActWordList:
      m_actions.SelectWord(row);
      return;
    case List::DelimetersList:
      m_actions.SelectDelimeter(row);
      return;
    case List::WordList:
      return m_actions.SelectEntry(row);
    default:
      return m_synonyms.Select(row);
  }
}

}  // namespace template_editor
