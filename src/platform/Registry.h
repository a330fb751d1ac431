#pragma once
// The current user's part of a registry: a tree of keys that hold named values. Key paths are written with "\" between
// their parts ("Software\Quillmark\Fonts\DOS"); keys and value names compare without regard to letter case. The value
// named "" is a key's unnamed default value. Strings are UTF-8 and come without the zero that ends them in the store.
//
// Every call answers with a result code, 0 for success; what failed has changed nothing. Changes are made in memory and
// reach the disk with Flush alone.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// The registry's own numbers, which messages show.
enum class RegistryResult : int {
  Success = 0,
  FileNotFound = 2,  ///< no such key or value
  AccessDenied = 5,  ///< the store cannot be read or written
  InvalidData = 13,  ///< a value of another type or length than asked for
  InvalidParameter = 87,
  NoMoreItems = 259,
};

enum class RegistryType { String, Binary, Other };

struct RegistryValue {
  RegistryType Type = RegistryType::String;
  std::string Data;  ///< the text; the bytes; or, of other types, the form that they have in the store

  bool operator==(const RegistryValue&) const = default;
};

class Registry {
 public:
  virtual ~Registry() = default;

  struct Creation {
    RegistryResult Result = RegistryResult::Success;
    bool NewlyCreated = false;
  };
  struct ValueInfo {
    RegistryResult Result = RegistryResult::Success;
    std::size_t Count = 0;
    std::size_t LongestName = 0;  ///< bytes, plus 1 for the zero
    std::size_t LongestData = 0;  ///< bytes
  };

  /// Whether the key can be opened.
  virtual RegistryResult OpenKey(std::string_view key) const = 0;
  /// Opens the key, or creates it and those above it.
  virtual Creation CreateKey(std::string_view key) = 0;
  /// Removes a key with its values and all keys below it.
  virtual RegistryResult DeleteKey(std::string_view key) = 0;

  virtual RegistryResult QueryValue(std::string_view key, std::string_view name, RegistryValue& value) const = 0;
  /// The key must exist.
  virtual RegistryResult SetValue(std::string_view key, std::string_view name, const RegistryValue& value) = 0;
  virtual RegistryResult DeleteValue(std::string_view key, std::string_view name) = 0;
  /// Removes all values of a key; the key stays.
  virtual RegistryResult DeleteValues(std::string_view key) = 0;

  virtual ValueInfo QueryValueInfo(std::string_view key) const = 0;
  /// The value at a 0-based index; NoMoreItems behind the last.
  virtual RegistryResult EnumValue(std::string_view key, std::size_t index, std::string& name,
                                   RegistryValue& value) const = 0;

  /// Writes the changes. "" or the reason why the store still holds what it held before.
  virtual std::string Flush() = 0;

  /// What was found damaged when the store was read: file, line and reason, one sentence each.
  virtual const std::vector<std::string>& Damages() const = 0;
  /// Lets the next Flush first keep the store as it was read beside the new one. Damaged stores are kept in any case.
  virtual void KeepOldStore() = 0;
};

}  // namespace platform
