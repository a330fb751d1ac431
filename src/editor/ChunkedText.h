#pragma once
// A long text in pieces, for many replacements one after the other: each costs the size of a piece, not of the text.
//
// Offsets and lengths are bytes, 0-based, and must lie inside the text.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace editor {

class ChunkedText {
 public:
  explicit ChunkedText(std::string_view text = {}) { Replace(0, 0, text); }

  std::size_t Size() const { return m_size; }
  /// Puts `inserted` in place of the `removed` bytes from `start` on.
  void Replace(std::size_t start, std::size_t removed, std::string_view inserted);
  /// The whole text; the pieces are given up on the way, so that it never needs twice its room.
  std::string Take();

 private:
  struct Place {
    std::size_t Chunk, Offset;
  };
  Place Find(std::size_t offset) const;
  void Insert(Place at, std::string_view text);
  void Erase(Place from, std::size_t length);

  std::vector<std::string> m_chunks;
  std::size_t m_size = 0;
};

}  // namespace editor
