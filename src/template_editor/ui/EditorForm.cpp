#include "template_editor/ui/EditorForm.h"

#include <QApplication>
#include <QButtonGroup>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QRegularExpression>
#include <QTreeView>

#include "platform/qt/Text.h"

namespace template_editor::ui {
namespace {

using platform::qt::Text;

QListView* PlainList(QWidget* parent) {
  auto* view = new QListView(parent);
  view->setUniformItemSizes(true);
  return view;
}

QTreeView* Columns(QWidget* parent) {
  auto* view = new QTreeView(parent);
  view->setRootIsDecorated(false);
  view->setAllColumnsShowFocus(true);
  view->setUniformRowHeights(true);
  return view;
}

}  // namespace

// Making.

QLineEdit* EditorForm::MakeField(TextField field, QWidget* parent) {
  auto* edit = new QLineEdit(parent);
  edit->setObjectName(Text(NameOf(field)));
  connect(edit, &QLineEdit::textChanged, this, [this, field, edit] { Typed(field, *edit); });
  m_fields[field] = edit;
  return edit;
}

QPushButton* EditorForm::MakeButton(Button button, const QString& caption, const QString& spoken, QWidget* parent) {
  auto* made = new QPushButton(caption, parent);
  made->setObjectName(Text(NameOf(button)));
  made->setAccessibleName(spoken);
  connect(made, &QPushButton::clicked, this, [this, button] { Done(m_editor.Click(button)); });
  m_buttons[button] = made;
  return made;
}

QAbstractItemView* EditorForm::MakeList(List list, RowSource source, QWidget* parent) {
  QAbstractItemView* view = nullptr;
  if (source.Headers.size() > 1)
    view = Columns(parent);
  else
    view = PlainList(parent);
  view->setObjectName(Text(NameOf(list)));
  view->setSelectionMode(QAbstractItemView::SingleSelection);
  view->setIconSize({16, 16});
  view->setEditTriggers(QAbstractItemView::NoEditTriggers);
  auto* model = new RowModel(std::move(source), view);
  view->setModel(model);
  // Selecting a row may ask a question, and a list does not bear one in the middle of a click.
  connect(
      view->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this, list] { Selected(list); },
      Qt::QueuedConnection);
  view->installEventFilter(this);
  m_lists[list] = {view, model, 0};
  return view;
}

QLabel* EditorForm::MakeLabel(const QString& text, QWidget* buddy, QWidget* parent, const char* name) {
  auto* label = new QLabel(text, parent);
  label->setObjectName(QString::fromUtf8(name));
  label->setBuddy(buddy);
  // Screen readers find a label only beside its buddy, and never that of a list.
  if (buddy && buddy->accessibleName().isEmpty())
    buddy->setAccessibleName(QString(text).remove(QRegularExpression(QStringLiteral("[&:]"))));
  return label;
}

// What the user does.

void EditorForm::Typed(TextField field, QLineEdit& edit) {
  if (m_showing) return;
  const bool taken = m_editor.Typed(field, edit.text().toStdString());
  const QString before = edit.text().left(edit.cursorPosition());
  Show();
  if (taken) return;
  QApplication::beep();
  edit.setCursorPosition(static_cast<int>(Text(TemplateEditor::Cleaned(field, before.toStdString())).size()));
}

void EditorForm::Selected(List list) {
  const auto row = SelectedRow(m_lists.at(list));
  // While a question about an earlier row is open, the news of a row may come a second time.
  if (m_selecting || row == m_editor.Selected(list)) return;
  m_selecting = true;
  m_editor.Select(list, row);
  m_selecting = false;
  Show();
}

/// A list that gets the focus makes its first row the current one without selecting it, and a key that goes there would
/// do nothing. Without a selected row the keys begin before the first.
bool EditorForm::eventFilter(QObject* watched, QEvent* event) {
  auto* view = qobject_cast<QAbstractItemView*>(watched);
  if (view && event->type() == QEvent::KeyPress && !view->selectionModel()->hasSelection()) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Home)
      view->selectionModel()->setCurrentIndex({}, QItemSelectionModel::NoUpdate);
  }
  return false;
}

void EditorForm::Done(const Outcome& outcome) {
  if (outcome.Beep) QApplication::beep();
  Show();
  if (!outcome.Focus) return;
  m_fields.at(*outcome.Focus)->setFocus(Qt::ShortcutFocusReason);
  m_fields.at(*outcome.Focus)->selectAll();
}

void EditorForm::PressDefault() {
  auto* focused = qobject_cast<QPushButton*>(QApplication::focusWidget());
  const auto button = m_editor.DefaultButton();
  QPushButton* pressed = focused ? focused : button ? m_buttons.at(*button) : nullptr;
  if (!pressed || !pressed->isVisible() || !pressed->isEnabled()) return;
  pressed->click();
  // The next entry is typed over this one.
  if (auto* edit = qobject_cast<QLineEdit*>(QApplication::focusWidget())) edit->selectAll();
}

// Showing.

void EditorForm::Show() {
  const bool outermost = !std::exchange(m_showing, true);
  for (const auto& [field, edit] : m_fields) {
    const QString text = Text(m_editor.TextOf(field));
    if (edit->text() != text) {
      edit->setText(text);
      edit->setCursorPosition(0);
    }
    edit->setEnabled(m_editor.FieldEnabled(field));
  }
  for (auto& [list, shown] : m_lists) ShowList(list, shown);
  for (const auto& [button, widget] : m_buttons) {
    widget->setEnabled(m_editor.Enabled(button));
    widget->setDefault(m_editor.DefaultButton() == button);
  }
  Q_EMIT Shown();
  if (outermost) m_showing = false;
}

std::optional<std::size_t> EditorForm::SelectedRow(const ShownList& shown) const {
  const QModelIndexList rows = shown.View->selectionModel()->selectedIndexes();
  return rows.isEmpty() ? std::nullopt : std::optional(static_cast<std::size_t>(rows.first().row()));
}

void EditorForm::ShowList(List list, ShownList& shown) {
  const auto count = static_cast<int>(m_editor.Count(list));
  const bool oneMore = count == shown.Model->rowCount() + 1;
  if (m_editor.Revision(list) != shown.Revision) {
    shown.Revision = m_editor.Revision(list);
    shown.Model->SetCount(count);
    if (oneMore) shown.View->scrollToBottom();
  }
  const auto row = m_editor.Selected(list);
  if (row == SelectedRow(shown)) return;
  QItemSelectionModel& selection = *shown.View->selectionModel();
  if (!row) return selection.clear();
  const QModelIndex index = shown.Model->index(static_cast<int>(*row), 0);
  selection.setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  shown.View->scrollTo(index);
}

void EditorForm::Choose(QButtonGroup& group, int id) {
  // Tab stops at the chosen button, or at the first where none is.
  for (QAbstractButton* button : group.buttons())
    button->setFocusPolicy(!group.button(id) || group.id(button) == id ? Qt::StrongFocus : Qt::ClickFocus);
  if (QAbstractButton* chosen = group.button(id)) return chosen->setChecked(true);
  group.setExclusive(false);
  for (QAbstractButton* button : group.buttons()) button->setChecked(false);
  group.setExclusive(true);
}

}  // namespace template_editor::ui
