#include "aids/ui/WidestText.h"

#include <algorithm>
#include <array>

#include "platform/qt/Text.h"

namespace aids::ui {
namespace {

using platform::qt::Text;

constexpr std::size_t Candidates = 32;

/// Adds up the widths of the characters; a text that is not all ASCII is measured.
class Estimate {
 public:
  explicit Estimate(const QFontMetricsF& metrics) : m_metrics(metrics) {
    for (std::size_t i = 0; i < m_widths.size(); ++i)
      m_widths[i] = i < 0x20 ? 0 : metrics.horizontalAdvance(QChar(static_cast<char16_t>(i)));
  }

  qreal Of(const std::string& text) const {
    qreal width = 0;
    for (const char c : text) {
      const auto byte = static_cast<unsigned char>(c);
      if (byte >= m_widths.size()) return m_metrics.horizontalAdvance(Text(text));
      width += m_widths[byte];
    }
    return width;
  }

 private:
  const QFontMetricsF& m_metrics;
  std::array<qreal, 0x80> m_widths{};
};

}  // namespace

qreal WidestText(const QFontMetricsF& metrics, const std::vector<std::string>& texts) {
  const Estimate estimate(metrics);
  struct Guess {
    qreal Width;
    const std::string* Text;
  };
  std::vector<Guess> guesses;
  guesses.reserve(texts.size());
  for (const std::string& text : texts) guesses.push_back({estimate.Of(text), &text});
  const auto measured = guesses.begin() + static_cast<std::ptrdiff_t>(std::min(guesses.size(), Candidates));
  std::partial_sort(guesses.begin(), measured, guesses.end(),
                    [](const Guess& a, const Guess& b) { return a.Width > b.Width; });
  qreal widest = 0;
  for (auto guess = guesses.begin(); guess != measured; ++guess)
    widest = std::max(widest, metrics.horizontalAdvance(Text(*guess->Text)));
  return widest;
}

}  // namespace aids::ui
