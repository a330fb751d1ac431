#pragma once
// A page that the help's search has found: its title in bold, and two lines of its text.

#include <QStyledItemDelegate>

namespace platform::qt {

class HelpHitDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  static constexpr int ExcerptRole = Qt::UserRole + 1;

  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace platform::qt
