#include "shell/ExecuteString.h"

#include <optional>

#include "rich_text/Encoding.h"

namespace shell {
namespace {

constexpr std::string_view FileOpenVerb = "FileOpen";
constexpr std::string_view FileUrl = "file://";  ///< never the start of a full path
constexpr std::string_view HexDigits = "0123456789ABCDEF";

std::string UrlOf(std::string_view path) {
  std::string url(FileUrl);
  for (const char c : path) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte > ' ' && byte < 0x7F && c != '%')
      url += c;
    else
      url += {'%', HexDigits[byte >> 4], HexDigits[byte & 15]};
  }
  return url;
}

/// The value of a hexadecimal digit; 16 or more for another character.
std::size_t HexValue(char c) {
  return HexDigits.find(c >= 'a' && c <= 'f' ? static_cast<char>(c - 'a' + 'A') : c);
}

/// What stands behind "file://" in a URL; nothing when it is no path of this machine.
std::optional<std::string> PathIn(std::string_view escaped) {
  if (!escaped.starts_with('/')) return std::nullopt;
  std::string path;
  for (std::size_t i = 0; i < escaped.size(); ++i) {
    if (escaped[i] != '%') {
      path += escaped[i];
      continue;
    }
    if (escaped.size() - i < 3) return std::nullopt;
    const std::size_t high = HexValue(escaped[i + 1]), low = HexValue(escaped[i + 2]);
    if (high > 15 || low > 15 || high + low == 0) return std::nullopt;
    path += static_cast<char>(high << 4 | low);
    i += 2;
  }
  return path;
}

/// Opens what the argument names; false when it names nothing.
bool OpenArgument(std::string_view argument, const ExecuteActions& actions) {
  std::optional<std::string> path(argument);
  if (argument.starts_with(FileUrl)) path = PathIn(argument.substr(FileUrl.size()));
  if (!path || path->empty()) return false;
  actions.OpenFile(*path);
  return true;
}

}  // namespace

std::string FileOpenCommand(std::string_view path) {
  const bool fits = rich_text::IsValidUtf8(path) && path.find('\n') == std::string_view::npos;
  return std::string(FileOpenVerb) + ':' + (fits ? std::string(path) : UrlOf(path));
}

bool ExecuteCommand(std::string_view command, const ExecuteActions& actions) {
  const std::size_t colon = command.find(':');
  if (colon == std::string_view::npos) return false;
  const std::string_view verb = command.substr(0, colon), argument = command.substr(colon + 1);
  if (verb == FileOpenVerb) return OpenArgument(argument, actions);
  if (verb != BringToFrontVerb) return false;
  actions.BringToFront();
  return true;
}

}  // namespace shell
