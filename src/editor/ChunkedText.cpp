#include "editor/ChunkedText.h"

#include <algorithm>

namespace editor {
namespace {

constexpr std::size_t ChunkBytes = 64 * 1024;  // a piece that reaches twice this is cut up

}  // namespace

ChunkedText::Place ChunkedText::Find(std::size_t offset) const {
  std::size_t chunk = 0;
  for (; chunk < m_chunks.size() && offset > m_chunks[chunk].size(); ++chunk) offset -= m_chunks[chunk].size();
  return {chunk, offset};
}

void ChunkedText::Erase(Place from, std::size_t length) {
  std::size_t chunk = from.Chunk, offset = from.Offset;
  while (length > 0) {
    const std::size_t here = std::min(length, m_chunks[chunk].size() - offset);
    m_chunks[chunk].erase(offset, here);
    length -= here;
    ++chunk, offset = 0;
  }
  const auto isEmpty = [](const std::string& piece) { return piece.empty(); };
  const auto first = m_chunks.begin() + static_cast<std::ptrdiff_t>(from.Chunk);
  const auto last = m_chunks.begin() + static_cast<std::ptrdiff_t>(chunk);
  m_chunks.erase(std::remove_if(first, last, isEmpty), last);
}

void ChunkedText::Insert(Place at, std::string_view text) {
  if (at.Chunk == m_chunks.size()) m_chunks.emplace_back();
  std::string& piece = m_chunks[at.Chunk];
  if (piece.size() + text.size() < 2 * ChunkBytes) {
    piece.insert(at.Offset, text);
    return;
  }
  const std::string rest = piece.substr(at.Offset);
  piece.resize(at.Offset);
  std::vector<std::string> added;
  for (const std::string_view part : {text, std::string_view(rest)})
    for (std::size_t from = 0; from < part.size(); from += ChunkBytes)
      added.emplace_back(part.substr(from, ChunkBytes));
  m_chunks.insert(m_chunks.begin() + static_cast<std::ptrdiff_t>(at.Chunk) + 1, std::make_move_iterator(added.begin()),
                  std::make_move_iterator(added.end()));
}

void ChunkedText::Replace(std::size_t start, std::size_t removed, std::string_view inserted) {
  if (removed > 0) Erase(Find(start), removed);
  if (!inserted.empty()) Insert(Find(start), inserted);
  m_size += inserted.size() - removed;
}

std::string ChunkedText::Take() {
  std::string text;
  text.reserve(m_size);
  for (std::string& piece : m_chunks) {
    text += piece;
    std::string().swap(piece);
  }
  m_chunks.clear();
  m_size = 0;
  return text;
}

}  // namespace editor
