#include "import/Definition.h"

#include <algorithm>
#include <cctype>

#include "rich_text/Encoding.h"
#include "templates/Values.h"

namespace import {
namespace {

constexpr std::size_t LongestCredit = 200;

/// What stands behind a word such as "Author:" in a line of comment; the whole line where no colon follows.
std::string CreditIn(std::string_view line, std::size_t word) {
  const std::size_t colon = line.find(':', word);
  std::string_view credit = templates::Trimmed(colon == std::string_view::npos ? line : line.substr(colon + 1));
  while (!credit.empty() && std::string_view("#-*/ \t\r").find(credit.front()) != std::string_view::npos)
    credit.remove_prefix(1);
  if (credit.size() <= LongestCredit) return std::string(credit);
  std::size_t end = LongestCredit;
  while (end > 0 && rich_text::ContinuesCharacter(credit[end])) --end;
  return std::string(credit.substr(0, end));
}

}  // namespace

void TakeCredits(Definition& definition, std::span<const std::string> comments) {
  struct Credit {
    std::string_view Word;
    std::string& Value;
    bool NeedsColon;
  };
  const Credit credits[] = {
      {"licen", definition.Licence, false}, {"author", definition.Author, true}, {"version", definition.Version, true}};
  for (const std::string& comment : comments) {
    const std::string folded = rich_text::LowerCase(comment);
    for (const Credit& credit : credits) {
      const std::size_t place = folded.find(credit.Word);
      if (place == std::string::npos || !credit.Value.empty()) continue;
      if (credit.NeedsColon && comment.find(':', std::min(place, comment.size())) == std::string::npos) continue;
      credit.Value = CreditIn(comment, std::min(place, comment.size()));
      break;
    }
  }
}

void Definition::TakePatterns(std::size_t line, std::span<const std::string> patterns) {
  std::vector<std::string> names;
  std::string lost;
  for (const std::string& pattern : patterns) {
    const std::string name = pattern.starts_with("*.") ? pattern.substr(2) : pattern;
    const bool isExtension = name.size() < pattern.size();
    if (name.empty() || name.find_first_of("*?[]$;/\\ ") != std::string::npos ||
        (isExtension && name.find('.') != std::string::npos))
      lost += (lost.empty() ? "" : ", ") + pattern;
    else if (isExtension)
      Extensions.push_back(name);
    else  // the extension of ".profile" is all of it
      names.push_back(name.rfind('.') == 0 ? name.substr(1) : name);
  }
  Extensions.insert(Extensions.end(), names.begin(), names.end());
  if (!lost.empty()) Lose(line, "A template is not found by these patterns: " + lost + '.');
}

bool IsPlainFileName(std::string_view name) {
  return !name.empty() && name.size() <= 255 && !name.starts_with('.') &&
         name.find_first_of(std::string_view("/\\\0", 3)) == std::string_view::npos;
}

std::string DelimetersBut(std::string_view wordCharacters) {
  std::string delimeters;
  for (char c = '!'; c <= '~'; ++c)
    if (std::isalnum(static_cast<unsigned char>(c)) == 0 && wordCharacters.find(c) == std::string_view::npos)
      delimeters += c;
  return delimeters + '\t';
}

}  // namespace import
