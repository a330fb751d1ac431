#include "aids/ui/ContextList.h"

#include <QAbstractListModel>
#include <QEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>

#include "aids/ui/ListIcons.h"
#include "aids/ui/WidestText.h"
#include "platform/Twips.h"

namespace aids::ui {
namespace {

using platform::TwipsX;

constexpr int DialogFrame = 4;  ///< one pixel of line, three of room before the icon
constexpr int Inset = 2;        ///< of the rows: line and room around them
constexpr int IconSize = 16, IconLeft = 1, TextLeft = DialogFrame + 17 - Inset;
constexpr int IconRole = Qt::UserRole;

}  // namespace

class WordModel : public QAbstractListModel {
 public:
  using QAbstractListModel::QAbstractListModel;

  void Set(std::vector<std::string> words, std::vector<std::int32_t> icons) {
    beginResetModel();
    m_words = std::move(words);
    m_icons = std::move(icons);
    endResetModel();
  }

  int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(m_words.size());
  }
  QVariant data(const QModelIndex& index, int role) const override {
    const auto row = static_cast<std::size_t>(index.row());
    if (row >= m_words.size()) return {};
    if (role == Qt::DisplayRole) return QString::fromStdString(m_words[row]);
    return role == IconRole && row < m_icons.size() ? QVariant(m_icons[row]) : QVariant();
  }

 private:
  std::vector<std::string> m_words;
  std::vector<std::int32_t> m_icons;
};

namespace {

/// Draws a row as the selected one although the window never has the keyboard.
class RowDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  int Height = IconSize;

  QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override { return {1, Height}; }

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const QPalette& palette = option.palette;
    const QRect row = option.rect;
    painter->save();
    if (selected) {
      painter->setRenderHint(QPainter::Antialiasing);
      painter->setPen(Qt::NoPen);
      painter->setBrush(palette.color(QPalette::Active, QPalette::Highlight));
      painter->drawRoundedRect(row, 2, 2);
    }
    const QRect icon(row.left() + IconLeft, row.top() + (row.height() - IconSize) / 2, IconSize, IconSize);
    ListIcon(index.data(IconRole).toInt()).paint(painter, icon);
    painter->setFont(option.font);
    painter->setPen(palette.color(QPalette::Active, selected ? QPalette::HighlightedText : QPalette::Text));
    painter->drawText(row.adjusted(TextLeft, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      index.data().toString());
    painter->restore();
  }
};

}  // namespace

ContextList::ContextList(QWidget* frame) : PopupFrame(frame), CList(new QListView(this)), m_words(new WordModel(this)) {
  setObjectName(QStringLiteral("ContextList"));
  setAccessibleName(tr("Completion list"));
  CList->setObjectName(QStringLiteral("CList"));
  CList->setModel(m_words);
  CList->setItemDelegate(new RowDelegate(CList));
  CList->setUniformItemSizes(true);
  CList->setFrameShape(QFrame::NoFrame);
  CList->setFocusPolicy(Qt::NoFocus);
  CList->viewport()->setFocusPolicy(Qt::NoFocus);
  CList->setEditTriggers(QAbstractItemView::NoEditTriggers);
  CList->setSelectionMode(QAbstractItemView::SingleSelection);
  CList->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
  CList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  CList->installEventFilter(this);
  connect(CList, &QListView::clicked, this, [this] { parentWidget()->window()->activateWindow(); });
  connect(CList, &QListView::doubleClicked, this, [this] {
    if (Owner()) Owner()->RowDoubleClicked();
  });
}

void ContextList::Unload() {
  PutAway();
  m_words->Set({}, {});
}

void ContextList::Populate(std::vector<std::string>& Population, const std::vector<std::int32_t>& Images,
                           std::int16_t Number) {
  const auto number = std::min(Population.size(), static_cast<std::size_t>(std::max<std::int16_t>(Number, 0)));
  Population.resize(number);
  const QFontMetricsF metrics(font());
  ListMetrics list;
  list.tmHeight = QFontMetrics(font()).height();
  list.DialogFrame = DialogFrame;
  list.ScrollBarWidth = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, CList->verticalScrollBar());
  list.maxW = TwipsX * static_cast<float>(std::ceil(WidestText(metrics, Population)));
  m_size = SizeOfList(static_cast<int>(number), list);
  static_cast<RowDelegate*>(CList->itemDelegate())->Height = m_size.RowHeight;
  CList->setVerticalScrollBarPolicy(m_size.Scrolls ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
  m_words->Set(Population, Images);
  SelectRow(0);
  CList->scrollToTop();
}

int ContextList::RowCount() const {
  return m_words->rowCount({});
}

int ContextList::SelectedRow() const {
  const QModelIndexList selected = CList->selectionModel()->selectedIndexes();
  return selected.isEmpty() ? 0 : selected.first().row() + 1;
}

void ContextList::SelectRow(int row) {
  if (row < 1) return CList->selectionModel()->clear();
  const QModelIndex index = m_words->index(row - 1);
  CList->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
  CList->scrollTo(index);
}

void ContextList::SelectTopRow(int row) {
  SelectRow(row);
  CList->verticalScrollBar()->setValue(row - 1);
}

// How it looks.

Box ContextList::BoxAt(const CaretPoint& caret) const {
  return ListBox(caret, DialogFrame, m_size.Width, m_size.Height);
}

void ContextList::FitTo(int available) {
  m_size.Width = std::min(m_size.Width, TwipsX * static_cast<float>(available));
}

void ContextList::resizeEvent(QResizeEvent*) {
  CList->setGeometry(rect().adjusted(Inset, Inset, -Inset, -Inset));
}

void ContextList::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QColor base = palette().color(QPalette::Active, QPalette::Base);
  painter.fillRect(rect(), Mixed(base, palette().color(QPalette::Active, QPalette::Text), 0.35));
  painter.fillRect(rect().adjusted(1, 1, -1, -1), base);
}

void ContextList::changeEvent(QEvent* event) {
  PopupFrame::changeEvent(event);
  if (event->type() == QEvent::FontChange) CList->setFont(font());
}

}  // namespace aids::ui
