#include "import/Properties.h"

#include <algorithm>
#include <utility>

#include "templates/LineReader.h"
#include "templates/Values.h"

namespace import {
namespace {

constexpr std::string_view ThisPlatform = "PLAT_GTK";

bool IsIndented(std::string_view line) {
  return line.starts_with(' ') || line.starts_with('\t');
}

/// The place of the ")" that closes the bracket before `from`; npos when none does.
std::size_t ClosingBracket(std::string_view text, std::size_t from) {
  std::size_t open = 1;
  for (std::size_t i = from; i < text.size(); ++i) {
    if (text[i] == '(') ++open;
    if (text[i] == ')' && --open == 0) return i;
  }
  return std::string_view::npos;
}

}  // namespace

void Properties::Read(std::string_view text, const std::string& file, const NeighbourFiles& neighbours) {
  m_neighbours = &neighbours;
  ReadLines(text, file);
  m_neighbours = nullptr;
}

void Properties::ReadLines(std::string_view text, const std::string& file) {
  const std::string outer = std::exchange(m_file, file);
  const bool outerHolds = std::exchange(m_holds, true);
  templates::LineReader lines(text);
  std::string whole;
  std::size_t number = 0;
  while (const auto line = lines.RawLine()) {
    if (whole.empty()) number = lines.LineNumber();
    const bool goesOn = line->ends_with('\\');
    whole += line->substr(0, line->size() - (goesOn ? 1 : 0));
    if (goesOn) continue;
    Take(whole, number);
    whole.clear();
  }
  Take(whole, number);
  m_file = outer;
  m_holds = outerHolds;
}

void Properties::Take(std::string_view line, std::size_t number) {
  if (line.empty()) return;
  if (!IsIndented(line)) m_holds = true;  // what a condition is about is indented
  const std::string_view content = templates::Trimmed(line);
  if (content.empty() || content.starts_with('#') || content.starts_with("module ")) return;
  if (content.starts_with("if ")) {
    m_holds = Holds(templates::Trimmed(content.substr(3)));
  } else if (content.starts_with("match ") && content.find('=') == std::string_view::npos) {
    m_holds = false;
    Losses.push_back({m_file, number, "Settings for files of some names alone are left out."});
  } else if (m_holds && content.starts_with("import ") && content.find('=') == std::string_view::npos) {
    TakeFile(templates::Trimmed(content.substr(7)), number);
  } else if (m_holds) {
    Set(line.substr(line.find_first_not_of(" \t")), number);
  }
}

void Properties::TakeFile(std::string_view name, std::size_t number) {
  std::string file(name);
  if (!file.ends_with(".properties")) file += ".properties";
  const auto text = IsPlainFileName(file) && m_filesLeft > 0 ? (*m_neighbours)(file) : std::nullopt;
  if (!text)
    return Losses.push_back({m_file, number, "The file \"" + file + "\" that is to be taken in cannot be read."});
  --m_filesLeft;
  ReadLines(*text, file);
}

void Properties::Set(std::string_view line, std::size_t number) {
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos || equals == 0) return;
  const std::string_view key = templates::Trimmed(line.substr(0, equals));
  Property property{std::string(key), std::string(line.substr(equals + 1)), m_file, number};
  const auto [place, isNew] = m_places.try_emplace(property.Key, m_all.size());
  if (isNew)
    m_all.push_back(std::move(property));
  else
    m_all[place->second] = std::move(property);
}

bool Properties::Holds(std::string_view condition) const {
  const bool negated = condition.starts_with('!');
  if (negated) condition.remove_prefix(1);
  const Property* property = Find(condition);
  const std::string value = condition.starts_with("$(") ? Expand(condition)
                            : property == nullptr       ? ""
                                                        : property->Value;
  const bool holds = condition == ThisPlatform || (!value.empty() && value != "0");
  return holds != negated;
}

const Property* Properties::Find(std::string_view key) const {
  const auto place = m_places.find(key);
  return place == m_places.end() ? nullptr : &m_all[place->second];
}

std::string Properties::Expand(std::string_view text) const {
  std::string result;
  ExpandInto(result, text, 0);
  return result;
}

void Properties::ExpandInto(std::string& result, std::string_view text, std::size_t depth) const {
  while (!text.empty()) {
    if (m_stepsLeft == 0 || m_bytesLeft < text.size()) return;
    const std::size_t dollar = text.find("$(");
    --m_stepsLeft;
    m_bytesLeft -= std::min(dollar, text.size());
    result += text.substr(0, dollar);
    if (dollar == std::string_view::npos) return;
    const std::size_t close = ClosingBracket(text, dollar + 2);
    if (close == std::string_view::npos) return;
    std::string key(text.substr(dollar + 2, close - dollar - 2));
    if (depth < MostNesting && key.find("$(") != std::string::npos) {
      std::string expanded;
      ExpandInto(expanded, key, depth + 1);
      key = std::move(expanded);
    }
    if (const Property* property = Find(key); property != nullptr && depth < MostNesting)
      ExpandInto(result, property->Value, depth + 1);
    text.remove_prefix(close + 1);
  }
}

}  // namespace import
