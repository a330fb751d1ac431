#include "editor/ColouredOutput.h"

#include <algorithm>

#include "editor/ColourTable.h"
#include "rich_text/Encoding.h"
#include "rich_text/Rtf.h"

namespace editor {
namespace {

constexpr std::size_t PieceBytes = 1024 * 1024;

/// Collects output and hands it on in large pieces.
class Output {
 public:
  explicit Output(const OutputSink& sink) : m_sink(sink) { m_buffer.reserve(PieceBytes + PieceBytes / 4); }

  std::string& Buffer() { return m_buffer; }
  bool Open() const { return m_open; }
  /// Hands the buffer on when it is large enough, or at the end whatever there is.
  void Flush(bool atEnd = false) {
    if (m_open && !m_buffer.empty() && (atEnd || m_buffer.size() >= PieceBytes)) {
      m_open = m_sink(m_buffer);
      m_buffer.clear();
    }
  }

 private:
  const OutputSink& m_sink;
  std::string m_buffer;
  bool m_open = true;
};

/// Walks a coloured text stretch by stretch; Format has Open(run), Close(run) and Text(stretch), each appending to the
/// output's buffer.
template <typename Format>
class Writer {
 public:
  Writer(const ColouredText& coloured, Output& output, Format& format)
      : m_coloured(coloured), m_output(output), m_format(format) {}

  void Write() {
    std::size_t done = 0;
    for (const PassRun& run : m_coloured.Runs) {
      if (!DrawsColour(run.Colour, m_coloured.Colours) || run.Start >= run.End) continue;
      Stretch(done, run.Start);
      m_format.Open(run);
      Stretch(run.Start, run.End);
      done = run.End + m_format.Close(run);
      if (!m_output.Open()) return;
    }
    Stretch(done, m_coloured.Text.size());
  }

 private:
  void Stretch(std::size_t from, std::size_t to) {
    while (from < to && m_output.Open()) {
      const std::size_t end = to - from > PieceBytes ? CutBefore(from + PieceBytes) : to;
      m_format.Text(m_coloured.Text.substr(from, end - from));
      m_output.Flush();
      from = end;
    }
  }

  /// A place at or before `offset` that splits neither a character nor a CR LF pair.
  std::size_t CutBefore(std::size_t offset) const {
    while (rich_text::SplitsCharacter(m_coloured.Text, offset)) --offset;
    return offset;
  }

  const ColouredText& m_coloured;
  Output& m_output;
  Format& m_format;
};

class RtfFormat {
 public:
  RtfFormat(std::string& out, const ColouredText& coloured) : m_out(out), m_text(coloured.Text) {
    for (std::size_t colour = 0; colour <= coloured.Colours.size(); ++colour)
      m_switches.push_back("\\cf" + std::to_string(colour) + ' ');
  }

  void Open(const PassRun& run) { m_out += m_switches[static_cast<std::size_t>(run.Colour)]; }

  /// Returns the bytes of the text that it has written itself.
  std::size_t Close(const PassRun& run) {
    if (run.Close == RunClose::Open) return 0;
    if (run.Close == RunClose::InText) {
      m_out += "\\cf0 ";
      return 0;
    }
    m_out += "\r\n\\cf0 \\par ";
    m_endsLastParagraph = run.End == m_text.size();
    return rich_text::LineEndLength(m_text, run.End);
  }

  void End() { m_out += m_endsLastParagraph ? "}" : "\r\n\\par }"; }

  void Text(std::string_view stretch) { rich_text::AppendRtfText(m_out, stretch); }

 private:
  std::string& m_out;
  std::string_view m_text;
  std::vector<std::string> m_switches;  ///< by the number of the colour
  bool m_endsLastParagraph = false;     ///< the last run has written it
};

/// "#RRGGBB".
std::string CssColour(rich_text::ColourValue colour) {
  constexpr std::string_view Digits = "0123456789abcdef";
  std::string css = "#";
  for (const int shift : {0, 8, 16}) {
    css += Digits[colour >> (shift + 4) & 15];
    css += Digits[colour >> shift & 15];
  }
  return css;
}

void AppendEscapedHtml(std::string& html, std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t plain = std::min(text.find_first_of(std::string_view("&<>\"\r\0", 6), i), text.size());
    html.append(text, i, plain - i);
    if (plain == text.size()) return;
    const char c = text[plain];
    // A page can hold neither NUL nor a lone CR; the reader sees the picture of one and a line end.
    if (c == '\r')
      html += plain + 1 < text.size() && text[plain + 1] == '\n' ? "" : "\n";
    else
      html += c == '&' ? "&amp;" : c == '<' ? "&lt;" : c == '>' ? "&gt;" : c == '"' ? "&quot;" : "\xEF\xBF\xBD";
    i = plain + 1;
  }
}

class HtmlFormat {
 public:
  HtmlFormat(std::string& out, const std::vector<rich_text::ColourValue>& colours) : m_out(out), m_colours(colours) {}

  void Open(const PassRun& run) {
    m_out += "<span style=\"color:" + CssColour(m_colours[static_cast<std::size_t>(run.Colour) - 1]) + "\">";
  }
  std::size_t Close(const PassRun&) {
    m_out += "</span>";
    return 0;
  }
  void Text(std::string_view stretch) { AppendEscapedHtml(m_out, stretch); }

 private:
  std::string& m_out;
  const std::vector<rich_text::ColourValue>& m_colours;
};

class AnsiFormat {
 public:
  AnsiFormat(std::string& out, const std::vector<rich_text::ColourValue>& colours) : m_out(out), m_colours(colours) {}

  void Open(const PassRun& run) {
    const rich_text::ColourValue colour = m_colours[static_cast<std::size_t>(run.Colour) - 1];
    m_on = "\x1B[38;2;" + std::to_string(colour & 255) + ';' + std::to_string(colour >> 8 & 255) + ';' +
           std::to_string(colour >> 16 & 255) + 'm';
    m_out += m_on;
  }
  std::size_t Close(const PassRun&) {
    m_on.clear();
    m_out += Off;
    return 0;
  }

  void Text(std::string_view stretch) {
    for (std::size_t i = 0; i < stretch.size();) {
      const std::size_t start = i;
      while (i < stretch.size() && IsShown(stretch[i])) ++i;
      m_out.append(stretch, start, i - start);
      if (i == stretch.size()) return;
      if (const std::size_t lineEnd = rich_text::LineEndLength(stretch, i)) {
        LineEnd(stretch.substr(i, lineEnd));
        i += lineEnd;
      } else {
        const rich_text::CodePoint point = rich_text::CodePointAt(stretch, i);
        rich_text::AppendUtf8(m_out, Picture(point.Value));
        i += point.Bytes;
      }
    }
  }

 private:
  static constexpr std::string_view Off = "\x1B[39m";

  static bool IsShown(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return (byte >= 0x20 && byte != 0x7F && byte != 0xC2) || c == '\t';
  }
  static char32_t Picture(char32_t value) {
    if (value < 0x20) return 0x2400 + value;
    if (value == 0x7F) return 0x2421;
    return value < 0xA0 ? 0xFFFD : value;
  }
  void LineEnd(std::string_view lineEnd) {
    if (!m_on.empty()) m_out += Off;
    m_out += lineEnd;
    m_out += m_on;
  }

  std::string& m_out;
  const std::vector<rich_text::ColourValue>& m_colours;
  std::string m_on;  ///< the sequence of the run that is open
};

}  // namespace

void WriteColouredRtf(const ColouredText& coloured, std::string_view fontName, const OutputSink& sink) {
  Output output(sink);
  output.Buffer() += rich_text::RtfHeader(fontName) + BuildColourTable(coloured.Colours);
  output.Buffer() += rich_text::RtfBodyPrefix;
  RtfFormat format(output.Buffer(), coloured);
  Writer(coloured, output, format).Write();
  format.End();
  output.Flush(true);
}

void WriteColouredHtml(const ColouredText& coloured, std::string_view title, bool fragment, const OutputSink& sink) {
  Output output(sink);
  if (!fragment) {
    output.Buffer() += "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>";
    AppendEscapedHtml(output.Buffer(), title);
    output.Buffer() += "</title>\n</head>\n<body>\n";
  }
  // A page's reader drops a line end right behind the tag, so one is given for it to drop.
  output.Buffer() += "<pre>\n";
  HtmlFormat format(output.Buffer(), coloured.Colours);
  Writer(coloured, output, format).Write();
  output.Buffer() += fragment ? "</pre>\n" : "</pre>\n</body>\n</html>\n";
  output.Flush(true);
}

void WriteColouredAnsi(const ColouredText& coloured, const OutputSink& sink) {
  Output output(sink);
  AnsiFormat format(output.Buffer(), coloured.Colours);
  Writer(coloured, output, format).Write();
  output.Flush(true);
}

}  // namespace editor
