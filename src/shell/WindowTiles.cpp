#include "shell/WindowTiles.h"

#include <algorithm>

namespace shell {
namespace {

/// Where part `index` of `count` nearly equal parts of `length` begins.
int PartStart(std::size_t index, std::size_t count, int length) {
  return static_cast<int>(static_cast<long long>(length) * static_cast<long long>(index) /
                          static_cast<long long>(count));
}

std::size_t GroupsFor(std::size_t count) {
  std::size_t groups = 1;
  while ((groups + 1) * (groups + 1) <= count) ++groups;
  return groups;
}

}  // namespace

std::vector<Tile> TileHorizontally(std::size_t count, int width, int height) {
  std::vector<Tile> tiles;
  if (count == 0) return tiles;
  const std::size_t columns = GroupsFor(count), longer = count % columns;
  for (std::size_t column = 0; column < columns; ++column) {
    const std::size_t rows = count / columns + (column >= columns - longer ? 1 : 0);
    const int left = PartStart(column, columns, width), right = PartStart(column + 1, columns, width);
    for (std::size_t row = 0; row < rows; ++row) {
      const int top = PartStart(row, rows, height);
      tiles.push_back({left, top, right - left, PartStart(row + 1, rows, height) - top});
    }
  }
  return tiles;
}

std::vector<Tile> TileVertically(std::size_t count, int width, int height) {
  std::vector<Tile> tiles = TileHorizontally(count, height, width);
  for (Tile& tile : tiles) tile = {tile.Top, tile.Left, tile.Height, tile.Width};
  return tiles;
}

std::vector<Tile> Cascade(std::size_t count, int step, int width, int height) {
  std::vector<Tile> tiles;
  const Tile size{0, 0, width * 3 / 4, height * 3 / 4};
  const auto placesIn = [&](int room) { return static_cast<std::size_t>(std::max(0, room) / std::max(1, step)) + 1; };
  const std::size_t inRow = placesIn(height - size.Height), across = placesIn(width - size.Width);
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t down = i % inRow, right = (down + i / inRow) % across;
    tiles.push_back({static_cast<int>(right) * step, static_cast<int>(down) * step, size.Width, size.Height});
  }
  return tiles;
}

std::vector<Tile> ArrangeIcons(std::size_t count, int iconWidth, int iconHeight, int width, int height) {
  std::vector<Tile> tiles;
  const std::size_t inRow = static_cast<std::size_t>(std::max(1, width / std::max(1, iconWidth)));
  for (std::size_t i = 0; i < count; ++i) {
    const int row = static_cast<int>(i / inRow), column = static_cast<int>(i % inRow);
    tiles.push_back({column * iconWidth, height - (row + 1) * iconHeight, iconWidth, iconHeight});
  }
  return tiles;
}

}  // namespace shell
