#pragma once
// Our texts are UTF-8, the toolkit's are not.

#include <QString>
#include <string_view>

namespace platform::qt {

inline QString Text(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace platform::qt
