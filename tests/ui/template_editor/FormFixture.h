#pragma once
// Template editors in a real frame, used with keys and mouse. The frame's templates are copies in a folder of the test.

#include <QAbstractItemView>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTabWidget>

#include "template_editor/ui/frmTemplate.h"
#include "tests/ui/FrameFixture.h"

namespace tests {

class FormTest : public FrameFixture {
 protected:
  using Form = template_editor::ui::frmTemplate;

  FormTest() : FrameFixture("") { m_frame.resize(1200, 900); }

  /// The editor in front.
  Form& Active() const {
    const QMdiSubWindow* window = m_frame.findChild<QMdiArea*>()->currentSubWindow();
    auto* form = window ? qobject_cast<Form*>(window->widget()) : nullptr;
    if (!form) throw std::runtime_error("no template editor is active");
    return *form;
  }
  Form& NewTemplate() {
    m_frame.ActiveBar_ToolClick("newTemplate");
    return Active();
  }
  Form& OpenTemplate(const std::string& path) {
    m_prompts.ExpectOpenFile("Open Template", path);
    m_frame.ActiveBar_ToolClick("OpenTemplate");
    return Active();
  }

  template <typename Widget = QWidget>
  Widget& Child(const char* name) const {
    return tests::Child<Widget>(Active(), name);
  }
  std::string TextOf(const char* field) const { return Child<QLineEdit>(field).text().toStdString(); }
  void ShowPage(int page) const { Child<QTabWidget>("TabStrip").setCurrentIndex(page); }

  void Click(const char* button) const { tests::Click(Active(), button); }
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
};

}  // namespace tests
