#include "platform/qt/CustomiseDialog.h"

#include <QDialogButtonBox>
#include <QDragEnterEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <climits>

#include "platform/qt/ActiveBar.h"
#include "platform/qt/Text.h"

namespace platform::qt {
namespace {

constexpr int NameRole = Qt::UserRole;

QString Dashes() {
  return QString(8, QChar(0x2014));
}

std::string NameOf(const QTreeWidgetItem& item) {
  return item.data(0, NameRole).toString().toStdString();
}

QTreeWidgetItem* BandItem(const QTreeWidget& tree, std::string_view band) {
  for (int i = 0; i < tree.topLevelItemCount(); ++i)
    if (NameOf(*tree.topLevelItem(i)) == band) return tree.topLevelItem(i);
  return nullptr;
}

void AddTitled(QHBoxLayout& row, const QString& title, QWidget* widget, int stretch) {
  auto* label = new QLabel(title);
  label->setBuddy(widget);
  auto* column = new QVBoxLayout;
  column->addWidget(label);
  column->addWidget(widget);
  row.addLayout(column, stretch);
}

}  // namespace

// The list and the tree.

void ToolList::dragEnterEvent(QDragEnterEvent* event) {
  if (event->source() != this) event->acceptProposedAction();
}

void ToolList::dragMoveEvent(QDragMoveEvent* event) {
  if (event->source() != this) event->acceptProposedAction();
}

void ToolList::dropEvent(QDropEvent* event) {
  event->setDropAction(Qt::CopyAction);
  event->accept();
  if (event->source() != this) Q_EMIT Returned();
}

// The items are rebuilt from the arrangement; the view must not move any itself.
void BandTree::dropEvent(QDropEvent* event) {
  event->setDropAction(Qt::CopyAction);
  event->accept();
  const QTreeWidgetItem* item = itemAt(event->position().toPoint());
  const QTreeWidgetItem* band = item && item->parent() ? item->parent() : item;
  if (!band) return;
  int index = band->childCount();
  if (item != band) {
    const QRect rect = visualItemRect(item);
    index = band->indexOfChild(const_cast<QTreeWidgetItem*>(item));
    if (event->position().y() > rect.center().y()) ++index;
  }
  Q_EMIT Dropped(band->data(0, NameRole).toString(), index, event->source() == this);
}

// The dialog.

CustomiseDialog::CustomiseDialog(ActiveBar& bar, QWidget& parent)
    : QDialog(&parent), m_bar(bar), m_tools(new ToolList(this)), m_bands(new BandTree(this)) {
  setObjectName(QStringLiteral("CustomiseDialog"));
  setWindowTitle(tr("Customise Toolbars and Menus"));
  m_tools->setObjectName(QStringLiteral("AllTools"));
  const int iconSide = style()->pixelMetric(QStyle::PM_SmallIconSize);
  m_tools->setIconSize(QSize(iconSide, iconSide));  // as in the tree beside it
  m_tools->setDragEnabled(true);
  m_tools->setAcceptDrops(true);
  m_bands->setObjectName(QStringLiteral("Bands"));
  m_bands->setHeaderHidden(true);
  m_bands->setDragDropMode(QAbstractItemView::DragDrop);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(MakeColumns(), 1);
  layout->addLayout(MakeButtons());
  connect(m_tools, &ToolList::Returned, this, &CustomiseDialog::Remove, Qt::QueuedConnection);
  connect(m_tools, &QListWidget::itemDoubleClicked, this, &CustomiseDialog::Add);
  connect(m_tools, &QListWidget::itemSelectionChanged, this, &CustomiseDialog::EnableButtons);
  connect(m_bands, &BandTree::Dropped, this, &CustomiseDialog::Drop, Qt::QueuedConnection);
  connect(m_bands, &QTreeWidget::itemSelectionChanged, this, &CustomiseDialog::EnableButtons);
  auto* away = new QShortcut(QKeySequence(Qt::Key_Delete), m_bands);
  away->setContext(Qt::WidgetShortcut);
  connect(away, &QShortcut::activated, this, &CustomiseDialog::Remove);
  FillList();
  Refresh();
  m_bands->expandItem(BandItem(*m_bands, "Toolbar"));
  m_tools->setCurrentRow(0);
  m_tools->setMinimumWidth(m_tools->sizeHintForColumn(0) + 2 * m_tools->frameWidth() +
                           style()->pixelMetric(QStyle::PM_ScrollBarExtent));
  resize(QSize(680, 520).expandedTo(sizeHint()));
}

QLayout* CustomiseDialog::MakeColumns() {
  auto* row = new QHBoxLayout;
  AddTitled(*row, tr("&All tools:"), m_tools, 1);
  auto* middle = new QVBoxLayout;
  middle->addStretch();
  middle->addWidget(MakeButton("Add", tr("Add &>"), &CustomiseDialog::Add));
  middle->addWidget(MakeButton("Remove", tr("&< Remove"), &CustomiseDialog::Remove));
  middle->addSpacing(12);
  middle->addWidget(MakeButton("MoveUp", tr("Move &Up"), &CustomiseDialog::MoveUp));
  middle->addWidget(MakeButton("MoveDown", tr("Move &Down"), &CustomiseDialog::MoveDown));
  middle->addStretch();
  row->addLayout(middle);
  AddTitled(*row, tr("&Toolbars and menus (drag tools to where you want them):"), m_bands, 1);
  return row;
}

QLayout* CustomiseDialog::MakeButtons() {
  auto* row = new QHBoxLayout;
  row->addWidget(MakeButton("ResetBand", tr("Reset &This One"), &CustomiseDialog::ResetBand));
  row->addWidget(MakeButton("ResetAll", tr("&Reset All..."), &CustomiseDialog::ResetAll));
  row->addStretch();
  auto* close = new QDialogButtonBox(QDialogButtonBox::Close);
  connect(close, &QDialogButtonBox::rejected, this, &QDialog::close);
  row->addWidget(close);
  return row;
}

QPushButton* CustomiseDialog::MakeButton(const char* name, const QString& text, void (CustomiseDialog::*action)()) {
  auto* button = new QPushButton(text, this);
  button->setObjectName(QString::fromLatin1(name));
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this, action);
  m_buttons[name] = button;
  return button;
}

void CustomiseDialog::FillList() {
  QPixmap nothing(m_tools->iconSize());
  nothing.fill(Qt::transparent);
  const QIcon none(nothing);  // so that all captions begin in one column
  auto* line = new QListWidgetItem(none, tr("Separator"), m_tools);
  line->setData(NameRole, Text(Separator));
  for (const ToolDesign& tool : m_bar.Design().Tools) {
    const QAction* action = m_bar.Actions().Find(tool.Name);
    const QString text = action->iconText().isEmpty() ? Text(tool.Name) : action->iconText();
    auto* item = new QListWidgetItem(action->icon().isNull() ? none : action->icon(), text, m_tools);
    item->setData(NameRole, Text(tool.Name));
    item->setToolTip(action->toolTip());
  }
}

void CustomiseDialog::Refresh() {
  const QSignalBlocker quiet(m_bands);
  const Place selected = Selected();
  std::map<std::string, bool> expanded;
  for (int i = 0; i < m_bands->topLevelItemCount(); ++i)
    expanded[NameOf(*m_bands->topLevelItem(i))] = m_bands->topLevelItem(i)->isExpanded();
  m_bands->clear();
  const BandLayout layout = m_bar.Layout();
  for (const BandState& band : layout.Bands()) {
    if (!layout.MayRearrange(band.Name)) continue;
    auto* item = new QTreeWidgetItem(m_bands, {Text(m_bar.Design().Band(band.Name)->Caption)});
    item->setData(0, NameRole, Text(band.Name));
    item->setFlags(item->flags() & ~Qt::ItemIsDragEnabled);
    FillBand(*item, band);
    item->setExpanded(expanded[band.Name]);
  }
  Select(selected);
}

void CustomiseDialog::FillBand(QTreeWidgetItem& item, const BandState& band) {
  for (const std::string& tool : band.Tools) {
    auto* child = new QTreeWidgetItem(&item);
    child->setData(0, NameRole, Text(tool));
    const QAction* action = m_bar.Actions().Find(tool);
    const QString name = action && !action->iconText().isEmpty() ? action->iconText() : Text(tool);
    child->setText(0, tool == Separator ? Dashes() : name);
    if (action) child->setIcon(0, action->icon());
  }
}

// What the user does.

CustomiseDialog::Place CustomiseDialog::Selected() const {
  QTreeWidgetItem* item = m_bands->currentItem();
  if (!item) return {};
  if (!item->parent()) return {NameOf(*item), -1};
  return {NameOf(*item->parent()), item->parent()->indexOfChild(item)};
}

void CustomiseDialog::Select(const Place& place) {
  QTreeWidgetItem* item = BandItem(*m_bands, place.Band);
  if (item && place.Index >= 0 && item->childCount() > 0) {
    item->setExpanded(true);
    item = item->child(std::min(place.Index, item->childCount() - 1));
  }
  m_bands->setCurrentItem(item);
  EnableButtons();
}

// Changes the arrangement, and selects the place that the change tells.
void CustomiseDialog::Change(const std::function<Place(BandLayout&)>& change) {
  BandLayout layout = m_bar.Layout();
  const Place place = change(layout);
  m_bar.Apply(layout);
  Refresh();
  Select(place);
}

void CustomiseDialog::Add() {
  const Place place = Selected();
  Drop(Text(place.Band), place.Index < 0 ? INT_MAX : place.Index + 1, false);
}

void CustomiseDialog::Remove() {
  const Place place = Selected();
  if (place.Index < 0) return;
  Change([&](BandLayout& layout) {
    layout.Remove(place.Band, static_cast<std::size_t>(place.Index));
    return place;
  });
}

void CustomiseDialog::MoveBy(int step) {
  const Place place = Selected();
  const int target = place.Index + step;
  if (place.Index < 0 || target < 0) return;
  Change([&](BandLayout& layout) {
    const int before = step > 0 ? target + 1 : target;
    layout.Move(place.Band, static_cast<std::size_t>(place.Index), place.Band, static_cast<std::size_t>(before));
    return Place{place.Band, target};
  });
}

void CustomiseDialog::Drop(const QString& band, int index, bool fromTree) {
  const Place from = Selected();
  const QListWidgetItem* tool = m_tools->currentItem();
  if (fromTree ? from.Index < 0 : !tool) return;
  Change([&](BandLayout& layout) {
    const std::string to = band.toStdString();
    const auto at = static_cast<std::size_t>(index);
    const bool done = fromTree ? layout.Move(from.Band, static_cast<std::size_t>(from.Index), to, at)
                               : layout.Insert(to, at, tool->data(NameRole).toString().toStdString());
    const bool closesUp = fromTree && from.Band == to && index > from.Index;
    return done ? Place{to, closesUp ? index - 1 : index} : from;
  });
}

void CustomiseDialog::ResetBand() {
  const Place place = Selected();
  if (!place.Band.empty() && m_bar.Events().ResetBand) m_bar.Events().ResetBand(place.Band);
  Refresh();
}

void CustomiseDialog::ResetAll() {
  if (m_bar.Events().ToolClick) m_bar.Events().ToolClick("ResetToolbars");
  Refresh();
}

void CustomiseDialog::EnableButtons() {
  const Place place = Selected();
  const QTreeWidgetItem* band = BandItem(*m_bands, place.Band);
  const bool tool = place.Index >= 0;
  m_buttons["Add"]->setEnabled(band && m_tools->currentItem());
  m_buttons["Remove"]->setEnabled(tool);
  m_buttons["MoveUp"]->setEnabled(tool && place.Index > 0);
  m_buttons["MoveDown"]->setEnabled(tool && place.Index + 1 < band->childCount());
  m_buttons["ResetBand"]->setEnabled(band);
}

}  // namespace platform::qt
