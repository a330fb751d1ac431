#pragma once
// How menus draw their entries: in the styles that write the entry under the pointer in another colour, its icon has
// that colour too. The toolkit draws it as that of any other, dark on dark.

#include <QProxyStyle>

namespace platform::qt {

class MenuStyle : public QProxyStyle {
 public:
  /// On top of the application's style.
  MenuStyle() = default;

  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
};

}  // namespace platform::qt
