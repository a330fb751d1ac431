#include <array>
#include <cstdint>
#include <unordered_map>

#include "rich_text/Encoding.h"
#include "rich_text/Rtf.h"
#include "rich_text/RtfBytes.h"

namespace rich_text {
namespace {

constexpr std::string_view PlainSwitch = "\\plain\\f0\\fs20";
constexpr std::string_view LineEnd = "\r\n\\par ";

/// Bytes that stand in RTF as they are.
constexpr std::array<bool, 256> MakePlainBytes() {
  std::array<bool, 256> plain{};
  for (std::size_t i = 0x20; i < 0x7F; ++i) plain[i] = i != '\\' && i != '{' && i != '}';
  return plain;
}
constexpr std::array<bool, 256> PlainBytes = MakePlainBytes();

void AppendHex(std::string& rtf, unsigned char byte) {
  constexpr std::string_view Digits = "0123456789abcdef";
  rtf += "\\'";
  rtf += Digits[byte >> 4];
  rtf += Digits[byte & 15];
}

void AppendUnicodeUnit(std::string& rtf, char32_t unit) {
  rtf += "\\u";
  rtf += std::to_string(static_cast<std::int16_t>(unit));
  rtf += '?';
}

void AppendEscaped(std::string& rtf, char32_t value) {
  if (value == '\t') {
    rtf += "\\tab ";
  } else if (value == '\\' || value == '{' || value == '}') {
    rtf += '\\';
    rtf += static_cast<char>(value);
  } else if (const auto byte = ToWindows1252(value)) {
    AppendHex(rtf, *byte);
  } else if (value < 0x10000) {
    AppendUnicodeUnit(rtf, value);
  } else {
    AppendUnicodeUnit(rtf, 0xD800 + ((value - 0x10000) >> 10));
    AppendUnicodeUnit(rtf, 0xDC00 + ((value - 0x10000) & 0x3FF));
  }
}

/// The document's colour table: only colours in use, numbered from 1 in the order of their first use.
class UsedColours {
 public:
  UsedColours(const std::vector<ColourValue>& colours, const std::vector<ColourRun>& runs)
      : m_numbers(colours.size(), 0) {
    std::unordered_map<ColourValue, std::uint32_t> known;
    for (const ColourRun& run : runs) {
      std::uint32_t& number = m_numbers[run.Colour - 1];
      if (number != 0) continue;
      const ColourValue value = colours[run.Colour - 1];
      const auto [place, isNew] = known.emplace(value, static_cast<std::uint32_t>(known.size() + 1));
      if (isNew) {
        AppendColourEntry(m_entries, value);
        m_switches.push_back(std::string(PlainSwitch) + "\\cf" + std::to_string(known.size()) + ' ');
      }
      number = place->second;
    }
  }

  const std::string& Entries() const { return m_entries; }
  std::uint32_t NumberOf(std::uint32_t colour) const { return m_numbers[colour - 1]; }
  /// What stands in the body where the colour changes to `number`.
  const std::string& SwitchTo(std::uint32_t number) const { return m_switches[number]; }

 private:
  std::vector<std::uint32_t> m_numbers;
  std::string m_entries;
  std::vector<std::string> m_switches = {std::string(PlainSwitch) + ' '};
};

void AppendBody(std::string& rtf, std::string_view text, const std::vector<ColourRun>& runs, const UsedColours& used) {
  std::size_t done = 0;
  std::uint32_t current = 0;
  const auto switchTo = [&](std::uint32_t number) {
    if (number != current) rtf += used.SwitchTo(number);
    current = number;
  };
  for (const ColourRun& run : runs) {
    if (run.Start > done) {
      switchTo(0);
      AppendRtfText(rtf, text.substr(done, run.Start - done));
    }
    switchTo(used.NumberOf(run.Colour));
    AppendRtfText(rtf, text.substr(run.Start, run.End - run.Start));
    done = run.End;
  }
  if (done < text.size()) {
    switchTo(0);
    AppendRtfText(rtf, text.substr(done));
  }
}

}  // namespace

std::size_t RtfBodyStart(std::string_view rtf) {
  const std::size_t language = rtf.find("\\deflang");
  if (language == std::string_view::npos) return 0;
  const std::size_t space = rtf.find(' ', language);
  return space == std::string_view::npos ? rtf.size() : space + 1;
}

void AppendColourEntry(std::string& rtf, ColourValue colour) {
  rtf += "\\red" + std::to_string(colour & 255) + "\\green" + std::to_string(colour >> 8 & 255) + "\\blue" +
         std::to_string(colour >> 16 & 255) + ';';
}

void AppendRtfText(std::string& rtf, std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t start = i;
    i = SkipBytes(text, i, PlainBytes);
    rtf.append(text, start, i - start);
    if (i == text.size()) return;
    if (const std::size_t lineEnd = LineEndLength(text, i)) {
      rtf += LineEnd;
      i += lineEnd;
    } else {
      const CodePoint point = CodePointAt(text, i);
      AppendEscaped(rtf, point.Value);
      i += point.Bytes;
    }
  }
}

std::string RtfHeader(std::string_view fontName) {
  std::string rtf = "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deftab720{\\fonttbl{\\f0\\fnil ";
  rtf += fontName;
  rtf += ";}}\r\n{\\colortbl\\red0\\green0\\blue0;";
  return rtf;
}

std::string WriteRtf(const StyledText& styled, std::string_view fontName, bool endLastParagraph) {
  return WriteRtf(styled.Text, styled.Colours, styled.Runs, fontName, endLastParagraph);
}

std::string WriteRtf(std::string_view text, const std::vector<ColourValue>& colours, const std::vector<ColourRun>& runs,
                     std::string_view fontName, bool endLastParagraph) {
  const UsedColours used(colours, runs);
  std::string rtf = RtfHeader(fontName);
  rtf.reserve(rtf.size() + text.size() + text.size() / 4 + runs.size() * 40 + 64);
  rtf += used.Entries();
  rtf += "}\r\n";
  rtf += RtfBodyPrefix;
  AppendBody(rtf, text, runs, used);
  if (endLastParagraph) rtf += LineEnd;
  rtf += '}';
  return rtf;
}

}  // namespace rich_text
