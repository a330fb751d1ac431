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
      m_tools(*this, [this](const std::string& name) { ActiveBar_ToolClick(name); }) {
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
  DisableDocumentTools();
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
  for (const std::string_view tool : editor::DocumentTools()) m_tools.Enable(tool, false);
}

void BackWin::UpdateWindowTabs() {
  for (QMdiSubWindow* window : m_windows->subWindowList())
    if (const editor::ui::Mainwin* shown = DocumentIn(window)) {
      const QString caption = QString::fromStdString(shown->Caption());
      window->setWindowTitle(shown->Saved() ? caption : caption + QStringLiteral(" *"));
    }
}

// What documents ask for.

void BackWin::ShowTextPopup(int x, int y) {
  if (editor::ui::Mainwin* document = ActiveDocument())
    m_tools.TextPopup()->popup(document->TextArea().mapToGlobal(QPoint(x, y)));
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

// Commands.

void BackWin::ActiveBar_ToolClick(const std::string& name) {
  editor::ui::Mainwin* document = ActiveDocument();
  if (name == "new")
    NewDocument();
  else if (name == "open")
    OpenByDialog();
  else if (name == "exit")
    close();
  else if (name == "miWTileV")
    m_windows->tileSubWindows();
  else if (name == "miWCascade")
    m_windows->cascadeSubWindows();
  else if (name == "miHAbout")
    ShowAbout();
  else if (document)
    DocumentCommand(name, *document);
  if (editor::ui::Mainwin* active = ActiveDocument()) active->setFocus();
}

void BackWin::DocumentCommand(const std::string& name, editor::ui::Mainwin& document) {
  platform::qt::RichTextBox& text = document.TextArea();
  if (name == "save")
    document.SaveFile(document.CurFileName());
  else if (name == "saveas")
    document.SaveFile("");
  else if (name == "miUndo")
    document.Undo();
  else if (name == "miRedo")
    document.Redo();
  else if (name == "miCut")
    text.Cut();
  else if (name == "miCopy")
    text.Copy();
  else if (name == "miPaste")
    text.Paste();
  else if (name == "miSelectAll")
    text.SelectAll();
  else if (name == "miWordWrap")
    document.WordWrap(m_tools.IsChecked(name));
  else if (name == "miRefresh") {
    const bool useColours = m_settings.UseColours;
    m_settings.UseColours = true;
    document.ColourScan();
    m_settings.UseColours = useColours;
  }
}

void BackWin::OpenByDialog() {
  const editor::ui::Mainwin* document = ActiveDocument();
  const std::string path = m_prompts.AskOpenFile({.Title = "Open Script",
                                                  .Filters = TemplateFilters(m_templateList, m_associations),
                                                  .Folder = document ? platform::FolderOf(document->CurFileName()) : "",
                                                  .SuggestedName = ""});
  if (!path.empty()) OpenFile(path);
}

void BackWin::ShowAbout() {
  m_prompts.Show({.Text = "Quillmark " QUILLMARK_VERSION "\n\nA script editor whose languages come from plain-text "
                          "templates.\nFree software under the GNU General Public License, version 3 or later.",
                  .Icon = platform::PromptIcon::Information});
}

// The window.

// The user comes back from another program, which may have written the file.
void BackWin::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() != QEvent::ActivationChange || !isActiveWindow()) return;
  if (editor::ui::Mainwin* document = ActiveDocument())
    QTimer::singleShot(0, document, &editor::ui::Mainwin::CheckFile);
}

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
