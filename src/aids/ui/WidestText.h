#pragma once
// How wide the widest of many texts is, without shaping each of them.

#include <QFontMetricsF>
#include <string>
#include <vector>

namespace aids::ui {

/// The width of the widest of the texts (UTF-8) in pixels. Every text is estimated from the widths of its single
/// characters; only those that come near the greatest estimate are measured.
qreal WidestText(const QFontMetricsF& metrics, const std::vector<std::string>& texts);

}  // namespace aids::ui
