#include "aids/CommandLines.h"

#include <algorithm>

namespace aids {
namespace {

/// A quoted program and what follows its closing quote.
platform::CommandParts SplitQuoted(std::string_view line) {
  const std::size_t close = std::min(line.find('"', 1), line.size());
  return {std::string(line.substr(1, close - 1)), std::string(line.substr(std::min(close + 1, line.size())))};
}

/// The path as it must stand between double quotes so that splitting gives it back.
std::string Marked(std::string_view path) {
  std::string marked;
  std::size_t backslashes = 0;
  for (const char c : path) {
    if (c == '"') marked.append(backslashes + 1, '\\');
    marked += c;
    backslashes = c == '\\' ? backslashes + 1 : 0;
  }
  return marked.append(backslashes, '\\');
}

}  // namespace

platform::CommandParts SplitHelpCommand(std::string_view line) {
  if (line.substr(0, 1) == "\"") return SplitQuoted(line);
  const std::size_t blank = std::min(line.find(' '), line.size());
  return {std::string(line.substr(0, blank)), std::string(line.substr(blank))};
}

platform::CommandParts SplitRunCommand(std::string_view line) {
  platform::CommandParts parts = line.substr(0, 1) == "\"" ? SplitQuoted(line) : SplitHelpCommand(line);
  if (!parts.Arguments.empty()) parts.Arguments.erase(0, 1);
  return parts;
}

std::string CommandFor(std::string_view executeCommand, std::string_view path) {
  std::string command;
  bool quoted = false;
  for (std::size_t i = 0; i < executeCommand.size(); ++i) {
    if (executeCommand.substr(i, 2) == "%s") {
      command += quoted && path.find('"') != std::string_view::npos ? Marked(path) : std::string(path);
      ++i;
      continue;
    }
    if (executeCommand[i] == '"') quoted = !quoted;
    command += executeCommand[i];
  }
  return command;
}

void RunCommand(const std::string& line, platform::Shell& shell, platform::Prompts& prompts) {
  const platform::CommandParts parts = SplitRunCommand(line);
  if (shell.ShellExecute(parts.Program, parts.Arguments) >= platform::ShellSuccess) return;
  prompts.Show({.Text = "An error occured when trying to execute the command:\r\n\r\n" + line,
                .Title = "Error",
                .Icon = platform::PromptIcon::Critical});
}

}  // namespace aids
