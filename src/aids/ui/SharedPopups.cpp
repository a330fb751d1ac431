#include "aids/ui/SharedPopups.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>

#include "aids/Popups.h"

namespace aids::ui {
namespace {

/// What a document window holds of its pop-ups.
class DocumentPopups : public QObject {
 public:
  DocumentPopups(editor::ui::Mainwin& window, ListWindow& list, TipWindow& tip)
      : QObject(&window),
        m_text(&window.TextArea()),
        m_popups(*m_text, window.Core().State(), list, tip, [&window] { window.Core().TextEdited(); }) {
    window.Core().SetPopups(m_popups);
    m_text->viewport()->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, &DocumentPopups::FocusChanged);
  }

 protected:
  /// The click is looked at when the text has done with it.
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::MouseButtonRelease) QTimer::singleShot(0, this, [this] { m_popups.CloseOutdated(); });
    return false;
  }

 private:
  void FocusChanged(const QWidget*, const QWidget* now) {
    if (now != nullptr && now != m_text && now->window() == m_text->window()) m_popups.CloseAll();
  }

  platform::qt::RichTextBox* m_text;
  Popups m_popups;
};

}  // namespace

SharedPopups::SharedPopups(QWidget& frame)
    : m_list(std::make_unique<ContextList>(&frame)), m_tip(std::make_unique<frmToolTip>(&frame)) {
  m_tip->KeepClearOf(*m_list);
  frame.installEventFilter(this);
}

SharedPopups::~SharedPopups() = default;

void SharedPopups::Serve(editor::ui::Mainwin& document) {
  new DocumentPopups(document, *m_list, *m_tip);
}

void SharedPopups::WatchActivation(bool watch) {
  m_watchesActivation = watch;
  if (!watch) Suspend(false);
}

void SharedPopups::Suspend(bool suspended) {
  m_tip->SetSuspended(suspended);  // the list, shown after it, stands above it
  m_list->SetSuspended(suspended);
}

bool SharedPopups::eventFilter(QObject*, QEvent* event) {
  switch (event->type()) {
    case QEvent::WindowDeactivate:
    case QEvent::WindowActivate:
      if (m_watchesActivation) Suspend(event->type() == QEvent::WindowDeactivate);
      break;
    case QEvent::Move:
    case QEvent::Resize:
      m_list->Place();
      m_tip->Place();
      break;
    default:
      break;
  }
  return false;
}

}  // namespace aids::ui
