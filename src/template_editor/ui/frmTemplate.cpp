#include "template_editor/ui/frmTemplate.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScrollArea>
#include <QShortcut>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

#include "platform/qt/Text.h"
#include "template_editor/ui/AccessKeys.h"
#include "template_editor/ui/EditorPages.h"
#include "template_editor/ui/FixedNormalSize.h"
#include "template_editor/ui/frmTemplateMsg.h"

namespace template_editor::ui {
namespace {

/// Holds the pages in its middle, and scrolls where the window is too small for them.
class Surroundings : public QScrollArea {
 public:
  Surroundings(QWidget* pages, QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setAlignment(Qt::AlignCenter);
    setFocusPolicy(Qt::NoFocus);
    setWidget(pages);
  }
  QSize sizeHint() const override { return widget()->sizeHint(); }
};

/// Gives the focus to the first control of a page that can have it.
void FocusFirst(QWidget& page) {
  QWidget* control = &page;
  do {
    const bool belongs = control == &page || page.isAncestorOf(control);
    if (belongs && (control->focusPolicy() & Qt::TabFocus) && control->isVisible() && control->isEnabled())
      return control->setFocus(Qt::TabFocusReason);
    control = control->nextInFocusChain();
  } while (control != &page);
}

}  // namespace

frmTemplate::frmTemplate(EditorFrame& frame)
    : m_holderBox(new QWidget(this)),
      m_tabStrip(new QTabWidget(m_holderBox)),
      m_initialText(new platform::qt::RichTextBox(m_tabStrip)) {
  setObjectName(QStringLiteral("frmTemplate"));
  setAttribute(Qt::WA_DeleteOnClose);
  m_editor = std::make_unique<TemplateEditor>(*m_initialText, frame, *this);
  m_form = std::make_unique<EditorForm>(*m_editor);
  m_initialTextEvents = std::make_unique<InitialTextEvents>(*m_initialText, [this] { m_editor->InitialTextChanged(); });
  m_holderBox->setObjectName(QStringLiteral("HolderBox"));
  m_tabStrip->setObjectName(QStringLiteral("TabStrip"));
  m_tabStrip->setAccessibleName(QStringLiteral("Pages of the template"));
  m_initialText->setObjectName(QStringLiteral("InitialText"));
  m_initialText->setAccessibleName(QStringLiteral("Initial text"));
  MakePages();
  auto* holder = new QVBoxLayout(m_holderBox);
  holder->setSizeConstraint(QLayout::SetFixedSize);
  holder->addWidget(m_tabStrip);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(new Surroundings(m_holderBox, this));
  new AccessKeys(*this);
  for (const auto& [key, pages] : {std::pair(Qt::Key_PageDown, 1), {Qt::Key_PageUp, -1}}) {
    auto* turn = new QShortcut(QKeySequence(Qt::CTRL | key), this);
    turn->setContext(Qt::WidgetWithChildrenShortcut);
    connect(turn, &QShortcut::activated, this, [this, step = pages] { TurnPage(step); });
  }
  connect(m_tabStrip, &QTabWidget::currentChanged, this, &frmTemplate::PageTurned);
  for (QWidget* control : findChildren<QWidget*>()) control->installEventFilter(this);
  m_form->Show();
  FitPages();
  m_lastFocus = m_form->Field(TextField::TemplateName);
}

// The lists still read their rows while they go, for a screen reader perhaps, so they go before the editor.
frmTemplate::~frmTemplate() {
  m_initialTextEvents.reset();
  delete m_holderBox;
}

// Pages.

void frmTemplate::MakePages() {
  m_actionWordsPage = new ActionWordsPage(*m_form, m_tabStrip);
  m_synonymsPage = new SynonymsPage(*m_form, m_tabStrip);
  AddPage(new GeneralPage(*m_form, m_tabStrip), "General", "Set general template options");
  AddPage(new ColourWordsPage(*m_form, m_tabStrip), "Colour Words", "Enter all words which affect colouring");
  AddPage(m_actionWordsPage, "Action Words", "Enter all words which have actions");
  AddPage(m_initialText, "Initial Text", "Enter the text which will appear in every new script");
  AddPage(m_synonymsPage, "Synonyms", "Enter words which are to be treated as other words");
  AddPage(new AboutPage(*m_form, m_tabStrip), "About", "Enter information about this template");
}

void frmTemplate::AddPage(QWidget* page, const char* caption, const char* tip) {
  m_tabStrip->setTabToolTip(m_tabStrip->addTab(page, QString::fromUtf8(caption)), QString::fromUtf8(tip));
}

/// All pages are as large as the largest.
void frmTemplate::FitPages() {
  m_tabStrip->setFixedSize(m_tabStrip->sizeHint());
}

void frmTemplate::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) FitPages();
}

void frmTemplate::TurnPage(int pages) {
  const bool atTabs = m_tabStrip->tabBar()->hasFocus();
  m_tabStrip->setCurrentIndex((m_tabStrip->currentIndex() + pages + m_tabStrip->count()) % m_tabStrip->count());
  if (!atTabs) FocusFirst(*m_tabStrip->currentWidget());
}

void frmTemplate::PageTurned() {
  if (m_tabStrip->currentWidget() == m_synonymsPage) m_synonymsPage->Opened();
}

// Focus and keys.

/// Remembers which control the user went to. Windows of the frame also move the focus themselves, when they are
/// activated and as they are being hidden; that is nothing to remember.
bool frmTemplate::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::FocusIn) return false;
  const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
  const bool byUser = reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason ||
                      reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
  const QMdiSubWindow* window = platform::qt::SubWindowOf(*this);
  if (byUser && window && !window->isHidden()) m_lastFocus = qobject_cast<QWidget*>(watched);
  return false;
}

/// The frame gives the focus to the window; it belongs to the control that had it.
void frmTemplate::focusInEvent(QFocusEvent*) {
  if (m_lastFocus && m_lastFocus->isVisible() && m_lastFocus->isEnabled())
    m_lastFocus->setFocus();
  else if (m_tabStrip)
    m_tabStrip->setFocus();
}

void frmTemplate::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    m_form->PressDefault();
  else
    QWidget::keyPressEvent(event);
}

// The file.

bool frmTemplate::OpenFile(const std::string& path) {
  const bool opened = m_editor->OpenFile(path);
  if (opened) m_initialTextEvents->ForgetUndo();
  m_form->Show();
  PageTurned();
  return opened;
}

bool frmTemplate::SaveFile(const std::string& path) {
  const bool saved = m_editor->SaveFile(path);
  m_form->Show();
  return saved;
}

TemplateRecord frmTemplate::About() const {
  return {m_editor->TextOf(TextField::TemplateName), m_editor->TextOf(TextField::VersionText),
          m_editor->TextOf(TextField::DateBox), m_editor->TextOf(TextField::AuthorBox),
          m_editor->TextOf(TextField::Comments)};
}

// The window.

bool frmTemplate::event(QEvent* event) {
  if (event->type() == QEvent::ParentChange)
    if (QMdiSubWindow* window = platform::qt::SubWindowOf(*this)) new FixedNormalSize(*window);
  return QWidget::event(event);
}

void frmTemplate::Activated() {
  m_actionWordsPage->StackClear();
  m_editor->Activated();
  setFocus();
}

void frmTemplate::SetCaption(std::string_view caption) {
  setWindowTitle(platform::qt::Text(caption));
}

void frmTemplate::BringToFront() {
  if (QMdiSubWindow* window = platform::qt::SubWindowOf(*this)) window->mdiArea()->setActiveSubWindow(window);
}

void frmTemplate::CloseWindow() {
  m_closed = true;
  platform::qt::CloseSoon(*this);
}

LeaveAnswer frmTemplate::AskToLeave(Level level, bool mayChange) {
  return frmTemplateMsg(level, mayChange, this).Ask();
}

void frmTemplate::closeEvent(QCloseEvent* event) {
  m_closed = m_closed || m_editor->MayClose();
  m_form->Show();
  event->setAccepted(m_closed);
  if (m_closed) Q_EMIT Closing();
}

}  // namespace template_editor::ui
