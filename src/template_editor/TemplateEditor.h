#pragma once
// One template editor without its widgets: the template's fields and lists, what each control does, when it is enabled,
// and the file. The window shows what it is told here, and tells what the user did; after each of its calls everything
// shown may have changed. All texts are UTF-8, rows 0-based.

#include <optional>
#include <string>
#include <string_view>

#include "platform/TextControl.h"
#include "rich_text/Encoding.h"
#include "template_editor/ActionLists.h"
#include "template_editor/ColourLists.h"
#include "template_editor/Controls.h"
#include "template_editor/EditorFrame.h"
#include "templates/EditorTemplate.h"

namespace template_editor {

/// What a click leads to beside its work.
struct Outcome {
  std::optional<TextField> Focus = {};  ///< the field that gets the focus, its text selected
  bool Beep = false;
};

class TemplateEditor : private ListOwner {
 public:
  /// All three must outlive the editor. It begins empty; `initialText` is the control of the initial text.
  TemplateEditor(platform::TextControl& initialText, EditorFrame& frame, EditorWindow& window);

  // The file.
  bool Saved() const { return m_saved; }
  /// "" for a new template.
  const std::string& CurFileName() const { return m_curFileName; }
  /// The window's caption, without a mark of changes.
  std::string Caption() const;
  /// For a window that has just been opened on no file.
  void OpenedEmpty();
  /// Shows a template file, "" asks for one. False when nothing was opened: cancelled, unreadable, or the window closes
  /// because the user cancelled a message about the file.
  bool OpenFile(const std::string& path);
  /// Writes the template, "" asks for a name. False when nothing was written.
  bool SaveFile(const std::string& path);
  /// Asks whether to save what has changed; false when the window is to stay.
  bool MayClose();
  /// For a window that becomes the active one: enables the frame's tools that it uses.
  void Activated();
  /// The whole template as the pages show it; of working copies, only what has been committed.
  templates::EditorTemplate Contents() const;

  // Fields.
  const std::string& TextOf(TextField field) const;
  /// The user has given a field a new text. False when it may not stand there as it is, and was cleaned: the window
  /// beeps and shows what is left.
  bool Typed(TextField field, std::string_view text);
  /// What Typed leaves of a text. Characters fall away one by one, so that the text before the caret says where the
  /// caret belongs.
  static std::string Cleaned(TextField field, std::string_view text);
  /// Whether the last text typed into DelimetersBox had to be cleaned.
  bool WarnsOfDelimeters() const { return m_warnsOfDelimeters; }
  void InitialTextChanged() { MarkChanged(); }

  // Options and check boxes, by the values of the file.
  bool CaseSense() const { return m_general.CaseSensitive; }
  std::int16_t Font() const { return m_general.Font; }
  std::int16_t EndPoint() const { return m_colours.EndPoint; }
  bool ColWordInclude() const { return m_colours.ColWordInclude; }
  std::int16_t Action() const { return m_actions.Action(); }
  std::int32_t Icon() const { return m_actions.Icon; }
  void SetCaseSense(bool on);
  void SetFont(std::int16_t font);
  Outcome SetEndPoint(std::int16_t endPoint);
  void SetColWordInclude(bool on);
  void SetAction(std::int16_t action);
  void SetIcon(std::int32_t icon) { m_actions.Icon = icon; }

  // Buttons.
  bool Enabled(Button button) const;
  /// Does what the button is for, when it is enabled.
  Outcome Click(Button button);
  /// The button that Enter presses.
  std::optional<Button> DefaultButton() const { return m_defaultButton; }

  // Lists.
  std::size_t Count(List list) const;
  std::optional<std::size_t> Selected(List list) const;
  /// Changes with the list's rows.
  std::uint64_t Revision(List list) const;
  /// The user selects a row. The selection may stay as it was, when the user stays with changes not committed.
  void Select(List list, std::optional<std::size_t> row);
  const ColourLists& Colours() const { return m_colours; }
  const ActionLists& Actions() const { return m_actions; }
  const std::vector<templates::Synonym>& Synonyms() const { return m_synonyms.All(); }
  /// Puts the name of an action word into the selected synonym row.
  void TakeSynonym(std::size_t actionWord);

  // What the pages show and allow beside that. In captions a "&" of the user's text is doubled.
  bool FieldEnabled(TextField field) const;
  bool ToolTipShown() const { return Action() == templates::WrdAct::Tooltip; }
  bool WordListUsable() const { return Action() == templates::WrdAct::List; }
  std::string ColourNameShown() const;  ///< ColWordColName's text
  std::string DelimetersCaption() const;
  std::string ActionCaption() const;
  std::string WordListCaption() const;
  std::string ToolTipCaption() const;

 private:
  void MarkChanged() override;
  bool Accepts(const std::string& reason) override;
  LeaveAnswer AskToLeave(Level level, bool mayChange) override { return m_window.AskToLeave(level, mayChange); }
  void RequireDelimeter(const std::string& delimeter) override;

  void SetSaved(bool saved);
  void Take(templates::EditorTemplate contents);
  bool AskForName(std::string& path);
  void StripDots();
  std::string Encoded(const std::string& text) const;
  void TypeInto(TextField field, std::string text);
  void ClickColours(Button button);
  void ClickActions(Button button);
  void ChooseColour();
  void NewSynonym();
  void DeleteSynonym();
  void TypeSynonym(TextField field, std::string text);

  platform::TextControl& m_initialText;
  EditorFrame& m_frame;
  EditorWindow& m_window;
  bool m_saved = true;
  rich_text::TextEncoding m_encoding = rich_text::TextEncoding::Utf8;
  bool m_hasMark = false;
  std::string m_curFileName;
  templates::EditorTemplate m_general;  ///< General and About; its lists and initial text are empty
  ColourLists m_colours{*this};
  ActionLists m_actions{*this};
  Rows<templates::Synonym> m_synonyms;
  std::optional<Button> m_defaultButton;
  bool m_warnsOfDelimeters = false;
  bool m_loading = false;
};

}  // namespace template_editor
