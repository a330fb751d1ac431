#pragma once
// A property file of SciTE: settings, each a key and a value, whose values name each other by $(key). Of the conditions
// those of this platform hold. All texts are UTF-8.

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "import/Definition.h"

namespace import {

struct Property {
  std::string Key, Value;  ///< as written; a line that goes on in the next one is one value
  std::string File;
  std::size_t Line = 0;
};

class Properties {
 public:
  /// Reads the text of a file, and what it takes in by "import"; a later value of a key replaces an earlier one.
  void Read(std::string_view text, const std::string& file, const NeighbourFiles& neighbours);

  /// All settings, each key once, in the order of their first values.
  const std::vector<Property>& All() const { return m_all; }

  /// The value of a key as written; null when there is none.
  const Property* Find(std::string_view key) const;

  /// A text with the value in the place of each $(key). A key without a value gives nothing, and so does what would
  /// grow without end.
  std::string Expand(std::string_view text) const;

  std::vector<Loss> Losses;

 private:
  void ReadLines(std::string_view text, const std::string& file);
  void Take(std::string_view line, std::size_t number);
  void TakeFile(std::string_view name, std::size_t number);
  void Set(std::string_view line, std::size_t number);
  bool Holds(std::string_view condition) const;
  void ExpandInto(std::string& result, std::string_view text, std::size_t depth) const;

  std::vector<Property> m_all;
  std::map<std::string, std::size_t, std::less<>> m_places;  ///< of the keys in m_all
  std::string m_file;                                        ///< the one that is being read
  bool m_holds = true;
  const NeighbourFiles* m_neighbours = nullptr;
  // How much more there may be, over all that is asked of it.
  std::size_t m_filesLeft = 20;
  mutable std::size_t m_stepsLeft = 1'000'000, m_bytesLeft = MostBytes;
};

}  // namespace import
