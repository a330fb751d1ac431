#include "settings/RegistryText.h"

#include <algorithm>
#include <utility>

#include "rich_text/Encoding.h"
#include "templates/Values.h"

namespace settings {
namespace {

using platform::RegistryType;
using platform::RegistryValue;
using templates::Trimmed;

constexpr std::string_view FirstLine = "Windows Registry Editor Version 5.00";
constexpr std::string_view LineEnd = "\r\n";
constexpr std::size_t LineWidth = 80;      ///< of hexadecimal digits
constexpr std::size_t LongestPath = 4096;  ///< bytes of a key's path
constexpr std::string_view HexDigits = "0123456789abcdef";

// Strings.

/// Whether the text can stand between quotes on one line.
bool FitsInQuotes(std::string_view text) {
  return text.find_first_of(std::string_view("\0\r\n", 3)) == std::string_view::npos;
}

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '\\' || c == '"') quoted += '\\';
    quoted += c;
  }
  return quoted + '"';
}

/// Takes a quoted string off the front of `rest`; false when it does not end. A "\" before any other character than "\"
/// and the quote is one that somebody forgot to double.
bool TakeQuoted(std::string_view& rest, std::string& text) {
  text.clear();
  for (std::size_t i = 1; i < rest.size(); ++i) {
    if (rest[i] == '"') {
      rest.remove_prefix(i + 1);
      return true;
    }
    if (rest[i] == '\\' && i + 1 < rest.size() && (rest[i + 1] == '\\' || rest[i + 1] == '"')) ++i;
    text += rest[i];
  }
  return false;
}

// Bytes.

/// "hex:01,02,…", broken into lines that end with "\". `column` is where the text begins in its line.
std::string HexText(std::string_view prefix, std::string_view bytes, std::size_t column) {
  std::string text(prefix);
  column += prefix.size();
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    text += {HexDigits[byte >> 4], HexDigits[byte & 15]};
    column += 3;
    if (i + 1 == bytes.size()) break;
    text += ',';
    if (column + 3 >= LineWidth) {
      text += "\\\r\n  ";
      column = 2;
    }
  }
  return text;
}

int HexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  const char lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// The bytes of "01,02,…" or "" ; false when a pair of digits is none.
bool ParseHex(std::string_view text, std::string& bytes) {
  bytes.clear();
  text = Trimmed(text);
  while (!text.empty()) {
    const std::string_view pair = Trimmed(text.substr(0, text.find(',')));
    const int value = pair.size() == 2   ? HexValue(pair[0]) * 16 + HexValue(pair[1])
                      : pair.size() == 1 ? HexValue(pair[0])
                                         : -1;
    if (value < 0 || HexValue(pair.back()) < 0) return false;
    bytes += static_cast<char>(value);
    const std::size_t comma = text.find(',');
    if (comma == std::string_view::npos) break;
    text = Trimmed(text.substr(comma + 1));
  }
  return true;
}

// Values.

std::string NameText(std::string_view name) {
  return name.empty() ? "@" : Quoted(name);
}

std::string ValueText(std::string_view name, const RegistryValue& content) {
  std::string text = NameText(name) + '=';
  if (content.Type == RegistryType::Other)
    text += content.Data;
  else if (content.Type == RegistryType::Binary)
    text += HexText("hex:", content.Data, text.size());
  else if (FitsInQuotes(content.Data))
    text += Quoted(content.Data);
  else
    text += HexText("hex(1):", ToUtf16(content.Data) + std::string(2, '\0'), text.size());
  return text + std::string(LineEnd);
}

/// The value behind "name="; a reason when it is damaged.
std::string ParseContent(std::string_view text, RegistryValue& content) {
  if (text.starts_with('"')) {
    content.Type = RegistryType::String;
    if (!TakeQuoted(text, content.Data)) return "the closing quote is missing";
    return Trimmed(text).empty() || Trimmed(text).starts_with(';') ? "" : "something stands behind the closing quote";
  }
  for (const std::string_view prefix : {"hex:", "hex(1):", "hex(2):"}) {
    if (!text.starts_with(prefix)) continue;
    content.Type = prefix == "hex:" ? RegistryType::Binary : RegistryType::String;
    if (!ParseHex(text.substr(prefix.size()), content.Data)) return "a byte is no pair of hexadecimal digits";
    if (content.Type == RegistryType::Binary) return "";
    content.Data = FromUtf16(content.Data);
    if (content.Data.ends_with('\0')) content.Data.pop_back();
    return "";
  }
  content = {RegistryType::Other, std::string(text)};
  return text.empty() || text == "-" ? "there is no value" : "";
}

}  // namespace

// One key.

const RegistryTextKey::Value* RegistryTextKey::Find(std::string_view name) const {
  const auto place = m_places.find(FoldedName(name));
  return place == m_places.end() ? nullptr : &m_values[place->second];
}

void RegistryTextKey::Set(std::string_view name, const RegistryValue& content, std::string raw, std::string before) {
  const auto [place, isNew] = m_places.try_emplace(FoldedName(name), m_values.size());
  if (isNew) {
    m_values.push_back({std::string(name), content, std::move(raw), std::move(before)});
    return;
  }
  Value& value = m_values[place->second];
  if (value.Content == content && raw.empty()) return;
  value.Content = content;
  value.Raw = std::move(raw);
  value.Before += before;
}

bool RegistryTextKey::Remove(std::string_view name) {
  const auto place = m_places.find(FoldedName(name));
  if (place == m_places.end()) return false;
  const std::size_t removed = place->second;
  std::string& comments = removed + 1 < m_values.size() ? m_values[removed + 1].Before : After;
  comments.insert(0, m_values[removed].Before);
  m_values.erase(m_values.begin() + static_cast<std::ptrdiff_t>(removed));
  m_places.erase(place);
  for (auto& [folded, other] : m_places)
    if (other > removed) --other;
  return true;
}

void RegistryTextKey::Clear() {
  std::string comments;
  for (const Value& value : m_values) comments += value.Before;
  After.insert(0, comments);
  m_values.clear();
  m_places.clear();
}

// Reading.

class RegistryText::Reader {
 public:
  Reader(RegistryText& target, std::string_view text) : m_target(target), m_rest(text) {}

  void Read() {
    ReadFirstLine();
    while (NextLine()) ReadLine();
    (m_key == NoKey ? m_target.m_end : m_target.m_keys[m_key].After) += m_comments;
  }

 private:
  static constexpr std::size_t NoKey = static_cast<std::size_t>(-1);

  bool NextLine() {
    if (m_rest.empty()) return false;
    const std::size_t end = m_rest.find('\n');
    m_line = m_rest.substr(0, end);
    m_rest.remove_prefix(end == std::string_view::npos ? m_rest.size() : end + 1);
    if (m_line.ends_with('\r')) m_line.remove_suffix(1);
    ++m_number;
    return true;
  }

  void Damage(std::size_t line, const std::string& reason) {
    m_target.m_damages.push_back("line " + std::to_string(line) + ": " + reason);
  }

  void ReadFirstLine() {
    if (!NextLine() || Trimmed(m_line) == FirstLine) return;
    Damage(1, "the format's first line is missing");
    if (m_line.starts_with('[')) ReadLine();
  }

  void ReadLine() {
    const std::string_view line = Trimmed(m_line);
    if (line.empty() || line.starts_with(';'))
      m_comments += std::string(m_line) + std::string(LineEnd);
    else if (line.starts_with('['))
      ReadKey(line);
    else
      ReadValue();
  }

  void ReadKey(std::string_view line) {
    const std::string_view path = line.substr(1, line.size() - 2);
    m_inKey = line.ends_with(']') && !path.empty() && path.size() <= LongestPath && !path.starts_with('-') &&
              path.find('\0') == std::string_view::npos;
    if (!m_inKey) return Damage(m_number, "this is no key; the values below it are left out");
    const std::size_t before = m_target.m_keys.size();
    m_target.Create(path);
    m_key = m_target.m_places.find(FoldedName(path))->second;
    if (m_target.m_keys.size() == before) return;  // of a key that comes twice, the comments go to its next value
    m_target.m_keys[m_key].Before = std::exchange(m_comments, "");
  }

  void ReadValue() {
    const std::size_t number = m_number;
    std::string raw, text;
    TakeContinued(raw, text);
    if (!m_inKey) return Damage(number, "a value without a key");
    std::string name;
    RegistryValue content;
    std::string reason = ParseValue(text, name, content);
    if (!reason.empty()) return Damage(number, reason);
    m_target.m_keys[m_key].Set(name, content, std::move(raw), std::exchange(m_comments, ""));
  }

  /// Whether the line is a value's whose text is a string, in which a "\" at the end is a character.
  static bool IsString(std::string_view line) {
    std::string name;
    if (line.starts_with('@')) line.remove_prefix(1);
    if (line.starts_with('"') && !TakeQuoted(line, name)) return true;
    line = Trimmed(line);
    return line.starts_with('=') && Trimmed(line.substr(1)).starts_with('"');
  }

  /// The line that was read last, and while it ends with "\" the next ones, unless they begin something new; as they
  /// stand, and joined.
  void TakeContinued(std::string& raw, std::string& text) {
    const auto take = [&] {
      raw += std::string(m_line) + std::string(LineEnd);
      text += Trimmed(m_line);
    };
    const auto continues = [&] {
      const std::size_t next = m_rest.find_first_not_of(" \t");
      return next != std::string_view::npos &&
             std::string_view("[\"@;\r\n").find(m_rest[next]) == std::string_view::npos;
    };
    take();
    if (IsString(text)) return;
    while (text.ends_with('\\') && continues() && NextLine()) {
      text.pop_back();
      take();
    }
  }

  static std::string ParseValue(std::string_view text, std::string& name, RegistryValue& content) {
    if (text.starts_with('@'))
      text.remove_prefix(1);
    else if (!text.starts_with('"'))
      return "this is neither a key nor a value";
    else if (!TakeQuoted(text, name))
      return "the name's closing quote is missing";
    text = Trimmed(text);
    if (!text.starts_with('=')) return "\"=\" is missing behind the name";
    return ParseContent(Trimmed(text.substr(1)), content);
  }

  RegistryText& m_target;
  std::string_view m_rest, m_line;
  std::size_t m_number = 0;   ///< of m_line, 1-based
  std::size_t m_key = NoKey;  ///< the key last read
  bool m_inKey = false;       ///< false behind a damaged key line
  std::string m_comments;     ///< those not yet given to a key or value
};

void RegistryText::Read(std::string_view text) {
  *this = RegistryText();
  std::string converted;
  if (text.starts_with("\xFF\xFE")) text = converted = FromUtf16(text.substr(2));
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  Reader(*this, text).Read();
}

// Writing.

std::string RegistryText::Write() const {
  std::string text = std::string(FirstLine) + std::string(LineEnd);
  const auto ensureBlank = [&] {
    if (!text.ends_with("\r\n\r\n")) text += LineEnd;
  };
  for (const RegistryTextKey& key : m_keys) {
    if (key.Before.empty()) ensureBlank();
    text += key.Before + '[' + key.Path + ']' + std::string(LineEnd);
    for (const RegistryTextKey::Value& value : key.Values()) {
      text += value.Before;
      text += value.Raw.empty() ? ValueText(value.Name, value.Content) : value.Raw;
    }
    text += key.After;
  }
  text += m_end;
  ensureBlank();
  return text;
}

// Keys.

RegistryTextKey* RegistryText::Find(std::string_view path) {
  return const_cast<RegistryTextKey*>(std::as_const(*this).Find(path));
}

const RegistryTextKey* RegistryText::Find(std::string_view path) const {
  const auto place = m_places.find(FoldedName(path));
  return place == m_places.end() ? nullptr : &m_keys[place->second];
}

bool RegistryText::Exists(std::string_view path) const {
  const std::string folded = FoldedName(path);
  if (m_places.contains(folded)) return true;
  const auto below = m_places.lower_bound(folded + '\\');
  return below != m_places.end() && below->first.starts_with(folded + '\\');
}

RegistryTextKey& RegistryText::Create(std::string_view path) {
  const auto [place, isNew] = m_places.try_emplace(FoldedName(path), m_keys.size());
  if (isNew) m_keys.emplace_back(std::string(path));
  return m_keys[place->second];
}

void RegistryText::Remove(std::string_view path) {
  const std::string folded = FoldedName(path), below = folded + '\\';
  std::erase_if(m_keys, [&](const RegistryTextKey& key) {
    const std::string other = FoldedName(key.Path);
    return other == folded || other.starts_with(below);
  });
  m_places.clear();
  for (std::size_t i = 0; i < m_keys.size(); ++i) m_places[FoldedName(m_keys[i].Path)] = i;
}

// Texts.

std::string FoldedName(std::string_view name) {
  return rich_text::IsValidUtf8(name) ? rich_text::LowerCase(name) : std::string(name);
}

std::string ToUtf16(std::string_view utf8) {
  std::string bytes;
  const auto unit = [&](char32_t value) {
    bytes += static_cast<char>(value & 0xFF);
    bytes += static_cast<char>(value >> 8 & 0xFF);
  };
  const bool valid = rich_text::IsValidUtf8(utf8);
  for (std::size_t i = 0; i < utf8.size();) {
    const rich_text::CodePoint point =
        valid ? rich_text::CodePointAt(utf8, i)
              : rich_text::CodePoint{
                    static_cast<unsigned char>(utf8[i]) < 0x80 ? static_cast<char32_t>(utf8[i]) : 0xFFFD, 1};
    i += point.Bytes;
    if (point.Value < 0x10000) {
      unit(point.Value);
    } else {
      unit(0xD800 + ((point.Value - 0x10000) >> 10));
      unit(0xDC00 + ((point.Value - 0x10000) & 0x3FF));
    }
  }
  return bytes;
}

std::string FromUtf16(std::string_view bytes) {
  std::string utf8;
  const auto unit = [&](std::size_t i) -> char32_t {
    if (i + 1 >= bytes.size()) return 0;
    return static_cast<unsigned char>(bytes[i]) | static_cast<char32_t>(static_cast<unsigned char>(bytes[i + 1])) << 8;
  };
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const char32_t first = unit(i), second = unit(i + 2);
    if (first < 0xD800 || first > 0xDFFF) {
      rich_text::AppendUtf8(utf8, first);
    } else if (first < 0xDC00 && second >= 0xDC00 && second <= 0xDFFF) {
      rich_text::AppendUtf8(utf8, 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00));
      i += 2;
    } else {
      rich_text::AppendUtf8(utf8, 0xFFFD);
    }
  }
  return utf8;
}

}  // namespace settings
