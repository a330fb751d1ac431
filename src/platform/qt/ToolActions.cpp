#include "platform/qt/ToolActions.h"

#include <QKeySequence>
#include <QMenu>
#include <QWidget>

#include "platform/qt/Text.h"
#include "platform/qt/ToolIcon.h"

namespace platform::qt {
namespace {

QList<QKeySequence> Shortcuts(std::string_view shortcuts) {
  return QKeySequence::listFromString(Text(shortcuts).replace(QStringLiteral(", "), QStringLiteral("; ")));
}

// "Find a text string (Ctrl+F)", or the caption where there is no description.
QString TipOf(const QString& caption, const std::string& description, const QString& shortcut) {
  QString tip = description.empty() ? caption : Text(description);
  if (tip.endsWith(u'.')) tip.chop(1);
  return shortcut.isEmpty() ? tip : QStringLiteral("%1 (%2)").arg(tip, shortcut);
}

// The caption as people read it: without the mark of the access key and the dots of a dialog.
QString Plain(const std::string& caption) {
  QString plain;
  const QString text = Text(caption);
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] == u'&' && i + 1 < text.size()) ++i;
    plain += text[i];
  }
  if (plain.endsWith(QStringLiteral("..."))) plain.chop(3);
  return plain;
}

}  // namespace

ToolActions::ToolActions(QWidget& window, const BarDesign& design, Clicked clicked)
    : m_window(window), m_clicked(std::move(clicked)) {
  for (const ToolDesign& tool : design.Tools) {
    Entry& entry = Add(std::string(tool.Name));
    entry.Id = tool.Id;
    entry.Caption = tool.Caption;
    entry.Description = tool.Description;
    entry.Action->setIcon(ToolIcon(tool.Icon));
    entry.Action->setCheckable(tool.Checkable);
    if (!tool.Shortcut.empty()) entry.Action->setShortcuts(Shortcuts(tool.Shortcut));
    // A tool keeps its shortcut when the user takes it off every band.
    if (tool.HasCommand) m_window.addAction(entry.Action);
    ShowTexts(entry);
  }
}

ToolActions::Entry& ToolActions::Add(const std::string& name) {
  Entry& entry = m_entries[name];
  if (entry.Action) return entry;
  entry.Action = new QAction(&m_window);
  entry.Action->setObjectName(Text(name));
  entry.Action->setMenuRole(QAction::NoRole);
  QObject::connect(entry.Action, &QAction::triggered, &m_window,
                   [this, name, action = entry.Action] { Triggered(name, *action); });
  return entry;
}

// The toolkit has inverted the check mark by now, but whether it changes is for the command to say.
void ToolActions::Triggered(const std::string& name, QAction& action) {
  if (action.isCheckable()) action.setChecked(!action.isChecked());
  m_clicked(name);
}

const ToolActions::Entry* ToolActions::EntryOf(std::string_view tool) const {
  const auto found = m_entries.find(tool);
  return found == m_entries.end() ? nullptr : &found->second;
}

ToolActions::Entry* ToolActions::EntryOf(std::string_view tool) {
  const auto found = m_entries.find(tool);
  return found == m_entries.end() ? nullptr : &found->second;
}

QAction* ToolActions::Find(std::string_view tool) const {
  const Entry* entry = EntryOf(tool);
  return entry ? entry->Action : nullptr;
}

QAction* ToolActions::OnBand(std::string_view tool, std::string_view caption) {
  QAction* action = Find(tool);
  return !action || caption.empty() ? action : Twin(*action, std::string(tool) + '\n' + std::string(caption), caption);
}

QAction* ToolActions::OnFurtherMenu(std::string_view tool, std::string_view caption, std::string_view menu) {
  QAction* action = Find(tool);
  if (!action || action->menu() || Dynamic(tool)) return action;
  return Twin(*action, std::string(tool) + '\n' + std::string(caption) + '\n' + std::string(menu), caption);
}

QAction* ToolActions::Twin(QAction& action, const std::string& key, std::string_view caption) {
  QAction*& twin = m_twins[key];
  if (twin) return twin;
  twin = new QAction(&m_window);
  // Shown in menus; no key reaches it, for the tool itself answers to it.
  twin->setShortcutContext(Qt::WidgetShortcut);
  const auto follow = [&action, twin = twin, caption = Text(caption)] {
    twin->setText(caption.isEmpty() ? action.text() : caption);
    twin->setShortcut(action.shortcut());
    twin->setIcon(action.icon());
    twin->setStatusTip(action.statusTip());
    twin->setToolTip(action.toolTip());
    twin->setCheckable(action.isCheckable());
    twin->setChecked(action.isChecked());
    twin->setEnabled(action.isEnabled());
    twin->setVisible(action.isVisible());
  };
  follow();
  QObject::connect(&action, &QAction::changed, twin, follow);
  QObject::connect(twin, &QAction::triggered, &action, [&action, follow] {
    follow();
    action.trigger();
  });
  return twin;
}

const DynamicTool* ToolActions::Dynamic(std::string_view tool) const {
  const Entry* entry = EntryOf(tool);
  return entry ? entry->Dynamic.get() : nullptr;
}

void ToolActions::SetDynamic(const DynamicTool& tool) {
  Entry& entry = Add(tool.Name);
  entry.Id = tool.Id;
  entry.Caption = tool.Caption;
  entry.Description = tool.Description;
  entry.Dynamic = std::make_unique<DynamicTool>(tool);
  entry.Action->setIcon(ToolIcon(tool.Icon));
  entry.Action->setCheckable(tool.Checked);
  entry.Action->setChecked(tool.Checked);
  ShowTexts(entry);
}

// The action may be the one that is being triggered.
void ToolActions::RemoveDynamic(std::string_view tool) {
  const auto found = m_entries.find(tool);
  if (found == m_entries.end() || !found->second.Dynamic) return;
  found->second.Action->disconnect();
  found->second.Action->deleteLater();
  m_entries.erase(found);
}

ToolState ToolActions::State(std::string_view tool) const {
  const Entry* entry = EntryOf(tool);
  if (!entry) return {};
  return {.Id = entry->Id,
          .Key = entry->Dynamic ? entry->Dynamic->Key : 0,
          .Caption = entry->Caption,
          .Description = entry->Description,
          .Enabled = entry->Action->isEnabled(),
          .Checked = entry->Action->isChecked()};
}

void ToolActions::SetCaption(std::string_view tool, std::string_view caption) {
  Entry* entry = EntryOf(tool);
  if (!entry) return;
  entry->Caption = caption;
  ShowTexts(*entry);
}

void ToolActions::SetDescription(std::string_view tool, std::string_view description) {
  Entry* entry = EntryOf(tool);
  if (!entry) return;
  entry->Description = description;
  ShowTexts(*entry);
}

void ToolActions::ShowTexts(Entry& entry) {
  QAction& action = *entry.Action;
  const QString plain = Plain(entry.Caption);
  action.setText(Text(entry.Caption));
  action.setIconText(plain);
  action.setStatusTip(Text(entry.Description));
  if (entry.Dynamic && !entry.Dynamic->Tip.empty())
    action.setToolTip(Text(entry.Dynamic->Tip));
  else
    action.setToolTip(TipOf(plain, entry.Description, action.shortcut().toString(QKeySequence::NativeText)));
  action.setVisible(!entry.Caption.empty());
}

}  // namespace platform::qt
