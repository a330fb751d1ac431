#pragma once
// Bytes from another process, cut into execute strings: one a line, UTF-8, ended by a line feed, 64 KiB at most. What
// is longer, is not UTF-8 or holds a NUL spoils the whole stream: nothing more is taken from it.

#include <optional>
#include <string>
#include <string_view>

namespace platform {

class ExecuteLines {
 public:
  static constexpr std::size_t Longest = 64 * 1024;  ///< bytes of a line without its end

  /// Adds bytes that have arrived. Whatever comes, no more than a line and one chunk of bytes is kept.
  void Add(std::string_view bytes);

  /// Takes the next whole line, without its end; nothing when none is whole yet or the stream is spoilt.
  std::optional<std::string> Next();

  bool Spoilt() const { return m_spoilt; }

 private:
  std::string m_bytes;
  std::size_t m_start = 0;    ///< where the next line begins
  std::size_t m_scanned = 0;  ///< no line feed stands from the start to here
  bool m_spoilt = false;
};

}  // namespace platform
