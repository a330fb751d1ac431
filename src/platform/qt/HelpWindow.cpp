#include "platform/qt/HelpWindow.h"

#include <QApplication>
#include <QShortcut>
#include <QSplitter>
#include <QStyle>
#include <QToolBar>
#include <QWindow>

#include "platform/qt/ToolIcon.h"

namespace platform::qt {
namespace {

constexpr int NavigationWidth = 270, PageWidth = 690, Height = 680, MostZoom = 12;

}  // namespace

HelpWindow::HelpWindow(std::unique_ptr<HelpCollection> collection, Shell& shell)
    : m_collection(std::move(collection)),
      m_navigation(new HelpNavigation(*m_collection, this)),
      m_page(new HelpBrowser(*m_collection, shell, this)) {
  setObjectName(QStringLiteral("HelpWindow"));
  auto* halves = new QSplitter(this);
  halves->addWidget(m_navigation);
  halves->addWidget(m_page);
  halves->setStretchFactor(1, 1);
  halves->setSizes({NavigationWidth, PageWidth});
  halves->setChildrenCollapsible(false);
  setCentralWidget(halves);
  MakeTools();
  MakeKeys();
  resize(NavigationWidth + PageWidth, Height);
  connect(m_navigation, &HelpNavigation::PageWanted, m_page, [this](const QUrl& page) { m_page->setSource(page); });
  connect(m_navigation, &HelpNavigation::FoundPageWanted, this, &HelpWindow::OpenFound);
  connect(m_page, &QTextBrowser::sourceChanged, this, [this](const QUrl& page) {
    m_page->Mark({}, false);
    m_navigation->PageShown(page);
    setWindowTitle(m_page->documentTitle() + QStringLiteral(" – Quillmark Help"));
  });
  m_page->setSource(HelpCollection::UrlOf(""));
}

// The widgets look into the collection, so they go first.
HelpWindow::~HelpWindow() {
  delete takeCentralWidget();
}

void HelpWindow::MakeTools() {
  auto* bar = addToolBar(tr("Help"));
  bar->setMovable(false);
  bar->setContextMenuPolicy(Qt::PreventContextMenu);
  const auto add = [&](const QIcon& icon, const QString& text, const QKeySequence& key, auto action) {
    QAction* tool = bar->addAction(icon, text, m_page, action);
    tool->setShortcut(key);
    tool->setToolTip(QStringLiteral("%1 (%2)").arg(text, key.toString(QKeySequence::NativeText)));
    return tool;
  };
  QAction* back = add(style()->standardIcon(QStyle::SP_ArrowBack), tr("Back"), QKeySequence(Qt::ALT | Qt::Key_Left),
                      &QTextBrowser::backward);
  QAction* forward = add(style()->standardIcon(QStyle::SP_ArrowForward), tr("Forward"),
                         QKeySequence(Qt::ALT | Qt::Key_Right), &QTextBrowser::forward);
  add(ToolIcon("contents"), tr("Start page"), QKeySequence(Qt::ALT | Qt::Key_Home),
      [this] { m_page->setSource(HelpCollection::UrlOf("")); });
  back->setEnabled(false);
  forward->setEnabled(false);
  connect(m_page, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
  connect(m_page, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
}

void HelpWindow::MakeKeys() {
  const auto add = [this](const QKeySequence& key, auto action) {
    connect(new QShortcut(key, this), &QShortcut::activated, this, action);
  };
  add(QKeySequence(Qt::Key_Escape), [this] { close(); });
  add(QKeySequence(Qt::CTRL | Qt::Key_F), [this] { m_navigation->ShowSearch(); });
  add(QKeySequence(Qt::CTRL | Qt::Key_Plus), [this] { Zoom(1); });
  add(QKeySequence(Qt::CTRL | Qt::Key_Equal), [this] { Zoom(1); });
  add(QKeySequence(Qt::CTRL | Qt::Key_Minus), [this] { Zoom(-1); });
  add(QKeySequence(Qt::CTRL | Qt::Key_0), [this] { Zoom(-m_zoom); });
  add(QKeySequence(Qt::Key_F6), [this] {
    if (m_page->hasFocus())
      m_navigation->TakeKeyboard();
    else
      m_page->setFocus();
  });
}

void HelpWindow::Zoom(int steps) {
  if (std::abs(m_zoom + steps) > MostZoom) return;
  m_zoom += steps;
  m_page->zoomIn(steps);
}

void HelpWindow::ShowContents() {
  BringToFront();
  m_navigation->ShowContents();
}

void HelpWindow::ShowKeywords() {
  BringToFront();
  m_navigation->ShowKeywords();
}

void HelpWindow::ShowPage(std::string_view page) {
  BringToFront();
  m_page->setSource(HelpCollection::UrlOf(page));
  m_page->setFocus();
}

void HelpWindow::OpenFound(const QUrl& page, const std::vector<std::string>& words) {
  m_page->setSource(page);
  m_page->Mark(words, true);
}

// A dialog that must be answered blocks all windows but those that belong to it. Which windows are blocked is settled
// when a window is shown, so one that is shown already is shown anew.
void HelpWindow::BringToFront() {
  winId();  // makes the window that belongs to the dialog
  const QWidget* dialog = QApplication::activeModalWidget();
  QWindow* owner = dialog ? dialog->windowHandle() : nullptr;
  if (owner != windowHandle()->transientParent() && isVisible()) hide();
  windowHandle()->setTransientParent(owner);
  if (!isVisible() && !m_place.isEmpty()) restoreGeometry(m_place);
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
}

void HelpWindow::hideEvent(QHideEvent* event) {
  m_place = saveGeometry();
  QMainWindow::hideEvent(event);
}

}  // namespace platform::qt
