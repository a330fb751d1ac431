#include "shell/CommandLine.h"

#include <charconv>
#include <optional>
#include <utility>

#include "platform/FileParsing.h"

namespace shell {
namespace {

struct Place {
  std::size_t Line = 0, Column = 0;
};

std::string Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return "";
  return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

/// A number above 0 that is the whole text.
std::optional<std::size_t> NumberIn(std::string_view text) {
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || number == 0) return std::nullopt;
  return number;
}

/// "LINE" or "LINE:COL".
std::optional<Place> PlaceIn(std::string_view text) {
  const std::size_t colon = text.find(':');
  const auto line = NumberIn(text.substr(0, colon));
  if (!line) return std::nullopt;
  if (colon == std::string_view::npos) return Place{*line, 0};
  const auto column = NumberIn(text.substr(colon + 1));
  return column ? std::optional(Place{*line, *column}) : std::nullopt;
}

bool IsKnownSwitch(std::string_view argument) {
  return argument == NoSubclassing || argument == ResetSettings || argument == ResetToolbars;
}

/// Sorts the arguments one after another.
class ArgumentReader {
 public:
  explicit ArgumentReader(const std::string& startFolder) : m_startFolder(startFolder) {}

  void Read(const std::string& argument) {
    if (!m_onlyFiles && ReadOption(argument)) return;
    FileArgument file = ParseFileArgument(argument, m_startFolder);
    if (!m_onlyFiles && file.FullPath.empty() && argument.starts_with('/'))
      m_result.Switches.push_back(argument);
    else
      AddFile(std::move(file));
  }

  CommandLine Result() {
    if (m_waiting.Line > 0 && !m_result.Files.empty()) SetPlace(m_result.Files.back(), m_waiting);
    return std::move(m_result);
  }

 private:
  bool ReadOption(const std::string& argument) {
    if (argument == "--")
      m_onlyFiles = true;
    else if (argument == "--help" || argument == "-h")
      m_result.What = CommandLine::Task::Help;
    else if (argument == "--version" || argument == "-v")
      m_result.What = CommandLine::Task::Version;
    else if (IsKnownSwitch(argument))
      m_result.Switches.push_back(argument);
    else
      return ReadPlace(argument);
    return true;
  }

  bool ReadPlace(const std::string& argument) {
    if (!argument.starts_with('+')) return false;
    const auto place = PlaceIn(std::string_view(argument).substr(1));
    if (!place || !platform::FullPathName(argument, m_startFolder).empty()) return false;
    m_waiting = *place;
    return true;
  }

  void AddFile(FileArgument file) {
    if (m_waiting.Line > 0) SetPlace(file, m_waiting);
    m_waiting = {};
    m_result.Files.push_back(std::move(file));
  }

  static void SetPlace(FileArgument& file, const Place& place) {
    file.Line = place.Line;
    file.Column = place.Column;
  }

  const std::string& m_startFolder;
  CommandLine m_result;
  Place m_waiting;
  bool m_onlyFiles = false;
};

}  // namespace

std::string TakeToken(std::string& commandLine) {
  const std::size_t start = commandLine.find('/');
  if (start == std::string::npos) return Trimmed(std::exchange(commandLine, ""));
  const std::size_t end = std::min(commandLine.find(' ', start), commandLine.size());
  const std::string token = commandLine.substr(start, end - start);
  commandLine.erase(start, end - start + 1);
  return token;
}

FileArgument ParseFileArgument(std::string_view argument, const std::string& startFolder) {
  FileArgument whole{std::string(argument), platform::FullPathName(argument, startFolder), 0, 0};
  if (!whole.FullPath.empty()) return whole;
  if (argument.ends_with(':')) argument.remove_suffix(1);  // compilers write "FILE:LINE:COL:"
  for (std::size_t colon = argument.rfind(':'), tries = 0; colon != std::string_view::npos && tries < 2; ++tries) {
    const std::string_view path = argument.substr(0, colon);
    const auto place = PlaceIn(argument.substr(colon + 1));
    if (!place) break;
    if (std::string found = platform::FullPathName(path, startFolder); !found.empty())
      return {std::string(path), std::move(found), place->Line, place->Column};
    colon = colon == 0 ? std::string_view::npos : argument.rfind(':', colon - 1);
  }
  return whole;
}

std::string WithPlace(const FileArgument& file) {
  std::string text = file.FullPath;
  if (file.Line > 0) text += ':' + std::to_string(file.Line);
  if (file.Line > 0 && file.Column > 0) text += ':' + std::to_string(file.Column);
  return text;
}

CommandLine ParseCommandLine(const std::vector<std::string>& arguments, const std::string& startFolder) {
  ArgumentReader reader(startFolder);
  for (const std::string& argument : arguments) reader.Read(argument);
  return reader.Result();
}

platform::MessageBox InvalidParameter(const std::string& token) {
  return {.Text = "'" + token +
                  "' is not a valid command line parameter.  Valid parameters are '/ResetSettings', '/ResetToolbars' "
                  "and '/NoSubclassing'."};
}

platform::MessageBox DoesNotExist(const std::string& token) {
  return {.Text = '"' + token + "\" does not exist.", .Icon = platform::PromptIcon::Exclamation};
}

std::string HelpText() {
  return "Usage: quillmark [SWITCH]... [[+LINE[:COL]] FILE[:LINE[:COL]]]...\n"
         "Edits script files. When Quillmark runs already, it opens the files there.\n"
         "\n"
         "  FILE:LINE:COL    open FILE with the caret in that line and column\n"
         "  +LINE:COL FILE   the same\n"
         "  --               everything behind it is a file\n"
         "  /ResetSettings   set every setting and the toolbars back to their defaults\n"
         "  /ResetToolbars   set the toolbars back as designed\n"
         "  /NoSubclassing   leave pop-ups alone when another application comes to the front\n"
         "  -h, --help       print this and exit\n"
         "  -v, --version    print the version and exit\n";
}

std::string VersionText() {
  return "quillmark " QUILLMARK_VERSION "\n";
}

}  // namespace shell
