#pragma once
// Template editors in a real frame, used with keys and mouse. The frame's templates are copies in a folder of the test.

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <stdexcept>

#include "shell/ui/BackWin.h"
#include "template_editor/ui/frmTemplate.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TemporaryFolder.h"

namespace tests {

class FormTest : public testing::Test {
 protected:
  using Form = template_editor::ui::frmTemplate;

  FormTest() {
    Frame.resize(1200, 900);
    Frame.show();
    Frame.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Frame));
  }

  /// The editor in front.
  Form& Active() const {
    const QMdiSubWindow* window = Frame.findChild<QMdiArea*>()->currentSubWindow();
    auto* form = window ? qobject_cast<Form*>(window->widget()) : nullptr;
    if (!form) throw std::runtime_error("no template editor is active");
    return *form;
  }
  Form& NewTemplate() {
    Frame.ActiveBar_ToolClick("newTemplate");
    return Active();
  }
  Form& OpenTemplate(const std::string& path) {
    Prompts.ExpectOpenFile("Open Template", path);
    Frame.ActiveBar_ToolClick("OpenTemplate");
    return Active();
  }

  template <typename Widget = QWidget>
  Widget& Child(const char* name) const {
    return Child<Widget>(Active(), name);
  }
  template <typename Widget>
  static Widget& Child(const QWidget& window, const char* name) {
    auto* child = window.findChild<Widget*>(QString::fromUtf8(name));
    if (!child) throw std::runtime_error(std::string("no control ") + name);
    return *child;
  }
  std::string TextOf(const char* field) const { return Child<QLineEdit>(field).text().toStdString(); }
  QAction& Tool(const char* name) const { return Child<QAction>(Frame, name); }
  void ShowPage(int page) const { Child<QTabWidget>("TabStrip").setCurrentIndex(page); }

  // What the user does; what follows from it in the event loop has been done, too.
  static void Press(int key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    QCoreApplication::processEvents();
  }
  static void Alt(char letter) { Press(letter, Qt::AltModifier); }
  static void Type(const char* text) {
    QTest::keyClicks(QApplication::focusWidget(), QString::fromUtf8(text));
    QCoreApplication::processEvents();
  }
  /// Types over what the field has.
  static void Enter(const char* text) {
    Press(Qt::Key_A, Qt::ControlModifier);
    Type(text);
  }
  void Click(const char* button) const {
    auto& widget = Child<QAbstractButton>(button);
    QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(8, widget.height() / 2));
    QCoreApplication::processEvents();
  }
  void ClickRow(const char* list, int row) const {
    auto& view = Child<QAbstractItemView>(list);
    const QModelIndex index = view.model()->index(row, 0);
    view.scrollTo(index);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
    QCoreApplication::processEvents();
  }
  int SelectedRow(const char* list) const {
    const QModelIndexList rows = Child<QAbstractItemView>(list).selectionModel()->selectedIndexes();
    return rows.isEmpty() ? -1 : rows.first().row();
  }
  int RowCount(const char* list) const { return Child<QAbstractItemView>(list).model()->rowCount(); }

  /// Does something with the modal window that comes up next.
  template <typename Action>
  static void InModalWindow(Action action) {
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, action] {
      QWidget* window = QApplication::activeModalWidget();
      if (!window || !window->isActiveWindow()) return;
      timer->stop();
      timer->deleteLater();
      action(*window);
    });
    timer->start(1);
  }

  TemporaryFolder Folder;
  ScriptedPrompts Prompts;
  shell::ui::BackWin Frame{Prompts, Folder.Path()};
};

}  // namespace tests
