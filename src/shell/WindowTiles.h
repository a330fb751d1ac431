#pragma once
// Where windows go when they are tiled, cascaded or lined up as icons. Pixels, in the area's coordinates.

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

/// Places of three quarters of the area, each a step further down and to the right. Where the next would reach out of
/// the area, a row of steps begins anew at the top, and as far right as there is room.
std::vector<Tile> Cascade(std::size_t count, int step, int width, int height);

/// Places for icons of one size: rows from the lower left corner, upwards when a row is full.
std::vector<Tile> ArrangeIcons(std::size_t count, int iconWidth, int iconHeight, int width, int height);

}  // namespace shell
