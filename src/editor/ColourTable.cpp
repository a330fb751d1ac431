#include "editor/ColourTable.h"

#include <algorithm>

#include "editor/ColourPass.h"
#include "platform/Failure.h"
#include "rich_text/Rtf.h"
#include "templates/Model.h"

namespace editor {
namespace {

constexpr std::string_view TableKeyword = "\\colortbl\\";

/// The numeric value behind `word` in a table entry, 0 when it is missing.
rich_text::ColourValue PartOf(std::string_view entry, std::string_view word) {
  const std::size_t at = entry.find(word);
  rich_text::ColourValue value = 0;
  if (at == std::string_view::npos) return value;
  for (std::size_t i = at + word.size(); i < entry.size() && entry[i] >= '0' && entry[i] <= '9'; ++i)
    value = std::min<rich_text::ColourValue>(value * 10 + static_cast<rich_text::ColourValue>(entry[i] - '0'), 255);
  return value;
}

}  // namespace

std::string BuildColourTable(const std::vector<rich_text::ColourValue>& colours) {
  std::string table;
  table.reserve(colours.size() * 26 + 1);
  for (const rich_text::ColourValue colour : colours) {
    if (templates::IsColour(colour))
      rich_text::AppendColourEntry(table, colour);
    else
      table += ';';  // keeps its place in the numbering, and is no colour
  }
  return table + '}';
}

void DocColours::ReadDocColours(std::string_view rtf) {
  m_document.clear();
  std::size_t at = rtf.find(TableKeyword);
  if (at == std::string_view::npos) return;
  at += TableKeyword.size();
  const std::size_t close = std::min(rtf.find('}', at), rtf.size());
  for (std::size_t end; (end = rtf.find(';', at)) < close; at = end + 1) {
    const std::string_view entry = rtf.substr(at, end - at);
    m_document.push_back(PartOf(entry, "red") | PartOf(entry, "green") << 8 | PartOf(entry, "blue") << 16);
  }
}

std::int16_t DocColours::MapColour(int k, const std::vector<rich_text::ColourValue>& colours) {
  if (!DrawsColour(k, colours))
    throw platform::Failure(platform::Failure::OutOfRange, "no colour has the number " + std::to_string(k));
  const rich_text::ColourValue colour = colours[static_cast<std::size_t>(k) - 1];
  const auto document = std::find(m_document.begin(), m_document.end(), colour);
  if (document != m_document.end()) return static_cast<std::int16_t>(document - m_document.begin());
  const auto added = std::find(m_added.begin(), m_added.end(), colour);
  const auto place = added - m_added.begin();
  if (added == m_added.end()) m_added.push_back(colour);
  return static_cast<std::int16_t>(static_cast<std::ptrdiff_t>(m_document.size()) + place);
}

std::string DocColours::MergeColourTable(std::string_view header) const {
  const std::size_t table = header.find(TableKeyword);
  if (table == std::string_view::npos) return std::string(header);
  const std::size_t close = std::min(header.find('}', table), header.size());
  std::string merged(header.substr(0, table + TableKeyword.size() - 1));
  for (const auto* colours : {&m_document, &m_added})
    for (const rich_text::ColourValue colour : *colours) rich_text::AppendColourEntry(merged, colour);
  merged += header.substr(close);
  return merged;
}

}  // namespace editor
