#include "editor/Document.h"

#include "editor/StatusTexts.h"
#include "platform/FileParsing.h"
#include "platform/Files.h"
#include "rich_text/TextDifference.h"
#include "settings/TemplateQuestions.h"
#include "templates/Loader.h"

namespace editor {
const std::vector<std::string_view>& DocumentTools() {
  static const std::vector<std::string_view> tools = {
      "miFind",     "miReplace", "miFindNext",      "miSelectAll",    "miPaste",   "miCopy",  "miCut",
      "miWordWrap", "save",      "saveas",          "miEditSynonyms", "miRefresh", "GenPrev", "SaveExec",
      "miUndo",     "miRedo",    "fntProportional", "fntFixedWidth",  "fntDOS"};
  return tools;
}

Document::Document(platform::TextControl& control, DocumentFrame& frame, DocumentWindow& window)
    : m_control(control),
      m_frame(frame),
      m_window(window),
      m_colouring({control, frame.Status(), frame.Loop(), frame.Settings()}, m_state),
      m_lines(control, m_state, m_colouring, frame.Settings()),
      m_keys(control, frame, m_state),
      m_view(control),
      m_file(frame.Prompts()),
      m_undo(control, frame.MakeTimer(), m_state, [this] { EnableUndoTools(); }),
      m_recovery(frame.UnsavedTexts(), control, frame.MakeTimer(), frame.Prompts(),
                 [this] { return TextBelongsTo(); }) {
  m_control.SetEvents(this);
  m_control.SetWordWrap(false);
  m_state.Template.UseFont = static_cast<std::int16_t>(frame.Settings().DefaultFontType + 1);
  UpdateFont();
}

Document::~Document() {
  m_control.SetEvents(nullptr);
}

// The file.

void Document::OpenFile(const std::string& path) {
  std::optional<std::string> read = m_file.Open(path, [this](std::size_t bytes) { m_control.Reserve(bytes); });
  std::string text = read ? std::move(*read) : "";
  SetTextUnrecorded(text);
  if (read) {
    m_state.CurFileName = path;
    m_window.SetCaption(platform::FileNameOf(path));
  }
  m_recovery.Settled(m_file.Identity());
  UpdateStatus();
  m_colouring.ColourScan(std::move(text));
  m_frame.UpdateWindowTabs();
}

bool Document::Restore(const JournalContent& content) {
  const JournalHead& head = content.Head;
  SetTemplate(platform::FileExists(head.TemplateFile) ? head.TemplateFile : templates::NoTemplate, true);
  SetTemplateChosen(head.TemplateChosen);
  m_file.Adopt(head.Path, head.Base, head.Encoding, head.HasMark);
  SetTextUnrecorded(content.Text);
  m_control.SetSelStart(content.Caret);
  m_state.CurFileName = head.Path;
  if (!head.Path.empty()) m_window.SetCaption(platform::FileNameOf(head.Path));
  SetUnsaved();
  const bool safe = m_recovery.Restored(content);
  UpdateStatus();
  ColourScan();
  return safe;
}

JournalHead Document::TextBelongsTo() const {
  JournalHead head;
  head.Path = m_state.CurFileName;
  head.TemplateFile = m_state.Template.TemplateFile;
  head.TemplateChosen = m_state.Template.TemplateChosen;
  head.Encoding = m_file.Encoding();
  head.HasMark = m_file.HasMark();
  return head;
}

void Document::SetTextUnrecorded(std::string_view text) {
  const ProgramChange change(m_state);
  m_control.SetText(text);
  m_state.LineCount = m_control.LineCount();
  if (m_state.Saved) m_undo.MarkSaved();
}

void Document::CheckFile() {
  if (Busy()) return;
  const FileOnDisk::Verdict verdict = m_file.LookForChanges(m_state.Saved);
  if (verdict == FileOnDisk::Verdict::Nothing) return;
  if (verdict == FileOnDisk::Verdict::Reload && Reload()) return;
  SetUnsaved();
  m_recovery.LostFile();
  if (verdict == FileOnDisk::Verdict::SaveAgain) SaveFile(m_state.CurFileName);
}

// The text comes as an edit, so that Undo brings back what it replaces.
bool Document::Reload() {
  const std::optional<std::string> text = m_file.Open(m_state.CurFileName);
  if (!text) return false;
  const rich_text::TextDifference difference = rich_text::DifferenceOf(m_control.Text(), *text);
  if (!difference.IsEmpty()) {
    m_undo.tmrWait_ThatTime();  // a step of its own
    ViewKeeper view(m_control);
    view.SaveView();
    m_control.SetSelStart(difference.Start);
    m_control.SetSelLength(difference.OldEnd - difference.Start);
    m_control.SetSelText(std::string_view(*text).substr(difference.Start, difference.NewEnd - difference.Start));
    m_undo.tmrWait_ThatTime();
    view.RestoreView();
    ColourScan();
  }
  m_recovery.Settled(m_file.Identity());
  SetSaved(true);
  UpdateStatus();
  return true;
}

bool Document::AskForName(std::string& path) {
  path = m_frame.GetSaveFile("Save Script", m_state.Template.TName + " File", m_state.Template.DefaultExtension, "");
  return !path.empty();
}

bool Document::SaveFile(const std::string& path) {
  std::string target = path;
  const bool asks = path.empty();
  if (asks && !AskForName(target)) return false;
  if (!m_file.Save(target, m_control.Text())) {
    m_undo.ForgetSaved();  // the file may hold another program's text now
    return false;
  }
  m_recovery.Settled(m_file.Identity());
  if (asks || target != m_state.CurFileName) {
    m_state.CurFileName = target;
    m_window.SetCaption(platform::FileNameOf(target));
  }
  SetSaved(true);
  if (!m_state.CurSFileName.empty() && !m_state.SSaved) m_window.SaveSynonyms(m_state.CurSFileName);
  return true;
}

/// Nor is it saved when undo has led back to where it was.
void Document::SetUnsaved() {
  m_undo.ForgetSaved();
  SetSaved(false);
}

void Document::SetSaved(bool saved) {
  m_state.Saved = saved;
  if (saved) m_undo.MarkSaved();
  if (m_window.IsActive()) m_frame.EnableTool("save", !saved);
  m_frame.UpdateWindowTabs();
}

bool Document::MayLose(const std::string& question, const std::function<bool()>& save) {
  m_window.BringToFront();
  const auto answer = m_frame.Prompts().Show({.Text = question,
                                              .Buttons = platform::PromptButtons::YesNoCancel,
                                              .Icon = platform::PromptIcon::Question,
                                              .Default = platform::PromptAnswer::Cancel});
  return answer == platform::PromptAnswer::Yes ? save() : answer == platform::PromptAnswer::No;
}

bool Document::MayClose() {
  m_popups->CloseAll();
  const std::string caption = m_window.Caption();
  const bool may = (m_state.Saved || MayLose("Save changes to " + caption + " before closing?",
                                             [this] { return SaveFile(m_state.CurFileName); })) &&
                   (m_state.SSaved || MayLose("Save changes to Synonyms for " + caption + "?",
                                              [this] { return m_window.SaveSynonyms(m_state.CurSFileName); }));
  if (may) m_recovery.Closed();
  return may;
}

// The template.

bool Document::ChooseTemplateFile(std::string& fileName) {
  if (!platform::FileExists(fileName)) fileName.clear();
  if (fileName.empty()) fileName = m_frame.AskTemplate();
  m_state.Template.TemplateFile = fileName.empty() ? templates::NoTemplate : fileName;
  return !fileName.empty();
}

void Document::OfferAssociation(const std::string& fileName) {
  if (m_state.CurFileName.empty()) return;
  const std::string extension = platform::FileExtension(platform::FileNameOf(m_state.CurFileName));
  if (!m_frame.GetTemplateOf(extension).empty()) return;
  if (!settings::WantsForAllFiles(m_frame.Prompts(), extension)) return;
  m_frame.AddAssociation({"", extension, fileName});
  m_state.Template.TemplateChosen = false;
}

bool Document::LoadFrom(const std::string& fileName, bool noInitialText, std::string& initialText) {
  templates::LoadOptions options;
  options.OverrideTemplateFonts = m_frame.Settings().OverrideTemplateFonts;
  options.NoInitialText = noInitialText;
  options.NameRead = [this] { ShowTemplateName(); };
  templates::PromptMessages messages(m_frame.Prompts());
  templates::LoadResult loaded = templates::LoadTemplate(fileName, m_state.Template, options, messages);
  m_colouring.TemplateChanged();
  if (loaded.Cancelled) return false;
  if (!loaded.Error.empty())
    m_frame.Prompts().Show({.Text = "Could not read " + fileName + "\n\n" + loaded.Error,
                            .Title = "Error Loading Template",
                            .Icon = platform::PromptIcon::Exclamation});
  initialText = std::move(loaded.InitialText);
  return true;
}

void Document::SetTemplate(const std::string& fileName, bool noInitialText) {
  if (fileName == templates::NoTemplate) {
    m_state.Template.ColourTable = BuildColourTable({});
    return;
  }
  std::string chosen = fileName;
  if (!ChooseTemplateFile(chosen)) {
    m_state.Template.TName.clear();
    ShowTemplateName();
    ColourScan();
    templates::EmptyTemplate(m_state.Template);
    m_colouring.TemplateChanged();
    return;
  }
  OfferAssociation(chosen);
  std::string initialText;
  if (!LoadFrom(chosen, noInitialText, initialText)) return m_window.CloseWindow();
  m_state.Template.ColourTable = BuildColourTable(m_state.Template.Colours);
  if (m_control.Length() == 0 && !initialText.empty()) SetTextUnrecorded(initialText);
  m_recovery.HeadChanged();
  ColourScan();
  EnableButtons();
  UpdateFont();
  UpdateStatus();
}

// The window.

void Document::SetUseFont(std::int16_t useFont) {
  m_state.Template.UseFont = useFont;
  UpdateFont();
  EnableButtons();
}

void Document::UpdateFont() {
  m_view.SaveView();
  {
    const ProgramChange change(m_state);
    m_control.SetFont(m_frame.Settings().FontOf(m_state.Template.UseFont));
  }
  m_view.RestoreView();
}

void Document::WordWrap(bool on) {
  m_control.SetWordWrap(on);
  m_state.WordWrapOn = on;
}

void Document::Undo() {
  if (Busy()) return;
  m_undo.Undo();
  NoteWhetherSaved();
}

void Document::Redo() {
  if (Busy()) return;
  m_undo.Redo();
  NoteWhetherSaved();
}

void Document::NoteWhetherSaved() {
  if (!m_state.Saved && m_undo.AtSaved()) SetSaved(true);
}

void Document::EnableUndoTools() {
  if (!m_window.IsActive()) return;
  m_frame.EnableTool("miUndo", !m_undo.UndoStack().empty());
  m_frame.EnableTool("miRedo", !m_undo.RedoStack().empty());
}

void Document::EnableButtons() {
  if (!m_window.IsActive()) return;
  for (const std::string_view tool : DocumentTools()) m_frame.EnableTool(tool, true);
  m_frame.CheckTool("miWordWrap", m_state.WordWrapOn);
  m_frame.EnableTool("save", !m_state.Saved);
  m_frame.EnableTool("GenPrev", m_state.Template.TName == "JavaScript");
  m_frame.EnableTool("SaveExec", !m_state.Template.ExecuteCommand.empty());
  m_frame.CheckTool("fntProportional", m_state.Template.UseFont == 1);
  m_frame.CheckTool("fntFixedWidth", m_state.Template.UseFont == 2);
  m_frame.CheckTool("fntDOS", m_state.Template.UseFont == 3);
  EnableUndoTools();
}

void Document::SetPopups(PopupHost& popups) {
  m_popups = &popups;
  m_keys.SetPopups(popups);
}

void Document::Activated() {
  EnableButtons();
  EnableSelectionTools();
  m_frame.Status().SetOverwrite(m_state.Overwrite);
  if (!m_state.Colouring) m_frame.Status().SetStyle(platform::StatusStyle::Normal);
  UpdateStatus();
  m_frame.UpdateWindowTabs();
}

void Document::ShowTemplateName() {
  if (m_window.IsActive()) m_frame.Status().SetPanelText("Template", TemplateText(m_state.Template.TName));
}

void Document::ShowSize() {
  if (m_window.IsActive()) m_frame.Status().SetPanelText("DocSize", SizeText(m_state.LineCount));
}

// Cutting and copying are for what the user has selected.
void Document::EnableSelectionTools() {
  if (!m_window.IsActive()) return;
  for (const char* tool : {"miCopy", "miCut"}) m_frame.EnableTool(tool, m_keys.ReallySelected());
}

void Document::UpdateStatus() {
  m_lines.RecolourWhenLeft();
  if (!m_window.IsActive()) return;
  const std::size_t start = m_control.SelStart();
  if (m_control.SelLength() > 0) {
    m_frame.Status().SetPanelText("CoOrds", SelectionText(m_state.SelectedLines));
  } else {
    m_frame.Status().SetPanelText("CoOrds", CaretText(m_control.LineOf(start), m_control.ColumnOf(start)));
  }
  ShowSize();
  ShowTemplateName();
}

// The control's events.

bool Document::CancelColouring() {
  const bool wasColouring = m_state.Colouring;
  m_state.Colouring = false;
  return wasColouring;
}

bool Document::KeyDown(int keyCode, int shift) {
  m_state.KeyTyped = false;
  if (m_popups->KeyDown(keyCode, shift)) return true;
  if (!m_undo.TakesKey(keyCode, shift)) return m_keys.KeyDown(keyCode, shift);
  NoteWhetherSaved();
  return true;
}

// The character has been typed by now, and what moves the caret next, a command perhaps, is no typing.
void Document::KeyUp(int keyCode, int shift) {
  if (m_popups->KeyUp(keyCode, shift)) return;
  m_keys.SelectForOverwrite();
  UpdateStatus();
  m_state.KeyTyped = false;
}

void Document::Change(const platform::TextChange& change) {
  m_recovery.Changed(change, m_state.Mode == UndoMode::Program);
  m_undo.RecordChange(change);
  // Even what a pop-up writes for the user has to be saved; only what the program rewrites has not.
  if (m_state.Saved && m_state.Mode != UndoMode::Program) SetSaved(false);
  if (m_state.DontChange) return;
  if (m_lines.ProcessChange()) m_popups->CloseToolTip();
  ShowSize();
  if (m_control.Enabled() && m_window.IsActive()) m_control.SetFocus();
}

void Document::SelChange() {
  m_lines.RecordSelection();
  if (m_keys.SelectForOverwrite()) return;  // and that was told, too
  EnableSelectionTools();
  UpdateStatus();
}

bool Document::MouseDown(int button, int, int x, int y) {
  m_state.KeyTyped = false;
  if (button != 2) return false;
  if (!m_keys.ReallySelected()) m_control.SetSelStart(m_control.OffsetAt(x, y));
  m_frame.ShowTextPopup(x, y);
  return true;
}

void Document::EditEverywhere(const std::function<void()>& edit) {
  m_state.DontChange = true;
  edit();
  m_state.DontChange = false;
  m_state.EditedLine = 0;
  m_state.LineCount = m_control.LineCount();
  UpdateStatus();
  if (m_frame.Settings().UseColours) ColourScan();
}

void Document::FilesDropped(const std::vector<std::string>& paths) {
  for (const std::string& path : paths)
    if (platform::FileExists(path)) m_frame.OpenFile(platform::FullPathName(path, "/"));
}

}  // namespace editor
