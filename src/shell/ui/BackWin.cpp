#include "shell/ui/BackWin.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMimeData>
#include <QTimer>

#include "editor/RecoveryOffer.h"
#include "platform/FileParsing.h"
#include "platform/qt/DroppedFiles.h"
#include "settings/TemplateChoice.h"
#include "settings/TemplateQuestions.h"
#include "shell/CaretPlace.h"
#include "shell/FileFilters.h"
#include "shell/TemplateList.h"
#include "shell/ToolTable.h"
#include "shell/ui/FrameLifetime.h"
#include "shell/ui/FramePlacement.h"
#include "shell/ui/FrameWindows.h"
#include "shell/ui/HandOverListener.h"
#include "shell/ui/WindowKeys.h"
#include "template_editor/ui/frmTemplate.h"

namespace shell::ui {
namespace {

editor::ui::Mainwin* DocumentIn(const QMdiSubWindow* window) {
  return window ? qobject_cast<editor::ui::Mainwin*>(window->widget()) : nullptr;
}

}  // namespace

BackWin::BackWin(platform::Prompts& prompts, const FramePlaces& places)
    : m_prompts(prompts),
      m_windows(new FrameWindows(this)),
      m_status(new platform::qt::StatusBar(this)),
      m_commands([this] { return ActiveChild(); }),
      m_bar(*this, DesignedBar(), BarEvents()),
      m_menus(m_bar, m_values, m_prompts),
      m_layout(m_bar, m_prompts, places.ProgramFolder + "/" + settings::ToolbarLayout::FileName,
               {.PopulateTemplates = [this] { m_menus.PopulateTemplates(); },
                .EnableButtons = [this] { EnableButtons(); },
                .UpdateWindowTabs = [this] { UpdateWindowTabs(); }}),
      m_aids(*this, *this, places.ProgramFolder) {
  m_values.ProgramFolder = places.ProgramFolder;
  m_values.StartFolder = places.StartFolder;
  setObjectName(QStringLiteral("BackWin"));
  setWindowTitle(QStringLiteral("Quillmark"));
  setAcceptDrops(true);
  setCentralWidget(m_windows);
  setStatusBar(m_status);
  resize(1000, 720);
  connect(m_windows, &QMdiArea::subWindowActivated, this, &BackWin::WindowActivated);
  connect(m_status, &platform::qt::StatusBar::TemplateClicked, this, [this] {
    if (editor::ui::Mainwin* document = ActiveDocument()) document->SetTemplate("");
  });
  BindCommands();
  DisableDocumentTools();
  AddWindowKeys(*this, *m_windows);
  m_status->SetStyle(platform::StatusStyle::Simple);
  m_lifetime = MakeLifetime(places);
  m_listener = std::make_unique<HandOverListener>(
      places.InstanceFolder,
      HandOverListener::Actions{.OpenFile = [this](const std::string& argument) { OpenHandedOver(argument); },
                                .BringToFront = [this] { BringToFront(); }});
}

BackWin::BackWin(platform::Prompts& prompts, const std::string& programFolder)
    : BackWin(prompts, FramePlaces{.ProgramFolder = programFolder,
                                   .StartFolder = programFolder,
                                   .RegistryPath = "",
                                   .InstanceFolder = "",
                                   .RecoveryFolder = ""}) {
  m_lifetime->SetHelpFile();
  m_menus.PopulateTemplates();
  m_popups.WatchActivation(true);
}

// Windows still tell the frame what happens to them while they go, so they go first.
BackWin::~BackWin() {
  disconnect(m_windows, nullptr, this, nullptr);
  for (const QMdiSubWindow* window : m_windows->subWindowList()) disconnect(window->widget(), nullptr, this, nullptr);
  delete takeCentralWidget();
}

// Start and end.

std::unique_ptr<FrameLifetime> BackWin::MakeLifetime(const FramePlaces& places) {
  return std::make_unique<FrameLifetime>(
      FrameLifetime::Parts{*this, m_values, m_prompts, m_menus, m_layout}, places.RegistryPath,
      FrameLifetime::Actions{.OfferUnsavedText = [this, folder = places.RecoveryFolder] { ProtectUnsavedText(folder); },
                             .OpenFile = [this](const FileArgument& file) { OpenFile(file); },
                             .NewDocument = [this] { NewDocument(); },
                             .HasWindows = [this] { return WindowCount() > 0; },
                             .WatchActivation = [this](bool watch) { m_popups.WatchActivation(watch); }});
}

void BackWin::Load(const CommandLine& commandLine) {
  LoadFrame(*m_lifetime, commandLine, m_values.UseSubclassing);
  m_loaded = true;
  m_listener->Start();
}

void BackWin::ProtectUnsavedText(const std::string& folder) {
  if (folder.empty()) return;
  m_unsavedTexts = std::make_unique<editor::RecoveryStore>(folder);
  editor::OfferRecovery(*m_unsavedTexts, m_prompts,
                        [this](const editor::JournalContent& content) { return AddDocument()->Restore(content); });
}

void BackWin::closeEvent(QCloseEvent* event) {
  event->setAccepted(m_windows->CloseAll());
  if (!event->isAccepted()) {
    // A document that is being coloured stops at once and can close then.
    for (const QMdiSubWindow* window : m_windows->subWindowList())
      if (const editor::ui::Mainwin* document = DocumentIn(window); document && document->Busy())
        QTimer::singleShot(0, this, &QWidget::close);
    return;
  }
  RememberHelp();
  m_help.Hide();
  m_listener.reset();
  if (!std::exchange(m_loaded, false)) return;
  UnloadFrame(*m_lifetime);
  Q_EMIT Unloaded();
}

void BackWin::OpenHandedOver(const std::string& argument) {
  const FileArgument file = ParseFileArgument(argument, m_values.StartFolder);
  OpenFile(file.FullPath.empty() ? FileArgument{argument, argument, 0, 0} : file);
}

void BackWin::BringToFront() {
  if (isMinimized()) setWindowState(windowState() & ~Qt::WindowMinimized);
  raise();
  activateWindow();
}

// Files.

// The choice of a template may ask the user, and events run meanwhile.
QPointer<editor::ui::Mainwin> BackWin::Open(const std::string& path) {
  if (!settings::MayOpen(path, m_prompts)) return nullptr;
  m_menus.AddToHistory(path);
  const QPointer<editor::ui::Mainwin> document = AddDocument();
  const settings::ChosenTemplate chosen = settings::ChooseTemplate(
      path, {m_values.TemplateList, m_values.FileInfos, m_values.Settings, m_values.ProgramFolder}, m_prompts);
  if (!document) return nullptr;
  if (chosen.TemplateChosen) document->SetTemplateChosen(true);
  document->SetTemplate(chosen.File, true);
  if (!document || document->Closed()) return nullptr;
  document->OpenFile(path);
  if (document) m_aids.LoadSynonyms(*document, chosen.Synonyms);
  return document;
}

void BackWin::OpenFile(const FileArgument& file) {
  const QPointer<editor::ui::Mainwin> document = Open(file.FullPath);
  if (file.Line == 0 || !document || document->CurFileName() != file.FullPath) return;
  document->TextArea().SetSelStart(OffsetOf(document->TextArea(), file.Line, file.Column));
}

void BackWin::NewDocument() {
  AddDocument()->SetTemplate(m_values.Settings.DefNewTemplate.FileName);
}

std::string BackWin::GetOpenFile(std::string_view title, std::string_view extName, std::string_view ext,
                                 const std::string& folder) {
  platform::FileQuestion question{.Title = std::string(title),
                                  .Filters = FiltersFor(extName, ext),
                                  .Folder = folder.empty() ? FolderInFront() : folder,
                                  .SuggestedName = ""};
  if (extName == TemplateTypes) {
    question.Filters = TemplateFilters(m_values.TemplateList, m_values.Settings.Associations);
    question.Selected = question.Filters.size() - 1;  // all files: who opens one rarely wants the first template's
  }
  return m_prompts.AskOpenFile(question);
}

std::string BackWin::GetSaveFile(std::string_view title, std::string_view extName, std::string_view ext,
                                 const std::string& suggested) {
  return m_prompts.AskSaveFile({.Title = std::string(title),
                                .Filters = FiltersFor(extName, ext),
                                .Folder = FolderInFront(),
                                .SuggestedName = suggested});
}

std::string BackWin::FolderInFront() const {
  const ChildWindow* child = ActiveChild();
  return child ? platform::FolderOf(child->CurFileName()) : "";
}

std::string BackWin::AskTemplate() {
  const std::string path = settings::SelectTemplate(m_prompts, m_values.ProgramFolder);
  if (!path.empty()) AddExtraTemplate(m_values.ExtraTemplates, path, m_values.ProgramFolder);
  return path;
}

std::string BackWin::GetTemplateOf(std::string_view extension) const {
  return settings::GetTemplateOf(extension, m_values.TemplateList, m_values.Settings.Associations);
}

void BackWin::AddAssociation(const templates::Template& association) {
  m_values.Settings.Associations.push_back(association);
}

// Windows.

editor::ui::Mainwin* BackWin::AddDocument() {
  auto* document = new editor::ui::Mainwin(*this);
  connect(document, &editor::ui::Mainwin::Closing, this, [this, document] { WindowCloses(*document); });
  m_windows->Add(document);
  m_popups.Serve(*document);
  m_aids.Serve(*document);
  return document;
}

editor::ui::Mainwin* BackWin::ActiveDocument() const {
  return DocumentIn(m_windows->currentSubWindow());
}

ChildWindow* BackWin::ActiveChild() const {
  return m_windows->Active();
}

std::size_t BackWin::WindowCount() const {
  return m_windows->Windows().size();
}

void BackWin::WindowActivated(QMdiSubWindow* window) {
  if (editor::ui::Mainwin* document = DocumentIn(window); document && !document->Closed()) return document->Activated();
  if (auto* other = TemplateEditorIn(window); other && !other->Closed()) return TemplateEditorActivated(*other);
  UpdateWindowTabs();
  if (WindowCount() > 0) return;
  DisableDocumentTools();
  m_status->SetStyle(platform::StatusStyle::Simple);
}

void BackWin::WindowCloses(editor::ui::Mainwin& document) {
  settings::RecordClosing(m_values.FileInfos, {.CurFileName = document.CurFileName(),
                                               .CurSFileName = document.CurSFileName(),
                                               .TemplateFile = document.TemplateFile(),
                                               .TemplateChosen = document.TemplateChosen()});
  UpdateWindowTabs(&document);
}

void BackWin::UpdateWindowTabs(const ChildWindow* excluded) {
  m_menus.UpdateWindowTabs(m_windows->Listed(), ActiveChild(), excluded);
  for (QMdiSubWindow* window : m_windows->subWindowList())
    if (const ChildWindow* child = ChildIn(window)) {
      const QString caption = QString::fromStdString(child->Caption());
      window->setWindowTitle(child->Saved() ? caption : caption + QStringLiteral(" *"));
    }
}

void BackWin::FocusChild() {
  if (const QMdiSubWindow* window = m_windows->currentSubWindow(); window && window->widget())
    window->widget()->setFocus();
}

void BackWin::EnableButtons() {
  if (editor::ui::Mainwin* document = ActiveDocument()) document->EnableButtons();
  if (auto* other = TemplateEditorIn(m_windows->currentSubWindow())) TemplateEditorActivated(*other);
}

void BackWin::DisableDocumentTools() {
  for (const std::string_view tool : editor::DocumentTools()) EnableTool(tool, false);
}

void BackWin::ShowTextPopup(int x, int y) {
  if (editor::ui::Mainwin* document = ActiveDocument())
    m_bar.Menu("TextPopup")->popup(document->TextArea().mapToGlobal(QPoint(x, y)));
}

// The window's own events.

bool BackWin::event(QEvent* event) {
  const bool handled = QMainWindow::event(event);
  if (event->type() == QEvent::WindowActivate) FocusChild();
  return handled;
}

// Only a loaded frame has a place of its own to remember.
void BackWin::moveEvent(QMoveEvent* event) {
  QMainWindow::moveEvent(event);
  if (m_loaded) RememberPlace(*this, m_values.Settings.Frame);
}

void BackWin::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  if (m_loaded) RememberPlace(*this, m_values.Settings.Frame);
}

// The user comes back from another program, which may have written the file.
void BackWin::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() != QEvent::ActivationChange || !isActiveWindow()) return;
  if (editor::ui::Mainwin* document = ActiveDocument())
    QTimer::singleShot(0, document, &editor::ui::Mainwin::CheckFile);
}

void BackWin::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void BackWin::dropEvent(QDropEvent* event) {
  for (const std::string& path : platform::qt::DroppedFiles(event->mimeData())) OpenDropped(path);
}

void BackWin::OpenDropped(const std::string& path) {
  const std::string full = platform::FullPathName(path, m_values.StartFolder);
  OpenFile(full.empty() ? path : full);
}

}  // namespace shell::ui
