#include "tools/help_pages/HelpPages.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "platform/Files.h"
#include "shell/BatchColourer.h"
#include "shell/CommandLine.h"
#include "tools/help_pages/Fragments.h"

namespace help_pages {
namespace {

using Words = std::vector<std::string>;

constexpr std::string_view Open = "<!-- ", Close = " -->";

std::string Read(const std::string& path) {
  platform::FileContent content = platform::ReadFile(path);
  if (!content.Ok()) throw std::runtime_error(path + ": " + content.Error);
  return std::move(content.Bytes);
}

/// The same without its last line end, which would show as an empty line.
std::string ReadLines(const std::string& path) {
  std::string text = Read(path);
  if (text.ends_with('\n')) text.pop_back();
  return text;
}

Words SplitWords(const std::string& text) {
  std::istringstream stream(text);
  Words words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

/// Calls back for each comment of a text, and puts what it gives in the comment's place. What it throws gets the place
/// in the file.
std::string Expand(const std::string& name, const std::string& text,
                   const std::function<std::string(const Words& words)>& part) {
  std::string expanded;
  std::size_t done = 0;
  for (std::size_t start = text.find(Open); start != std::string::npos; start = text.find(Open, done)) {
    const std::size_t end = std::min(text.find(Close, start), text.size());
    expanded.append(text, done, start - done);
    try {
      expanded += part(SplitWords(text.substr(start + Open.size(), end - start - Open.size())));
    } catch (const std::runtime_error& error) {
      const auto line = std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(start), '\n') + 1;
      throw std::runtime_error(name + ":" + std::to_string(line) + ": " + error.what());
    }
    done = std::min(end + Close.size(), text.size());
  }
  return expanded.append(text, done);
}

/// Text that keeps its lines stands in a box.
std::string WithBoxes(const std::string& html) {
  constexpr std::string_view Begin = "<pre>", End = "</pre>";
  std::string boxed;
  std::size_t done = 0;
  for (std::size_t start = html.find(Begin); start != std::string::npos; start = html.find(Begin, done)) {
    const std::size_t inside = start + Begin.size(), end = html.find(End, inside);
    if (end == std::string::npos) break;
    boxed.append(html, done, start - done);
    boxed += Box(std::string_view(html).substr(inside, end - inside));
    done = end + End.size();
  }
  return boxed.append(html, done);
}

/// A page as a browser takes it. Its title is its first heading.
std::string WholePage(const std::string& name, const std::string& body) {
  constexpr std::string_view Begin = "<h1>", End = "</h1>";
  const std::size_t start = body.find(Begin), end = body.find(End);
  if (start != 0 || end == std::string::npos) throw std::runtime_error(name + ":1: a page begins with its heading");
  return "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>" +
         body.substr(Begin.size(), end - Begin.size()) +
         "</title>\n<link rel=\"stylesheet\" type=\"text/css\" href=\"help.css\">\n</head>\n<body>\n" + body +
         "</body>\n</html>\n";
}

class Maker {
 public:
  explicit Maker(const Sources& sources) : m_sources(sources) {
    for (const auto& entry : std::filesystem::directory_iterator(sources.HelpFolder))
      if (entry.is_regular_file()) m_files[entry.path().filename().string()] = Read(entry.path().string());
    for (const auto& [name, text] : m_files) FindCommands(name, text);
  }

  std::map<std::string, std::string> Make() {
    std::map<std::string, std::string> made;
    const auto part = [this](const Words& words) { return Part(words); };
    for (const auto& [name, text] : m_files) {
      if (name.ends_with(".html"))
        made[name] = WholePage(name, Expand(name, WithBoxes(text), part));
      else
        made[name] = name.ends_with(".qhp") ? Expand(name, text, part) : text;
    }
    return made;
  }

 private:
  void FindCommands(const std::string& name, const std::string& text) {
    Expand(name, text, [&](const Words& words) -> std::string {
      if (words.size() == 2 && words[0] == "command" && !m_commands.emplace(words[1], name).second)
        throw std::runtime_error("the command " + words[1] + " has its place in " + m_commands[words[1]]);
      return "";
    });
  }

  std::string PlaceOf(std::string_view tool) const {
    const auto found = m_commands.find(std::string(tool));
    if (found == m_commands.end()) throw std::runtime_error("no page tells about the command " + std::string(tool));
    return found->second + "#" + found->first;
  }

  std::string Part(const Words& words) const {
    const CommandPlace place = [this](std::string_view tool) { return PlaceOf(tool); };
    const auto source = [&](std::size_t index) { return m_sources.HelpFolder + "/" + words[index]; };
    const std::map<std::string, std::pair<std::size_t, std::function<std::string()>>> parts = {
        {"command", {2, [&] { return CommandHeading(words[1]); }}},
        {"band", {2, [&] { return BandTable(words[1], place); }}},
        {"shortcuts", {1, [&] { return ShortcutTable(place); }}},
        {"windows", {1, [&] { return WindowTable(); }}},
        {"templates", {1, [&] { return TemplateTable(m_sources.TemplateFolder); }}},
        {"file", {2, [&] { return Box(Escaped(ReadLines(source(1)))); }}},
        {"coloured", {3, [&] { return Coloured(words[1], ReadAll(words[1]), ReadLines(source(2))); }}},
        {"usage", {1, [&] { return Box(Escaped(shell::HelpText())); }}},
        {"colour-usage", {1, [&] { return Box(Escaped(shell::BatchHelpText())); }}},
        {"licence", {1, [&] { return "<pre>" + Escaped(Read(m_sources.LicenceFile)) + "</pre>"; }}},
        {"version", {1, [&] { return Escaped(shell::VersionText()); }}},
        {"keywords", {1, [&] { return Keywords(place); }}},
        {"files", {1, [&] { return FileList(); }}},
    };
    const auto found = words.empty() ? parts.end() : parts.find(words[0]);
    if (found == parts.end() || found->second.first != words.size())
      throw std::runtime_error("no part of a page is called so, with so many arguments");
    return found->second.second();
  }

  /// Files of the sources, one behind the other, their names with "+" between.
  std::string ReadAll(const std::string& names) const {
    std::string text;
    std::istringstream stream(names);
    for (std::string name; std::getline(stream, name, '+');) text += Read(m_sources.HelpFolder + "/" + name);
    return text;
  }

  std::string FileList() const {
    std::string list;
    for (const auto& [name, text] : m_files)
      if (name.ends_with(".html") || name.ends_with(".css")) list += "<file>" + name + "</file>\n";
    return list;
  }

  const Sources& m_sources;
  std::map<std::string, std::string> m_files;
  std::map<std::string, std::string> m_commands;  ///< tool → page
};

}  // namespace

std::map<std::string, std::string> MakePages(const Sources& sources) {
  return Maker(sources).Make();
}

}  // namespace help_pages
