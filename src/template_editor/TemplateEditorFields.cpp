// The editor's fields, options and buttons.

#include <algorithm>
#include <map>

#include "template_editor/FormatLimits.h"
#include "template_editor/TemplateEditor.h"
#include "templates/Values.h"

namespace template_editor {
namespace {

using templates::EditorTemplate;

/// Where a field's text is kept, unless it belongs to the action words or to the selected synonym; the button that adds
/// what it holds; and what may not stand in it.
struct FieldDesign {
  std::string EditorTemplate::*General = nullptr;
  std::string ColourLists::*Colours = nullptr;
  std::optional<Button> Add = {};
  std::string_view Forbidden = {};
};

FieldDesign DesignOf(TextField field) {
  static const std::map<TextField, FieldDesign> designs = {
      {TextField::TemplateName, {.General = &EditorTemplate::Name}},
      {TextField::DefaultExt, {.General = &EditorTemplate::Extension}},
      {TextField::DelimetersBox, {.General = &EditorTemplate::Delimeters, .Forbidden = " \r\n"}},
      {TextField::hdfFile, {.General = &EditorTemplate::HelpFile}},
      {TextField::SaveExecute, {.General = &EditorTemplate::ExecuteCommand}},
      {TextField::VersionText, {.General = &EditorTemplate::Version}},
      {TextField::AuthorBox, {.General = &EditorTemplate::Author}},
      {TextField::DateBox, {.General = &EditorTemplate::Date}},
      {TextField::Comments, {.General = &EditorTemplate::Comments}},
      {TextField::ColName, {.Colours = &ColourLists::ColName, .Add = Button::colAdd}},
      {TextField::ColHex, {.Colours = &ColourLists::ColHex, .Add = Button::colAdd}},
      {TextField::colWordName, {.Colours = &ColourLists::colWordName, .Add = Button::AddColWord}},
      {TextField::colEndWord, {.Colours = &ColourLists::colEndWord}},
      {TextField::ActWordName, {.Add = Button::ActAdd}},
      {TextField::DelimBox, {.Add = Button::DelimAdd}},
      {TextField::wlstName, {.Add = Button::wlstAdd}},
      {TextField::txtWord, {.Forbidden = "\"\r\n"}},
      {TextField::txtSynonym, {.Forbidden = "\"\r\n"}},
  };
  const auto found = designs.find(field);
  return found == designs.end() ? FieldDesign() : found->second;
}

/// A text as part of a caption, where "&" marks an access key.
std::string InCaption(std::string_view text) {
  std::string caption = "[";
  for (const char c : text) caption.append(c == '&' ? 2 : 1, c);
  return caption + "]";
}

}  // namespace

// Fields.

const std::string& TemplateEditor::TextOf(TextField field) const {
  static const std::string none;
  const templates::Synonym* row = m_synonyms.Current();
  switch (field) {
    case TextField::ActWordName:
      return m_actions.Name();
    case TextField::DelimBox:
      return m_actions.Delimeter();
    case TextField::ToolTipBox:
      return m_actions.Tip();
    case TextField::wlstName:
      return m_actions.EntryText;
    case TextField::txtWord:
      return row ? row->Word : none;
    case TextField::txtSynonym:
      return row ? row->Synonym : none;
    default:
      break;
  }
  const FieldDesign design = DesignOf(field);
  return design.General ? m_general.*design.General : m_colours.*design.Colours;
}

std::string TemplateEditor::Cleaned(TextField field, std::string_view text) {
  const std::string_view forbidden = DesignOf(field).Forbidden;
  std::string cleaned(text);
  std::erase_if(cleaned, [&](char c) { return forbidden.find(c) != std::string_view::npos; });
  return cleaned;
}

bool TemplateEditor::Typed(TextField field, std::string_view text) {
  std::string cleaned = Cleaned(field, text);
  const bool asTyped = cleaned.size() == text.size();
  if (field == TextField::DelimetersBox) m_warnsOfDelimeters = !asTyped;
  if (cleaned != TextOf(field)) {
    TypeInto(field, std::move(cleaned));
    MarkChanged();
  }
  if (const auto button = DesignOf(field).Add) m_defaultButton = button;
  return asTyped;
}

void TemplateEditor::TypeInto(TextField field, std::string text) {
  switch (field) {
    case TextField::ActWordName:
      return m_actions.SetName(std::move(text));
    case TextField::DelimBox:
      return m_actions.SetDelimeter(std::move(text));
    case TextField::ToolTipBox:
      return m_actions.SetTip(std::move(text));
    case TextField::wlstName:
      m_actions.EntryText = std::move(text);
      return;
    case TextField::txtWord:
    case TextField::txtSynonym:
      return TypeSynonym(field, std::move(text));
    case TextField::colEndWord:
      m_colours.EndPoint = templates::colWord::UntilWord;
      break;
    default:
      break;
  }
  const FieldDesign design = DesignOf(field);
  (design.General ? m_general.*design.General : m_colours.*design.Colours) = std::move(text);
}

bool TemplateEditor::FieldEnabled(TextField field) const {
  switch (field) {
    case TextField::txtWord:
    case TextField::txtSynonym:
      return m_synonyms.Selected().has_value();
    case TextField::wlstName:
      return WordListUsable();
    default:
      return true;
  }
}

void TemplateEditor::RequireDelimeter(const std::string& delimeter) {
  if (delimeter == " " || m_general.Delimeters.find(delimeter) != std::string::npos) return;
  Typed(TextField::DelimetersBox, m_general.Delimeters + delimeter);
}

// Options.

void TemplateEditor::SetCaseSense(bool on) {
  m_general.CaseSensitive = on;
  MarkChanged();
}

void TemplateEditor::SetFont(std::int16_t font) {
  m_general.Font = font;
  MarkChanged();
}

Outcome TemplateEditor::SetEndPoint(std::int16_t endPoint) {
  m_colours.EndPoint = endPoint;
  MarkChanged();
  if (endPoint == templates::colWord::UntilWord) return {.Focus = TextField::colEndWord};
  return {};
}

void TemplateEditor::SetColWordInclude(bool on) {
  m_colours.ColWordInclude = on;
  MarkChanged();
}

void TemplateEditor::SetAction(std::int16_t action) {
  if (action != m_actions.Action()) m_actions.SetAction(action);
}

// Buttons.

bool TemplateEditor::Enabled(Button button) const {
  const auto selected = [this](List list) { return Selected(list).has_value(); };
  switch (button) {
    case Button::colChange:
    case Button::colRemove:
      return selected(List::ColourList);
    case Button::AddColWord:
      return selected(List::ColourList) && *Selected(List::ColourList) < MostNumbered;
    case Button::ChangeColWord:
    case Button::RemoveColWord:
      return selected(List::ColWordList);
    case Button::ActChange:
    case Button::ActRemove:
      return selected(List::ActWordList);
    case Button::DelimChange:
    case Button::DelimRemove:
      return selected(List::DelimetersList);
    case Button::wlstAdd:
      return WordListUsable();
    case Button::wlstChange:
    case Button::wlstRemove:
      return WordListUsable() && selected(List::WordList);
    case Button::btnDelete:
      return selected(List::lstAss);
    default:
      return true;
  }
}

Outcome TemplateEditor::Click(Button button) {
  if (!Enabled(button)) return {.Beep = true};
  switch (button) {
    case Button::btnNew:
      NewSynonym();
      return {.Focus = TextField::txtWord};
    case Button::btnDelete:
      DeleteSynonym();
      return {};
    case Button::ClearButton:
      if (!m_actions.Clear()) return {};
      return {.Focus = TextField::ActWordName};
    case Button::AddColWord:
      m_colours.AddWord();
      return {.Focus = TextField::colWordName};
    default:
      ClickColours(button);
      ClickActions(button);
      return {};
  }
}

void TemplateEditor::ClickColours(Button button) {
  switch (button) {
    case Button::ColBrowse:
      return ChooseColour();
    case Button::colAdd:
      return m_colours.AddColour();
    case Button::colChange:
      return m_colours.ChangeColour();
    case Button::colRemove:
      return m_colours.RemoveColour();
    case Button::ChangeColWord:
      return m_colours.ChangeWord();
    case Button::RemoveColWord:
      return m_colours.RemoveWord();
    default:
      return;
  }
}

void TemplateEditor::ClickActions(Button button) {
  switch (button) {
    case Button::ActAdd:
      m_actions.AddWord();
      return;
    case Button::ActChange:
      m_actions.ChangeWord();
      return;
    case Button::ActRemove:
      return m_actions.RemoveWord();
    case Button::DelimAdd:
      m_actions.AddDelimeter();
      return;
    case Button::DelimChange:
      m_actions.ChangeDelimeter();
      return;
    case Button::DelimRemove:
      return m_actions.RemoveDelimeter();
    case Button::wlstAdd:
      return m_actions.AddEntry();
    case Button::wlstChange:
      return m_actions.ChangeEntry();
    case Button::wlstRemove:
      return m_actions.RemoveEntry();
    default:
      return;
  }
}

void TemplateEditor::ChooseColour() {
  Typed(TextField::ColHex, templates::HexColour(m_frame.GetColour(m_colours.HexValue())));
}

// Synonyms.

void TemplateEditor::NewSynonym() {
  m_synonyms.Add({"new", "(click to select, then edit below)"});
  m_synonyms.Select(m_synonyms.Count() - 1);
  MarkChanged();
}

/// The row that takes the place of the deleted one is selected, or the last.
void TemplateEditor::DeleteSynonym() {
  const std::size_t row = *m_synonyms.Selected();
  m_synonyms.RemoveSelected();
  if (m_synonyms.Count() > 0) m_synonyms.Select(std::min(row, m_synonyms.Count() - 1));
  MarkChanged();
}

void TemplateEditor::TypeSynonym(TextField field, std::string text) {
  if (!m_synonyms.Current()) return;
  templates::Synonym row = *m_synonyms.Current();
  (field == TextField::txtWord ? row.Word : row.Synonym) = std::move(text);
  m_synonyms.ReplaceSelected(std::move(row));
}

void TemplateEditor::TakeSynonym(std::size_t actionWord) {
  if (m_synonyms.Current() && actionWord < m_actions.Words().Count())
    Typed(TextField::txtSynonym, m_actions.Words().All()[actionWord]->Name);
}

// What is shown.

std::string TemplateEditor::ColourNameShown() const {
  if (const templates::PaletteColour* colour = m_colours.Palette().Current()) return colour->Name;
  return m_colours.Words().Current() ? "[no colour]" : "[ColourName]";
}

std::string TemplateEditor::DelimetersCaption() const {
  return "Word Delimeters for " + InCaption(m_actions.Name());
}

std::string TemplateEditor::ActionCaption() const {
  return "Action for " + InCaption(m_actions.Delimeter());
}

std::string TemplateEditor::WordListCaption() const {
  return "Word List for " + InCaption(m_actions.Delimeter());
}

std::string TemplateEditor::ToolTipCaption() const {
  return "Tool T&ip for " + InCaption(m_actions.Delimeter()) + " of " + InCaption(m_actions.Name());
}

}  // namespace template_editor
