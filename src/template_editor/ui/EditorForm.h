#pragma once
// The controls of a template editor's window, tied to the editor: each field, button and list is made here, tells the
// editor what the user does, and shows what the editor has after every such step. The pages place them.

#include <QAbstractItemView>
#include <QLineEdit>
#include <QPushButton>
#include <map>

#include "template_editor/TemplateEditor.h"
#include "template_editor/ui/RowModel.h"

class QButtonGroup;
class QLabel;

namespace template_editor::ui {

class EditorForm : public QObject {
  Q_OBJECT

 public:
  /// The editor must outlive the form.
  explicit EditorForm(TemplateEditor& editor) : m_editor(editor) {}

  TemplateEditor& Editor() { return m_editor; }

  // Making the controls; each has its name as object name.
  QLineEdit* MakeField(TextField field, QWidget* parent);
  /// `spoken` is the button's name for screen readers, as several captions are the same.
  QPushButton* MakeButton(Button button, const QString& caption, const QString& spoken, QWidget* parent);
  QAbstractItemView* MakeList(List list, RowSource source, QWidget* parent);
  /// A label that is the buddy of a control; "" as name for labels without one.
  static QLabel* MakeLabel(const QString& text, QWidget* buddy, QWidget* parent, const char* name = "");

  QLineEdit* Field(TextField field) const { return m_fields.at(field); }
  QPushButton* ButtonOf(Button button) const { return m_buttons.at(button); }

  /// Shows everything that the editor has.
  void Show();
  /// The same after a step of the user, with what it leads to.
  void Done(const Outcome& outcome);
  /// Checks the button of a group whose id is `id`, or none of them.
  static void Choose(QButtonGroup& group, int id);
  /// Presses the default button, if it can be pressed, or the push button that has the focus.
  void PressDefault();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  /// Fields, buttons and lists have been shown: the pages show the rest.
  void Shown();

 private:
  struct ShownList {
    QAbstractItemView* View = nullptr;
    RowModel* Model = nullptr;
    std::uint64_t Revision = 0;
  };

  void Typed(TextField field, QLineEdit& edit);
  void Selected(List list);
  void ShowList(List list, ShownList& shown);
  std::optional<std::size_t> SelectedRow(const ShownList& shown) const;

  TemplateEditor& m_editor;
  std::map<TextField, QLineEdit*> m_fields;
  std::map<Button, QPushButton*> m_buttons;
  std::map<List, ShownList> m_lists;
  bool m_selecting = false;
  bool m_showing = false;  ///< what changes is shown, not done by the user
};

}  // namespace template_editor::ui
