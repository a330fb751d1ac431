// The text form of a band layout. A file may come from anywhere, so everything is bounded and checked.

#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>

#include "platform/BandLayout.h"

namespace platform {
namespace {

constexpr std::string_view FirstLine = "Quillmark toolbar layout 1";
constexpr std::size_t MaximalSize = 1 << 16;
constexpr int MaximalNumber = 32767;
constexpr std::array<std::string_view, 5> Sides = {"top", "bottom", "left", "right", "floating"};

// The usual 32-bit cyclic redundancy check.
std::uint32_t Checksum(std::string_view bytes) {
  std::uint32_t sum = 0xFFFFFFFF;
  for (const char byte : bytes) {
    sum ^= static_cast<unsigned char>(byte);
    for (int bit = 0; bit < 8; ++bit) sum = (sum >> 1) ^ ((sum & 1) != 0 ? 0xEDB88320 : 0);
  }
  return ~sum;
}

std::string Seal(std::string_view body) {
  char sum[9];
  std::snprintf(sum, sizeof sum, "%08x", static_cast<unsigned>(Checksum(body)));
  return std::to_string(body.size()) + ' ' + sum;
}

// The text up to a separator, which goes too; all of it when there is none.
std::string_view Take(std::string_view& text, char separator) {
  const std::size_t end = text.find(separator);
  const std::string_view taken = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return taken;
}

bool TakeNumber(std::string_view& line, int lowest, int& number) {
  const std::string_view word = Take(line, ' ');
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  return error == std::errc() && end == word.data() + word.size() && number >= lowest && number <= MaximalNumber;
}

bool TakeSide(std::string_view& line, DockSide& side) {
  const std::string_view word = Take(line, ' ');
  for (std::size_t i = 0; i < Sides.size(); ++i)
    if (Sides[i] == word) {
      side = static_cast<DockSide>(i);
      return true;
    }
  return false;
}

// "shown top 0 1 0 0": whether it shows, the side, row and position, and where it floats.
bool TakePlace(std::string_view line, BandPlace& place) {
  const std::string_view shown = Take(line, ' ');
  place.Shown = shown == "shown";
  return (place.Shown || shown == "hidden") && TakeSide(line, place.Side) && TakeNumber(line, 0, place.Row) &&
         TakeNumber(line, 0, place.Position) && TakeNumber(line, -MaximalNumber, place.X) &&
         TakeNumber(line, -MaximalNumber, place.Y) && line.empty();
}

std::string PlaceText(const BandPlace& place) {
  std::string text = place.Shown ? "shown " : "hidden ";
  text += Sides[static_cast<std::size_t>(place.Side)];
  for (const int number : {place.Row, place.Position, place.X, place.Y}) text += ' ' + std::to_string(number);
  return text;
}

}  // namespace

std::string BandLayout::Encode() const {
  std::string body;
  for (const BandState& band : m_bands) {
    body += "band " + band.Name + ' ' + PlaceText(band.Place) + '\n';
    if (!MayRearrange(band.Name)) continue;
    for (const std::string& tool : band.Tools) body += "tool " + tool + '\n';
  }
  return std::string(FirstLine) + '\n' + Seal(body) + '\n' + body;
}

std::optional<BandLayout> BandLayout::Decode(const BarDesign& design, std::string_view text) {
  if (text.size() > MaximalSize || Take(text, '\n') != FirstLine) return std::nullopt;
  const std::string_view seal = Take(text, '\n');
  BandLayout layout(design);
  if (seal != Seal(text) || !layout.DecodeBody(text)) return std::nullopt;
  return layout;
}

// First all bands become empty that the text has, so that the tools of one do not stand in the way of another's.
bool BandLayout::DecodeBody(std::string_view body) {
  if (!body.empty() && body.back() != '\n') return false;
  std::vector<std::pair<std::string_view, std::string_view>> tools;
  std::vector<std::string_view> seen;
  while (!body.empty()) {
    std::string_view line = Take(body, '\n');
    const std::string_view kind = Take(line, ' ');
    if (kind == "tool" && !seen.empty()) {
      tools.emplace_back(seen.back(), line);
      continue;
    }
    const std::string_view name = Take(line, ' ');
    BandPlace place;
    if (kind != "band" || !TakePlace(line, place)) return false;
    for (const std::string_view other : seen)
      if (other == name) return false;
    seen.push_back(name);
    Place(name, place);
    if (BandState* band = Mutable(name); band && MayRearrange(name)) band->Tools.clear();
  }
  for (const auto& [band, tool] : tools) Insert(band, MaximalSize, tool);
  return true;
}

}  // namespace platform
