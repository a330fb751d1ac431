#include "shell/ui/BackWin.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMimeData>
#include <QTimer>

#include "platform/FileParsing.h"
#include "platform/Files.h"
#include "shell/FileFilters.h"
#include "shell/TemplateList.h"
#include "shell/ToolTable.h"
#include "shell/WindowList.h"
#include "shell/ui/WindowKeys.h"

namespace shell::ui {
namespace {

constexpr const char* TemplateFileType = "Template Definition File";

editor::ui::Mainwin* DocumentIn(const QMdiSubWindow* window) {
  return window ? qobject_cast<editor::ui::Mainwin*>(window->widget()) : nullptr;
}

}  // namespace

BackWin::BackWin(platform::Prompts& prompts, std::string programFolder)
    : m_prompts(prompts),
      m_programFolder(std::move(programFolder)),
      m_templateList(ReadTemplateList(m_programFolder)),
      m_windows(new QMdiArea(this)),
      m_status(new platform::qt::StatusBar(this)),
      m_commands([this] { return ActiveChild(); }),
      m_bar(*this, DesignedBar(), BarEvents()) {
  setObjectName(QStringLiteral("BackWin"));
  setWindowTitle(QStringLiteral("Quillmark"));
  setAcceptDrops(true);
  setCentralWidget(m_windows);
  setStatusBar(m_status);
  resize(1000, 720);
  if (!m_templateList.empty()) m_defNewTemplate = m_templateList.front();
  connect(m_windows, &QMdiArea::subWindowActivated, this, &BackWin::WindowActivated);
  connect(m_status, &platform::qt::StatusBar::TemplateClicked, this, [this] {
    if (editor::ui::Mainwin* document = ActiveDocument()) document->SetTemplate("");
  });
  m_designedLayout = m_bar.SaveLayout();
  BindFileCommands();
  BindEditCommands();
  BindWindowCommands();
  BindHelpCommands();
  DisableWaitingTools();
  DisableDocumentTools();
  AddWindowKeys(*this, *m_windows);
  m_status->SetStyle(platform::StatusStyle::Simple);
}

// Windows still tell the frame what happens to them while they go, so they go first.
BackWin::~BackWin() {
  disconnect(m_windows, nullptr, this, nullptr);
  delete takeCentralWidget();
}

// Documents.

editor::ui::Mainwin* BackWin::AddDocument() {
  const QMdiSubWindow* active = m_windows->currentSubWindow();
  const Qt::WindowStates state = active ? active->windowState() : Qt::WindowMaximized;
  auto* document = new editor::ui::Mainwin(*this);
  QMdiSubWindow* window = m_windows->addSubWindow(document);
  window->setWindowIcon(windowIcon());
  window->resize(720, 480);
  RemoveWindowKeys(*window);
  if (state & Qt::WindowMinimized)
    window->showMinimized();
  else
    (state & Qt::WindowMaximized) ? window->showMaximized() : window->show();
  return document;
}

std::string BackWin::TemplateFor(const std::string& path) const {
  const std::string file = GetTemplateOf(platform::FileExtension(path));
  return file.empty() ? m_settings.DefOpenTemplate : file;
}

void BackWin::OpenFile(const std::string& path) {
  if (!platform::FileExists(path)) {
    m_prompts.Show(
        {.Text = path + " does not exist.", .Title = "Error opening file...", .Icon = platform::PromptIcon::Critical});
    return;
  }
  editor::ui::Mainwin* document = AddDocument();
  document->SetTemplate(TemplateFor(path), true);
  if (!document->Closed()) document->OpenFile(path);
}

void BackWin::NewDocument() {
  AddDocument()->SetTemplate(m_defNewTemplate.FileName.empty() ? templates::NoTemplate : m_defNewTemplate.FileName);
}

editor::ui::Mainwin* BackWin::ActiveDocument() const {
  return DocumentIn(m_windows->currentSubWindow());
}

std::size_t BackWin::WindowCount() const {
  return static_cast<std::size_t>(m_windows->subWindowList().size());
}

void BackWin::WindowActivated(QMdiSubWindow* window) {
  if (editor::ui::Mainwin* document = DocumentIn(window); document && !document->Closed()) return document->Activated();
  if (WindowCount() > 0) return;
  DisableDocumentTools();
  m_status->SetStyle(platform::StatusStyle::Simple);
  UpdateWindowTabs();
}

void BackWin::DisableDocumentTools() {
  for (const std::string_view tool : editor::DocumentTools()) EnableTool(tool, false);
}

void BackWin::UpdateWindowTabs() {
  const QList<QMdiSubWindow*> open = m_windows->subWindowList();
  QList<QMdiSubWindow*> shown;
  std::vector<const ChildWindow*> children;
  for (QMdiSubWindow* window : open)
    if (const editor::ui::Mainwin* document = DocumentIn(window); document && !document->Closed()) {
      shown.push_back(window);
      children.push_back(document);
    }
  m_bar.ClearBand("WindowTabs");
  for (const ListedTool& tool : WindowTabs(children, ActiveChild(), nullptr, m_prompts)) {
    QMdiSubWindow* window = shown[static_cast<qsizetype>(tool.Index)];
    const bool saved = children[tool.Index]->Saved();
    const std::string caption = children[tool.Index]->Caption();
    window->setWindowTitle(QString::fromStdString(saved ? caption : caption + " *"));
    m_bar.AddTool("WindowTabs", {.Name = tool.Name,
                                 .Id = tool.Identifier,
                                 .Caption = tool.Caption,
                                 .Description = "Show this Window",
                                 .Tip = tool.Description,
                                 .Tag = static_cast<int>(open.indexOf(window)) + 1,
                                 .Key = reinterpret_cast<std::uintptr_t>(window),
                                 .Checked = tool.Checked,
                                 .Icon = ""});
  }
  m_bar.RecalcLayout();
}

// What documents ask for.

void BackWin::ShowTextPopup(int x, int y) {
  if (editor::ui::Mainwin* document = ActiveDocument())
    m_bar.Menu("TextPopup")->popup(document->TextArea().mapToGlobal(QPoint(x, y)));
}

std::string BackWin::GetSaveFile(std::string_view title, std::string_view extName, std::string_view ext,
                                 const std::string& suggested) {
  return m_prompts.AskSaveFile(
      {.Title = std::string(title), .Filters = FiltersFor(extName, ext), .Folder = "", .SuggestedName = suggested});
}

std::string BackWin::AskTemplate() {
  return m_prompts.AskOpenFile({.Title = "Select Template",
                                .Filters = FiltersFor(TemplateFileType, "def"),
                                .Folder = m_programFolder,
                                .SuggestedName = ""});
}

std::string BackWin::GetTemplateOf(std::string_view extension) const {
  const std::string file = TemplateOfExtension(m_templateList, extension);
  return file.empty() ? TemplateOfExtension(m_associations, extension) : file;
}

// The window.

void BackWin::closeEvent(QCloseEvent* event) {
  m_windows->closeAllSubWindows();
  const bool allClosed = WindowCount() == 0;
  event->setAccepted(allClosed);
  for (const QMdiSubWindow* window : m_windows->subWindowList())
    if (const editor::ui::Mainwin* document = DocumentIn(window); document && document->Busy())
      QTimer::singleShot(0, this, &QWidget::close);
}

void BackWin::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void BackWin::dropEvent(QDropEvent* event) {
  for (const QUrl& url : event->mimeData()->urls())
    if (url.isLocalFile()) OpenFile(url.toLocalFile().toStdString());
}

}  // namespace shell::ui
