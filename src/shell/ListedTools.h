#pragma once
// What the tools are called that lists put on a band while the program runs: one for each template, window or file.

#include <charconv>
#include <string>
#include <string_view>

namespace shell {

/// Identifiers of listed tools: a kind's base and the entry's number from 1. The bases lie further apart than a band
/// may have entries.
inline constexpr int TemplateToolBase = 1000, WindowToolBase = 3000, ResetToolbarsTool = 20122;
inline constexpr std::size_t MostListed = 1999;

/// What the names of listed tools begin with; the entry's number follows.
inline constexpr std::string_view TemplateTool = "Template", WindowTabTool = "tbWList", WindowMenuTool = "miWList",
                                  HistoryTool = "History";

/// The number behind a prefix: 12 for "Template12"; 0 when the name is no such tool.
inline std::size_t NumberOf(std::string_view name, std::string_view prefix) {
  std::size_t number = 0;
  if (!name.starts_with(prefix)) return 0;
  const char* end = name.data() + name.size();
  const auto [stop, error] = std::from_chars(name.data() + prefix.size(), end, number);
  return error == std::errc() && stop == end ? number : 0;
}

/// A name as part of a caption, where "&" marks an access key.
inline std::string CaptionText(const std::string& name) {
  std::string text;
  for (const char c : name) text.append(c == '&' ? 2 : 1, c);
  return text;
}

}  // namespace shell
