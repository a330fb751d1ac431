#include "import/WordClasses.h"

#include <algorithm>
#include <iterator>

#include "rich_text/Encoding.h"

namespace import {
namespace {

// Each in alphabetical order, in lower case.
constexpr std::string_view Literals[] = {"#f",   "#t",      "false", "inf",     "infinity", "nan",   "nil",
                                         "none", "nothing", "null",  "nullptr", "true",     "undef", "undefined"};
constexpr std::string_view Types[] = {
    "bigint",    "bit",      "bool",    "boolean", "byte",     "cardinal", "char",  "char16_t", "char32_t", "char8_t",
    "character", "complex",  "decimal", "double",  "f32",      "f64",      "float", "float32",  "float64",  "i16",
    "i32",       "i64",      "i8",      "int",     "int16",    "int32",    "int64", "int8",     "integer",  "long",
    "real",      "sbyte",    "short",   "signed",  "smallint", "u16",      "u32",   "u64",      "u8",       "uint",
    "ulong",     "unsigned", "ushort",  "varchar", "void",     "wchar_t",  "word"};
constexpr std::string_view Preprocessor[] = {"#define", "#elif",    "#elifdef", "#elifndef", "#else",
                                             "#endif",  "#error",   "#if",      "#ifdef",    "#ifndef",
                                             "#import", "#include", "#line",    "#pragma",   "#undef"};
constexpr int LargerNumbers[] = {1080,  1200,  1440,  1500,   1600,   2400,   2500,   3000,   3600,    4000,   4096,
                                 5000,  6000,  7200,  8000,   8080,   8192,   8443,   9000,   9600,    9999,   10000,
                                 12345, 15000, 16384, 20000,  25000,  30000,  32767,  32768,  50000,   60000,  65535,
                                 65536, 86400, 99999, 100000, 131072, 262144, 500000, 524288, 1000000, 1048576};
constexpr std::string_view OtherNumbers[] = {"0x0",  "0x1",  "0x2",  "0x4",  "0x8",  "0xF",
                                             "0x10", "0x20", "0x40", "0x80", "0xFF", "0xFFFF"};

static_assert(std::is_sorted(std::begin(Literals), std::end(Literals)));
static_assert(std::is_sorted(std::begin(Types), std::end(Types)));

bool Contains(std::span<const std::string_view> sorted, std::string_view word) {
  return std::binary_search(sorted.begin(), sorted.end(), word);
}

}  // namespace

Role ClassOfWord(Role list, std::string_view word) {
  if (list != Role::Keyword) return list;
  const std::string folded = rich_text::LowerCase(word);
  if (Contains(Literals, folded)) return Role::Literal;
  return Contains(Types, folded) ? Role::Type : list;
}

Role ClassOfList(std::span<const std::string> words, Role otherwise) {
  std::size_t literals = 0, types = 0;
  for (const std::string& word : words) {
    const Role one = ClassOfWord(Role::Keyword, word);
    literals += one == Role::Literal;
    types += one == Role::Type;
  }
  if (types >= 3 && types * 6 >= words.size()) return Role::Type;
  if (literals >= 1 && literals * 2 >= words.size()) return Role::Literal;
  return otherwise;
}

std::span<const std::string_view> PreprocessorWords() {
  return Preprocessor;
}

std::vector<std::string> NumberWords() {
  std::vector<std::string> numbers;
  for (int i = 0; i <= 1000; ++i) numbers.push_back(std::to_string(i));
  numbers.emplace_back("1024");
  for (int year = 1900; year <= 2050; ++year) numbers.push_back(std::to_string(year));
  for (int number : LargerNumbers) numbers.push_back(std::to_string(number));
  numbers.insert(numbers.end(), std::begin(OtherNumbers), std::end(OtherNumbers));
  return numbers;
}

}  // namespace import
