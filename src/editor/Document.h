#pragma once
// One open file: its text in a control, its template, and what the user does with them, decided without a widget. The
// window around it holds the control and forwards.
//
// Paths are UTF-8. Control, frame and window outlive the document, which is the control's only listener.

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "editor/Colouring.h"
#include "editor/DocumentFrame.h"
#include "editor/DocumentState.h"
#include "editor/FileOnDisk.h"
#include "editor/KeyRules.h"
#include "editor/LineEditing.h"
#include "editor/PopupHost.h"
#include "editor/Recovery.h"
#include "editor/UndoHistory.h"
#include "editor/ViewKeeper.h"
#include "platform/TextControl.h"

namespace editor {

class Document : public platform::TextControlEvents {
 public:
  Document(platform::TextControl& control, DocumentFrame& frame, DocumentWindow& window);
  ~Document() override;
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;

  const DocumentState& State() const { return m_state; }
  /// For what belongs to the document and stands beside it, such as its pop-ups.
  DocumentState& State() { return m_state; }

  /// Who shows the completion list and the tooltip; must outlive the document. Nobody, at first.
  void SetPopups(PopupHost& popups);

  /// Shows the font that settings and template ask for, without moving the view.
  void UpdateFont();
  /// Colours the whole document, or the lines from `first` to `last` (1-based), as the settings say.
  void ColourScan() { m_colouring.ColourScan(); }
  void ColourLines(std::size_t first, std::size_t last) { m_colouring.ColourLines(first, last); }
  /// Whether long lines are shown in several rows.
  void WordWrap(bool on);

  /// Reads the file into the window and colours it. A file that cannot be read is told, and the document stays without
  /// a name.
  void OpenFile(const std::string& path);

  /// Takes over an unsaved text from an earlier run, unsaved as it is. False when it could not be made safe again.
  bool Restore(const JournalContent& content);

  /// Writes the text; "" asks for a name. False when nothing was written: the user cancelled, or was told why not.
  bool SaveFile(const std::string& path);

  /// The program wrote into the text what the user chose: it has unsaved changes.
  void TextEdited() {
    if (m_state.Saved) SetSaved(false);
  }

  /// Runs an edit of the user's that may touch any line, and colours the whole document afterwards.
  void EditEverywhere(const std::function<void()>& edit);

  /// Asks what is to be done when another program changed or removed the file, and does it. For a window that becomes
  /// active; costs nothing worth mentioning when all is as it was.
  void CheckFile();

  /// Takes a template into use: a path, "" to ask the user, templates::NoTemplate for none. Unless `noInitialText`, the
  /// template's initial text goes into an empty document.
  void SetTemplate(const std::string& fileName, bool noInitialText = false);
  /// Whether the user chose the template for this file, which is then remembered with it.
  void SetTemplateChosen(bool chosen) { m_state.Template.TemplateChosen = chosen; }
  /// 1 proportional, 2 fixed width, 3 DOS; any other is the default type's.
  void SetUseFont(std::int16_t useFont);

  /// One step; nothing while the text is being coloured, or when there is none. What was typed last and is no step yet
  /// becomes one first.
  void Undo();
  void Redo();

  /// The prompts of closing; false when the user wants the window to stay.
  bool MayClose();

  /// Whether a colouring run is under way: the window may not go until it has ended.
  bool Busy() const { return m_colouring.Running(); }

  /// Stops a colouring run. True when one was under way.
  bool CancelColouring();

  /// Enables and checks the frame's tools as this document needs them.
  void EnableButtons();
  /// Everything that the window's becoming active shows.
  void Activated();
  /// Shows caret or selection, size and template in the status bar; colours an edited line that the caret has left.
  void UpdateStatus();

  bool KeyDown(int keyCode, int shift) override;
  bool KeyPress(char32_t character) override { return m_keys.KeyPress(character); }
  void KeyUp(int keyCode, int shift) override;
  void Change(const platform::TextChange& change) override;
  void SelChange() override;
  bool MouseDown(int button, int shift, int x, int y) override;
  void MouseUp(int, int, int, int) override { UpdateStatus(); }
  void FilesDropped(const std::vector<std::string>& paths) override;

 private:
  bool ChooseTemplateFile(std::string& fileName);
  void OfferAssociation(const std::string& fileName);
  bool LoadFrom(const std::string& fileName, bool noInitialText, std::string& initialText);
  void ShowTemplateName();
  void ShowSize();
  void EnableSelectionTools();
  void SetSaved(bool saved);
  void SetUnsaved();
  void NoteWhetherSaved();
  void EnableUndoTools();
  bool AskForName(std::string& path);
  bool Reload();
  void SetTextUnrecorded(std::string_view text);
  bool MayLose(const std::string& question, const std::function<bool()>& save);
  JournalHead TextBelongsTo() const;

  platform::TextControl& m_control;
  DocumentFrame& m_frame;
  DocumentWindow& m_window;
  DocumentState m_state;
  Colouring m_colouring;
  LineEditing m_lines;
  KeyRules m_keys;
  ViewKeeper m_view;
  NoPopups m_noPopups;
  PopupHost* m_popups = &m_noPopups;
  FileOnDisk m_file;
  UndoHistory m_undo;
  Recovery m_recovery;
};

/// The tools that concern a document; disabled when the last one closes.
const std::vector<std::string_view>& DocumentTools();

}  // namespace editor
