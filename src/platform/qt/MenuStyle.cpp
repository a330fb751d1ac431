#include "platform/qt/MenuStyle.h"

#include <QStyleOptionMenuItem>
#include <QWidget>

namespace platform::qt {

void MenuStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
  const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
  const QStyle::State lit = State_Selected | State_Enabled;
  const QString base = baseStyle()->name();
  const bool isInverted = base == QLatin1String("fusion") || base == QLatin1String("windows");
  // An entry with a check mark draws its icon on a ground of its own.
  if (element != CE_MenuItem || !item || !widget || (item->state & lit) != lit || item->icon.isNull() ||
      item->checked || !isInverted)
    return QProxyStyle::drawControl(element, option, painter, widget);
  const int side = pixelMetric(PM_SmallIconSize, option, widget);
  QStyleOptionMenuItem marked(*item);
  marked.icon = QIcon(item->icon.pixmap(QSize(side, side), widget->devicePixelRatio(), QIcon::Selected));
  QProxyStyle::drawControl(element, &marked, painter, widget);
}

}  // namespace platform::qt
