#include "platform/qt/HelpHitDelegate.h"

#include <QApplication>
#include <QPainter>

namespace platform::qt {
namespace {

constexpr int Margin = 6, ExcerptLines = 2;

QFont TitleFont(const QStyleOptionViewItem& option) {
  QFont font = option.font;
  font.setBold(true);
  return font;
}

}  // namespace

void HelpHitDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QStyleOptionViewItem item = option;
  initStyleOption(&item, index);
  item.text.clear();
  QApplication::style()->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);
  const bool selected = (item.state & QStyle::State_Selected) != 0;
  const QRect inside = item.rect.adjusted(Margin, Margin, -Margin, -Margin);
  const QFontMetrics title(TitleFont(option));
  painter->save();
  painter->setPen(item.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
  painter->setFont(TitleFont(option));
  painter->drawText(QRect(inside.topLeft(), QSize(inside.width(), title.height())), Qt::AlignLeft,
                    title.elidedText(index.data().toString(), Qt::ElideRight, inside.width()));
  painter->setFont(option.font);
  if (!selected) painter->setOpacity(0.75);
  painter->setClipRect(inside);
  painter->drawText(inside.adjusted(0, title.height(), 0, 0), Qt::AlignLeft | Qt::TextWordWrap,
                    index.data(ExcerptRole).toString());
  painter->restore();
}

QSize HelpHitDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
  return {0, QFontMetrics(TitleFont(option)).height() + ExcerptLines * option.fontMetrics.lineSpacing() + 2 * Margin};
}

}  // namespace platform::qt
