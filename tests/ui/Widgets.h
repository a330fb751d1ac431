#pragma once
// What tests of real windows do with them: find a control by its name, press keys and buttons, and use the modal window
// that comes up.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QKeySequence>
#include <QTest>
#include <QTimer>
#include <stdexcept>
#include <string>

namespace tests {

/// The control of that name and kind; a test without it ends here.
template <typename Widget = QWidget>
Widget& Child(const QObject& window, const char* name) {
  auto* child = window.findChild<Widget*>(QString::fromUtf8(name));
  if (!child) throw std::runtime_error(std::string("no control ") + name);
  return *child;
}

/// Shows a window in front: there is no window manager to do so.
inline void Activate(QWidget& window) {
  window.show();
  window.activateWindow();
  EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }));
}

/// Clicks a button, or the mark of a check box or an option.
inline void Click(const QWidget& window, const char* button) {
  auto& widget = Child<QAbstractButton>(window, button);
  QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(8, widget.height() / 2));
  QCoreApplication::processEvents();
}

/// Presses keys where the focus is: characters, and in angle brackets keys as the toolkit writes them, such as
/// "<Alt+X>", "<Ctrl+PgDown>" and "<Return>". What follows from each in the event loop has been done, too.
inline void Play(const std::string& keys) {
  const QString text = QString::fromStdString(keys);
  for (qsizetype i = 0; i < text.size(); ++i) {
    const qsizetype end = text[i] == u'<' ? text.indexOf(u'>', i) : i;
    if (end == i) {
      QTest::keyClicks(QApplication::focusWidget(), text.mid(i, 1));
    } else {
      const QKeyCombination key = QKeySequence(text.mid(i + 1, end - i - 1), QKeySequence::PortableText)[0];
      QTest::keyClick(QApplication::focusWidget(), key.key(), key.keyboardModifiers());
    }
    i = end;
    QCoreApplication::processEvents();
  }
}

/// Does something with the modal window that comes up next, once it is in front.
template <typename Window = QWidget, typename Action>
void InModalWindow(Action action) {
  auto* timer = new QTimer(qApp);
  QObject::connect(timer, &QTimer::timeout, timer, [timer, action] {
    QWidget* window = QApplication::activeModalWidget();
    if (!window || !window->isVisible()) return;
    timer->stop();
    timer->deleteLater();
    Activate(*window);
    auto* expected = qobject_cast<Window*>(window);
    EXPECT_NE(expected, nullptr) << "another window than expected";
    expected ? action(*expected) : static_cast<void>(window->close());
  });
  timer->start(1);
}

}  // namespace tests
