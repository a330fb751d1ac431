#include "platform/qt/ColourStyles.h"

#include <algorithm>
#include <cmath>

namespace platform::qt {
namespace {

using rich_text::ColourValue;

constexpr std::size_t FirstReserved = 32, Reserved = 8;
constexpr double ReadableContrast = 4.5;

int Part(ColourValue colour, int shift) {
  return static_cast<int>(colour >> shift & 255U);
}

/// Squared distance, weighted as the eye weighs the three parts.
int Distance(ColourValue a, ColourValue b) {
  const auto squared = [&](int shift) {
    const int difference = Part(a, shift) - Part(b, shift);
    return difference * difference;
  };
  return 3 * squared(0) + 6 * squared(8) + squared(16);
}

double Luminance(ColourValue colour) {
  const auto linear = [&](int shift) {
    const double part = Part(colour, shift) / 255.0;
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(0) + 0.7152 * linear(8) + 0.0722 * linear(16);
}

/// `amount` of 16 parts of the way from the colour to white.
ColourValue TowardsWhite(ColourValue colour, int amount) {
  ColourValue lighter = 0;
  for (const int shift : {0, 8, 16}) {
    const int part = Part(colour, shift);
    lighter |= static_cast<ColourValue>(part + (255 - part) * amount / 16) << shift;
  }
  return lighter;
}

}  // namespace

std::uint32_t ColourStyles::PlaceOf(std::uint8_t style) {
  return style < FirstReserved ? style : style - Reserved;
}

std::uint8_t ColourStyles::StyleAt(std::size_t place) {
  return static_cast<std::uint8_t>(place < FirstReserved ? place : place + Reserved);
}

std::uint8_t ColourStyles::StyleOf(ColourValue colour) {
  const auto known = m_styles.find(colour);
  if (known != m_styles.end()) return known->second;
  if (m_colours.size() == MaxColours) return StyleAt(NearestPlace(colour));
  m_colours.push_back(colour);
  return m_styles.emplace(colour, StyleAt(m_colours.size())).first->second;
}

bool ColourStyles::HasRoomFor(const std::vector<ColourValue>& colours) const {
  const auto unknown =
      std::count_if(colours.begin(), colours.end(), [&](ColourValue c) { return !m_styles.contains(c); });
  return m_colours.size() + static_cast<std::size_t>(unknown) <= MaxColours;
}

std::size_t ColourStyles::NearestPlace(ColourValue colour) const {
  const auto nearest = std::min_element(m_colours.begin(), m_colours.end(), [&](ColourValue a, ColourValue b) {
    return Distance(a, colour) < Distance(b, colour);
  });
  return static_cast<std::size_t>(nearest - m_colours.begin()) + 1;
}

void ColourStyles::Clear() {
  m_colours.clear();
  m_styles.clear();
}

double Contrast(ColourValue a, ColourValue b) {
  const double first = Luminance(a), second = Luminance(b);
  return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

ColourValue ReadableColour(ColourValue colour, ColourValue background) {
  constexpr ColourValue White = 0xFFFFFF, Black = 0;
  if (Contrast(background, White) < Contrast(background, Black)) return colour;
  int amount = 0;
  while (amount < 16 && Contrast(TowardsWhite(colour, amount), background) < ReadableContrast) ++amount;
  return TowardsWhite(colour, amount);
}

}  // namespace platform::qt
