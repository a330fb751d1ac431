#include "editor/ui/Mainwin.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTimer>
#include <QVBoxLayout>

#include "platform/qt/Text.h"

namespace editor::ui {

Mainwin::Mainwin(DocumentFrame& frame) : m_textArea(new platform::qt::RichTextBox(this)) {
  setObjectName(QStringLiteral("Mainwin"));
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(QStringLiteral("Untitled"));
  m_textArea->setObjectName(QStringLiteral("TextArea"));
  m_textArea->setAccessibleName(tr("Text"));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(m_textArea);
  setFocusProxy(m_textArea);
  m_document = std::make_unique<Document>(*m_textArea, frame, *this);
}

Mainwin::~Mainwin() = default;

void Mainwin::Activated() {
  m_document->Activated();
  m_textArea->setFocus();
  QTimer::singleShot(0, this, &Mainwin::CheckFile);  // a question belongs behind the change of windows
}

void Mainwin::CheckFile() {
  if (!m_closed && !QApplication::activeModalWidget()) m_document->CheckFile();
}

std::string Mainwin::Caption() const {
  return windowTitle().toStdString();
}

void Mainwin::SetCaption(std::string_view caption) {
  setWindowTitle(platform::qt::Text(caption));
}

void Mainwin::BringToFront() {
  if (QMdiSubWindow* window = platform::qt::SubWindowOf(*this); window && !IsActive())
    window->mdiArea()->setActiveSubWindow(window);
}

void Mainwin::CloseWindow() {
  m_closed = true;
  platform::qt::CloseSoon(*this);
}

void Mainwin::closeEvent(QCloseEvent* event) {
  if (m_document->Busy()) {
    // The run is somewhere below in the stack; it ends at once, and then the window can go.
    m_document->CancelColouring();
    event->ignore();
    platform::qt::CloseSoon(*this);
    return;
  }
  m_closed = m_closed || m_document->MayClose();
  event->setAccepted(m_closed);
  if (m_closed) Q_EMIT Closing();
}

// The control is disabled while colouring runs, and its keys come here.
void Mainwin::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape || !m_document->CancelColouring()) QWidget::keyPressEvent(event);
}

void Mainwin::focusInEvent(QFocusEvent*) {
  m_textArea->setFocus();
}

}  // namespace editor::ui
