#pragma once
// Random numbers that are the same on every machine and with every library, so that a reported seed can be replayed.
// The environment variable QUILLMARK_LAW_SEED names the first seed, QUILLMARK_LAW_RUNS the number of runs of each law.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace laws {

class Dice {
 public:
  explicit Dice(std::uint64_t seed) : m_state(seed * 0x9E37'79B9'7F4A'7C15U + 1) {}

  std::uint64_t Next() {
    m_state += 0x9E37'79B9'7F4A'7C15U;
    std::uint64_t z = m_state;
    z = (z ^ z >> 30) * 0xBF58'476D'1CE4'E5B9U;
    z = (z ^ z >> 27) * 0x94D0'49BB'1331'11EBU;
    return z ^ z >> 31;
  }

  /// A number from 0 to `count` - 1.
  std::size_t Below(std::size_t count) { return static_cast<std::size_t>(Next() % count); }
  /// A number from `low` to `high`.
  int Between(int low, int high) { return low + static_cast<int>(Below(static_cast<std::size_t>(high - low + 1))); }
  /// True `percent` times of a hundred.
  bool Chance(int percent) { return Below(100) < static_cast<std::size_t>(percent); }
  /// One element of a list or a string.
  template <typename List>
  auto Pick(const List& list) {
    return list[Below(list.size())];
  }

  /// Up to `longest` of the pieces, one behind the other.
  std::string Text(const std::vector<std::string>& pieces, std::size_t longest) {
    std::string text;
    for (std::size_t left = Below(longest + 1); left > 0; --left) text += Pick(pieces);
    return text;
  }

 private:
  std::uint64_t m_state;
};

/// The value of an environment variable, or `otherwise` where it is not set.
inline std::uint64_t FromEnvironment(const char* name, std::uint64_t otherwise) {
  const char* value = std::getenv(name);
  return value ? std::strtoull(value, nullptr, 10) : otherwise;
}
inline std::uint64_t FirstSeed() {
  return FromEnvironment("QUILLMARK_LAW_SEED", 1);
}
inline std::uint64_t Runs(std::uint64_t usual) {
  return FromEnvironment("QUILLMARK_LAW_RUNS", usual);
}

}  // namespace laws
