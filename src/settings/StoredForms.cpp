#include "settings/StoredForms.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <concepts>

namespace settings {
namespace {

constexpr double SizeScale = 10000;
constexpr double LargestSize = 1638;    ///< points
constexpr float FarthestTwip = 1.0e6F;  ///< no screen reaches farther

template <std::unsigned_integral Number>
void Append(std::string& bytes, Number value) {
  for (std::size_t i = 0; i < sizeof(Number); ++i) bytes += static_cast<char>(value >> 8 * i & 0xFF);
}

template <std::unsigned_integral Number>
Number NumberAt(std::string_view bytes, std::size_t offset) {
  Number value = 0;
  for (std::size_t i = 0; i < sizeof(Number); ++i)
    value = static_cast<Number>(value | static_cast<Number>(static_cast<unsigned char>(bytes[offset + i])) << 8 * i);
  return value;
}

char Switch(bool on) {
  return on ? '\xFF' : '\0';
}

char Byte(std::int32_t value) {
  return static_cast<char>(std::clamp(value, 0, 255));
}

bool IsPlace(const FramePlace& place) {
  for (const float value : {place.Left, place.Top, place.Width, place.Height})
    if (!std::isfinite(value) || std::abs(value) > FarthestTwip) return false;
  return place.Width >= 0 && place.Height >= 0;
}

}  // namespace

std::string PackFramePlace(const FramePlace& place) {
  std::string bytes;
  for (const float value : {place.Left, place.Top, place.Width, place.Height})
    Append(bytes, std::bit_cast<std::uint32_t>(std::round(value)));
  Append(bytes, static_cast<std::uint16_t>(place.State));
  return bytes;
}

bool UnpackFramePlace(std::string_view bytes, FramePlace& place) {
  if (bytes.size() != 18) return false;
  const auto at = [&](std::size_t offset) { return std::bit_cast<float>(NumberAt<std::uint32_t>(bytes, offset)); };
  FramePlace read{at(0), at(4), at(8), at(12), WindowState::Normal};
  const auto state = NumberAt<std::uint16_t>(bytes, 16);
  if (!IsPlace(read) || state > 2) return false;
  read.State = static_cast<WindowState>(state);
  place = read;
  return true;
}

std::string PackFlags(const Settings& values) {
  return {Switch(values.AskUnknownTemplates),   Switch(values.AutoIndent),     Switch(values.NewLineForEnter),
          Switch(values.OverrideTemplateFonts), Switch(values.ReducedColours), Switch(values.UseColours),
          Byte(values.DefaultFontType),         Byte(values.TabWidth)};
}

bool UnpackFlags(std::string_view bytes, Settings& values) {
  if (bytes.size() != 8) return false;
  values.AskUnknownTemplates = bytes[0] != 0;
  values.AutoIndent = bytes[1] != 0;
  values.NewLineForEnter = bytes[2] != 0;
  values.OverrideTemplateFonts = bytes[3] != 0;
  values.ReducedColours = bytes[4] != 0;
  values.UseColours = bytes[5] != 0;
  values.DefaultFontType = static_cast<unsigned char>(bytes[6]);
  values.TabWidth = static_cast<unsigned char>(bytes[7]);
  return true;
}

std::string PackFontFlags(const platform::FontRecord& font) {
  return {Switch(font.Bold), Switch(font.Italic), Switch(font.Strikethrough), Switch(font.Underline)};
}

bool UnpackFontFlags(std::string_view bytes, platform::FontRecord& font) {
  if (bytes.size() != 4) return false;
  font.Bold = bytes[0] != 0;
  font.Italic = bytes[1] != 0;
  font.Strikethrough = bytes[2] != 0;
  font.Underline = bytes[3] != 0;
  return true;
}

std::string PackFontSize(double size) {
  std::string bytes;
  Append(bytes, static_cast<std::uint64_t>(std::llround(std::clamp(size, 0.0, LargestSize) * SizeScale)));
  return bytes;
}

bool UnpackFontSize(std::string_view bytes, double& size) {
  if (bytes.size() != 8) return false;
  const double read = static_cast<double>(static_cast<std::int64_t>(NumberAt<std::uint64_t>(bytes, 0))) / SizeScale;
  if (!IsFontSize(read)) return false;
  size = read;
  return true;
}

bool IsFontSize(double size) {
  return size >= 1 && size <= LargestSize;
}

}  // namespace settings
