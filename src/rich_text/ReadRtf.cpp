#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <unordered_set>
#include <utility>

#include "rich_text/Encoding.h"
#include "rich_text/Rtf.h"
#include "rich_text/RtfBytes.h"

namespace rich_text {
namespace {

/// Bytes that are text when they stand alone.
constexpr std::array<bool, 256> MakeTextBytes() {
  std::array<bool, 256> plain{};
  for (std::size_t i = 0; i < 0x80; ++i) plain[i] = i != '\\' && i != '{' && i != '}' && i != '\r' && i != '\n';
  return plain;
}
constexpr std::array<bool, 256> TextBytes = MakeTextBytes();

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

int HexDigit(char c) {
  if (IsDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

/// Groups whose text is not the document's.
bool IsForeignDestination(std::string_view word) {
  static const std::unordered_set<std::string_view> words = {
      "fonttbl",   "stylesheet",        "info",    "pict",    "header",    "headerl",   "headerr",   "headerf",
      "footer",    "footerl",           "footerr", "footerf", "footnote",  "object",    "field",     "fldinst",
      "listtable", "listoverridetable", "revtbl",  "rsidtbl", "generator", "themedata", "datastore", "latentstyles"};
  return words.contains(word);
}

/// What a character word shows; 0 for any other word.
char32_t CharacterOfWord(std::string_view word) {
  if (word == "tab") return '\t';
  if (word == "emdash") return 0x2014;
  if (word == "endash") return 0x2013;
  if (word == "lquote") return 0x2018;
  if (word == "rquote") return 0x2019;
  if (word == "ldblquote") return 0x201C;
  if (word == "rdblquote") return 0x201D;
  if (word == "bullet") return 0x2022;
  return 0;
}

/// How the writer of controls switches a colour off, or begins to switch to another one, behind the backslash.
constexpr char PlainSwitch[] = "plain\\f0\\fs20";

// For one run in so many bytes of RTF there is room from the start.
constexpr std::size_t BytesARun = 80;

class Reader {
 public:
  explicit Reader(std::string_view rtf) : m_rtf(rtf) {
    m_out.Text.reserve(rtf.size());
    m_out.Runs.reserve(rtf.size() / BytesARun);
  }

  StyledText Read() {
    while (m_at < m_rtf.size()) Step();
    FlushSurrogate();
    DropClosingParagraph();
    CloseRun(m_out.Text.size());
    for (const auto& entry : m_table) m_out.Colours.push_back(entry.value_or(0));
    return std::move(m_out);
  }

  std::string ReadPiece() {
    while (m_at < m_rtf.size()) Step();
    FlushSurrogate();
    return std::move(m_out.Text);
  }

 private:
  enum class Destination { Text, ColourTable, Foreign };

  struct Group {
    Destination Where = Destination::Text;
    std::uint32_t Colour = 0;
    int FallbackCharacters = 1;
  };

  void Step() {
    const char c = m_rtf[m_at];
    if (TextBytes[static_cast<unsigned char>(c)]) return PlainStretch();
    ++m_at;
    switch (c) {
      case '{':
        m_groups.push_back(m_group);
        break;
      case '}':
        if (!m_groups.empty()) {
          m_group = m_groups.back();
          m_groups.pop_back();
        }
        break;
      case '\\':
        Control();
        break;
      case '\r':
        // The writers' own line end, by far the most frequent.
        if (Take("\n\\par ")) LineBreak(true);
        break;
      case '\n':
        break;
      default:
        Character(FromWindows1252(static_cast<unsigned char>(c)));
    }
  }

  /// Passes over the word, if it stands here. As its length is known, that is a comparison of one or two numbers.
  template <std::size_t N>
  bool Take(const char (&word)[N]) {
    constexpr std::size_t Length = N - 1;
    if (m_rtf.size() - m_at < Length || std::memcmp(m_rtf.data() + m_at, word, Length) != 0) return false;
    m_at += Length;
    return true;
  }

  void PlainStretch() {
    const std::size_t start = m_at;
    if (m_skip > 0) {
      --m_skip, ++m_at;
      return;
    }
    m_at = SkipBytes(m_rtf, m_at, TextBytes);
    const std::string_view stretch = m_rtf.substr(start, m_at - start);
    if (m_group.Where == Destination::ColourTable) {
      for (const char c : stretch)
        if (c == ';') EndColourEntry();
    } else if (m_group.Where == Destination::Text) {
      BeginText();
      m_out.Text += stretch;
    }
  }

  void Control() {
    if (m_at >= m_rtf.size()) return;
    const char c = m_rtf[m_at];
    if (c == 'p' && TakePlainSwitch()) return;
    if (c == 'c' && TakeColourSwitch()) return;
    if (IsLetter(c)) return ControlWord();
    ++m_at;
    switch (c) {
      case '\'':
        return HexCharacter();
      case '*':
        m_group.Where = Destination::Foreign;
        return;
      case '~':
        return Character(0xA0);
      case '_':
        return Character(0x2011);
      case '-':
        return Character(0xAD);
      case '\r':
      case '\n':
        return LineBreak(true);
      default:
        return Character(static_cast<unsigned char>(c) < 0x80 ? static_cast<unsigned char>(c)
                                                              : FromWindows1252(static_cast<unsigned char>(c)));
    }
  }

  /// Reads the writer's own switch in one step, if it stands here.
  bool TakePlainSwitch() {
    const std::size_t start = m_at;
    if (!Take(PlainSwitch)) return false;
    if (m_at >= m_rtf.size() || (m_rtf[m_at] != ' ' && m_rtf[m_at] != '\\')) {
      m_at = start;
      return false;
    }
    if (m_rtf[m_at] == ' ') ++m_at;
    m_group.Colour = 0;
    return true;
  }

  /// Reads "cf" with a number of one or two digits and its space in one step, if it stands here.
  bool TakeColourSwitch() {
    if (m_rtf.size() - m_at < 5 || m_rtf[m_at + 1] != 'f' || !IsDigit(m_rtf[m_at + 2])) return false;
    int number = m_rtf[m_at + 2] - '0';
    std::size_t end = m_at + 3;
    if (IsDigit(m_rtf[end])) number = number * 10 + (m_rtf[end++] - '0');
    if (end >= m_rtf.size() || m_rtf[end] != ' ') return false;
    m_at = end + 1;
    m_group.Colour = ColourNumber(number);
    return true;
  }

  void HexCharacter() {
    if (m_at + 2 > m_rtf.size()) {
      m_at = m_rtf.size();
      return;
    }
    const int high = HexDigit(m_rtf[m_at]), low = HexDigit(m_rtf[m_at + 1]);
    if (high < 0 || low < 0) return;
    m_at += 2;
    Character(FromWindows1252(static_cast<unsigned char>(high * 16 + low)));
  }

  void ControlWord() {
    const std::size_t start = m_at;
    while (m_at < m_rtf.size() && IsLetter(m_rtf[m_at])) ++m_at;
    const std::string_view word = m_rtf.substr(start, m_at - start);
    const std::optional<int> number = ReadNumber();
    if (m_at < m_rtf.size() && m_rtf[m_at] == ' ') ++m_at;
    Word(word, number);
  }

  /// The number behind a word; larger ones than a document needs are cut at the limit, so that nothing overflows.
  std::optional<int> ReadNumber() {
    constexpr int Limit = 100'000'000;
    std::size_t i = m_at;
    const bool negative = i < m_rtf.size() && m_rtf[i] == '-';
    if (negative) ++i;
    if (i >= m_rtf.size() || !IsDigit(m_rtf[i])) return std::nullopt;
    int value = 0;
    for (; i < m_rtf.size() && IsDigit(m_rtf[i]); ++i)
      if (value < Limit) value = value * 10 + (m_rtf[i] - '0');
    m_at = i;
    return negative ? -value : value;
  }

  void Word(std::string_view word, std::optional<int> number) {
    if (word == "f" || word == "fs") {
      return;  // by far the most frequent words behind "plain", and no business of ours
    }
    if (word == "cf") {
      m_group.Colour = ColourNumber(number.value_or(0));
    } else if (word == "plain") {
      m_group.Colour = 0;
    } else if (word == "par" || word == "line") {
      LineBreak(word == "par");
    } else if (word == "u") {
      UnicodeUnit(static_cast<std::uint16_t>(number.value_or(0)));
    } else if (word == "uc") {
      m_group.FallbackCharacters = std::max(0, number.value_or(1));
    } else if (word == "bin") {
      m_at += std::min(m_rtf.size() - m_at, static_cast<std::size_t>(std::max(0, number.value_or(0))));
    } else if (word == "red" || word == "green" || word == "blue") {
      ColourPart(word, number.value_or(0));
    } else if (word == "colortbl") {
      m_group.Where = Destination::ColourTable;
    } else if (IsForeignDestination(word)) {
      m_group.Where = Destination::Foreign;
    } else if (const char32_t character = CharacterOfWord(word)) {
      Character(character);
    }
  }

  std::uint32_t ColourNumber(int number) const {
    if (number < 1 || static_cast<std::size_t>(number) > m_table.size()) return 0;
    return m_table[static_cast<std::size_t>(number) - 1] ? static_cast<std::uint32_t>(number) : 0;
  }

  void ColourPart(std::string_view word, int value) {
    if (m_group.Where != Destination::ColourTable) return;
    const int shift = word == "red" ? 0 : word == "green" ? 8 : 16;
    m_entry = m_entry.value_or(0) | static_cast<ColourValue>(value & 255) << shift;
  }

  /// Entry 0 is the control's own colour and is not kept.
  void EndColourEntry() {
    if (m_sawDefaultEntry)
      m_table.push_back(m_entry);
    else
      m_sawDefaultEntry = true;
    m_entry.reset();
  }

  void UnicodeUnit(char32_t unit) {
    if (m_group.Where != Destination::Text) return;
    m_skip = 0;
    if (unit >= 0xD800 && unit < 0xDC00) {
      FlushSurrogate();
      m_highSurrogate = unit;
    } else if (unit >= 0xDC00 && unit < 0xE000) {
      const char32_t high = std::exchange(m_highSurrogate, 0);
      Append(high ? 0x10000 + ((high - 0xD800) << 10) + (unit - 0xDC00) : 0xFFFD);
    } else {
      Append(unit);
    }
    m_skip = m_group.FallbackCharacters;
  }

  /// A high surrogate without its partner cannot stand in the text.
  void FlushSurrogate() {
    if (std::exchange(m_highSurrogate, 0)) Append(0xFFFD);
  }

  void Character(char32_t character) {
    if (m_skip > 0) {
      --m_skip;
      return;
    }
    Append(character);
  }

  void LineBreak(bool paragraph) {
    const bool isShown = m_skip == 0 && m_group.Where == Destination::Text;
    Character('\n');
    m_closesParagraph = paragraph && isShown;
  }

  void Append(char32_t character) {
    if (m_group.Where != Destination::Text) return;
    BeginText();
    if (character < 0x80)
      m_out.Text.push_back(static_cast<char>(character));
    else
      AppendUtf8(m_out.Text, character);
  }

  void BeginText() {
    FlushSurrogate();
    m_closesParagraph = false;
    if (m_group.Colour != m_runColour) {
      CloseRun(m_out.Text.size());
      m_runColour = m_group.Colour;
      m_runStart = m_out.Text.size();
    }
  }

  void CloseRun(std::size_t end) {
    if (m_runColour != 0 && end > m_runStart) m_out.Runs.push_back({m_runStart, end, m_runColour});
    m_runColour = 0;
  }

  void DropClosingParagraph() {
    if (m_closesParagraph) m_out.Text.pop_back();
  }

  std::string_view m_rtf;
  std::size_t m_at = 0;
  StyledText m_out;
  std::vector<Group> m_groups;
  Group m_group;
  std::vector<std::optional<ColourValue>> m_table;
  std::optional<ColourValue> m_entry;
  bool m_sawDefaultEntry = false;
  bool m_closesParagraph = false;  ///< the last thing in the text is the end of a paragraph
  char32_t m_highSurrogate = 0;
  int m_skip = 0;  ///< fallback characters of the last \u still to pass over
  std::uint32_t m_runColour = 0;
  std::size_t m_runStart = 0;
};

}  // namespace

StyledText ReadRtf(std::string_view rtf) {
  return Reader(rtf).Read();
}

std::string ReadRtfPiece(std::string_view piece) {
  return Reader(piece).ReadPiece();
}

}  // namespace rich_text
