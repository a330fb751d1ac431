#pragma once
// The registry's text export format, version 5.00, read into a tree of keys and written again. The text is UTF-8 (one
// in UTF-16 with its mark is taken too); lines end with CR LF or LF and are written with CR LF.
//
// What is not understood is not lost: comments, blank lines and values of other types come back as they were written,
// and so does every value that was not changed. A damaged line is left out and told with its number; the lines around
// it count.

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/Registry.h"

namespace settings {

/// One key and its values, in the order of the text.
class RegistryTextKey {
 public:
  struct Value {
    std::string Name;
    platform::RegistryValue Content;
    std::string Raw;     ///< its lines as read, each ended; "" when it is to be written anew
    std::string Before;  ///< comments and blank lines above it
  };

  explicit RegistryTextKey(std::string path) : Path(std::move(path)) {}

  std::string Path;    ///< with its root, "HKEY_CURRENT_USER\Software"
  std::string Before;  ///< comments and blank lines above the key's line
  std::string After;   ///< comments and blank lines behind its last value

  const std::vector<Value>& Values() const { return m_values; }
  /// Null when there is none.
  const Value* Find(std::string_view name) const;
  /// Adds a value, or replaces the one of the name. `raw` and `before` as in Value.
  void Set(std::string_view name, const platform::RegistryValue& content, std::string raw = "",
           std::string before = "");
  /// False when there is none.
  bool Remove(std::string_view name);
  void Clear();

 private:
  std::vector<Value> m_values;
  std::unordered_map<std::string, std::size_t> m_places;  ///< by folded name
};

class RegistryText {
 public:
  /// Reads a text; replaces what was there. Damages are told as "line 7: the reason".
  void Read(std::string_view text);
  std::string Write() const;
  const std::vector<std::string>& Damages() const { return m_damages; }

  /// The key with this path, its root included; null when it has no line of its own.
  RegistryTextKey* Find(std::string_view path);
  const RegistryTextKey* Find(std::string_view path) const;
  /// Whether the key, or any below it, is there.
  bool Exists(std::string_view path) const;
  RegistryTextKey& Create(std::string_view path);
  /// Removes a key and all below it.
  void Remove(std::string_view path);

 private:
  class Reader;

  std::vector<RegistryTextKey> m_keys;
  std::map<std::string, std::size_t, std::less<>> m_places;  ///< by folded path
  std::string m_end;                                         ///< comments behind everything, without a key before them
  std::vector<std::string> m_damages;
};

/// Lower case of a name that may be no UTF-8, for comparing.
std::string FoldedName(std::string_view name);

/// UTF-16, least byte first, of UTF-8 and back; what is no character becomes U+FFFD.
std::string ToUtf16(std::string_view utf8);
std::string FromUtf16(std::string_view bytes);

}  // namespace settings
