#pragma once
// The arrangement of the bands of an ActiveBar: where each stands, whether it shows, which designed tools stand on it
// in which order. Indexes are 0-based. Whatever is asked for, the arrangement stays sound: no tool stands on a band
// twice, no menu opens from itself, bands that the program fills keep their tools. The design must outlive the layout.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ActiveBar.h"

namespace platform {

enum class DockSide { Top, Bottom, Left, Right, Floating };

/// Where a toolbar or tab strip stands. Bands of one row stand in the order of Position.
struct BandPlace {
  DockSide Side = DockSide::Top;
  int Row = 0;
  int Position = 0;
  int X = 0, Y = 0;  ///< screen position of a floating band
  bool Shown = true;

  bool operator==(const BandPlace&) const = default;
};

struct BandState {
  std::string Name;
  BandPlace Place;
  std::vector<std::string> Tools;

  bool operator==(const BandState&) const = default;
};

class BandLayout {
 public:
  /// The arrangement as designed.
  explicit BandLayout(const BarDesign& design);

  const std::vector<BandState>& Bands() const { return m_bands; }
  const BandState* Find(std::string_view band) const;

  /// Whether the user may rearrange the band's tools.
  bool MayRearrange(std::string_view band) const;

  /// Puts a tool before the one at `index` (at the end if it is too large). False when it cannot stand there.
  bool Insert(std::string_view band, std::size_t index, std::string_view tool);
  bool Remove(std::string_view band, std::size_t index);
  /// Moves a tool, within a band or to another one, before the tool that is at `toIndex` now. False, and nothing has
  /// changed, when it cannot stand there.
  bool Move(std::string_view from, std::size_t index, std::string_view to, std::size_t toIndex);

  /// Gives a band these tools, without those that cannot stand there.
  void SetTools(std::string_view band, const std::vector<std::string>& tools);
  void Show(std::string_view band, bool shown);
  void Place(std::string_view band, const BandPlace& place);

  /// Takes a band's place and tools from another layout of the same design.
  void CopyBand(const BandLayout& from, std::string_view band);

  /// The arrangement as text: a line with name and version, one with the length and the checksum of the rest, then a
  /// line a band and a line a tool.
  std::string Encode() const;
  /// Reads such a text; nothing when it is damaged, foreign or of another version. Bands and tools that the design does
  /// not know are left out, a band that the text lacks is as designed.
  static std::optional<BandLayout> Decode(const BarDesign& design, std::string_view text);

  bool operator==(const BandLayout& other) const { return m_bands == other.m_bands; }

 private:
  BandState* Mutable(std::string_view band);
  bool MayStand(const BandState& band, std::string_view tool) const;
  bool Reaches(std::string_view fromBand, std::string_view toBand) const;
  bool DecodeBody(std::string_view body);

  const BarDesign* m_design;
  std::vector<BandState> m_bands;
};

}  // namespace platform
