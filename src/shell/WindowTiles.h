#pragma once
// Where windows go when they are tiled or lined up as icons. Pixels, in the area's coordinates.

#include <cstddef>
#include <vector>

namespace shell {

struct Tile {
  int Left = 0, Top = 0, Width = 0, Height = 0;
  bool operator==(const Tile&) const = default;
};

/// Tiles that fill an area of this size without a gap. Up to three windows lie one above another; four and more stand
/// in columns of nearly equal height, the later columns having one window more.
std::vector<Tile> TileHorizontally(std::size_t count, int width, int height);

/// The same turned over: up to three windows stand side by side.
std::vector<Tile> TileVertically(std::size_t count, int width, int height);

/// Places for icons of one size: rows from the lower left corner, upwards when a row is full.
std::vector<Tile> ArrangeIcons(std::size_t count, int iconWidth, int iconHeight, int width, int height);

}  // namespace shell
