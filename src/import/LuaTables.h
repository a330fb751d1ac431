#pragma once
// Reads a Lua file that only says things: assignments of texts, numbers and tables to names. Nothing is run. Functions
// are stepped over; what else a program might do is noted and left out. All texts are UTF-8.

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "import/Definition.h"

namespace import {

struct LuaTable;

/// A value of the file. Tables are shared where the file shares them.
struct LuaValue {
  enum class Sort { Nil, Boolean, Number, Text, Table };

  Sort Kind = Sort::Nil;
  bool Truth = false;  ///< of a boolean
  std::string Text;    ///< of a text; of a number as it is written
  std::shared_ptr<LuaTable> Table;
  std::size_t Line = 0;  ///< where it stands
};

struct LuaField {
  std::string Key;  ///< "" in a list
  LuaValue Value;
};

struct LuaTable {
  std::vector<LuaField> Fields;
  std::size_t Depth = 1;  ///< tables in tables, at most MostNesting

  /// The last value under a key; Nil when there is none.
  const LuaValue& At(std::string_view key) const;
};

struct LuaFile {
  std::map<std::string, LuaValue, std::less<>> Globals;
  std::vector<std::string> Comments;  ///< those before the first statement, without their marks
  std::vector<Loss> Losses;           ///< statements that were left out
  std::size_t ErrorLine = 0;
  std::string Error;  ///< why the file cannot be read; what was read before it stays

  /// The value of a name; Nil when the file does not give it one.
  const LuaValue& At(std::string_view name) const;
};

/// Reads a file. `file` is its name for messages; `neighbours` gives what "dofile" names, which may do so in turn.
LuaFile ReadLuaTables(std::string_view text, const std::string& file, const NeighbourFiles& neighbours);

}  // namespace import
