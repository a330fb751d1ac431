#pragma once
// The seven pictures of the entries of completion lists.

#include <QIcon>

namespace aids::ui {

inline constexpr int ListIcons = 7;

/// The picture of an icon number, 1 to ListIcons; an empty icon for any other number.
const QIcon& ListIcon(int number);

/// What the picture stands for, such as "Method"; "" for any other number.
QString ListIconName(int number);

}  // namespace aids::ui
